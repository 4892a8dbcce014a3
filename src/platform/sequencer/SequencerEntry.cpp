// Exports the functions that the program looks up by name in the MIDI module.

#include "platform/midi/MidiModule.h"
#include "platform/sequencer/SequencerInput.h"

#include <type_traits>

extern "C" {

const char *lyraboxMidiVersion()
{
    return LYRABOX_VERSION;
}

lyrabox::MidiInput *lyraboxMakeMidiInput()
{
    return new lyrabox::SequencerInput;
}

} // extern "C"

static_assert(std::is_same_v<decltype(lyraboxMidiVersion), lyrabox::ModuleVersionFunction>);
static_assert(std::is_same_v<decltype(lyraboxMakeMidiInput), lyrabox::MakeMidiInputFunction>);
