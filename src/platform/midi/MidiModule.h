#pragma once

#include "platform/foundation/LoadedModule.h"
#include "platform/midi/MidiInput.h"

#include <memory>

/// The access to the sequencer is in a module of its own, because most people have no pedals. The
/// module is opened when one is assigned.
namespace lyrabox {

/// The function that the program looks up in the module by name, apart from the version.
extern "C" {
using MakeMidiInputFunction = lyrabox::MidiInput *(); ///< never null; the caller owns the result
}
constexpr const char *midiVersionName = "lyraboxMidiVersion";
constexpr const char *makeMidiInputName = "lyraboxMakeMidiInput";

/// The opened module. It stays loaded until the process ends.
class MidiModule {
public:
    explicit MidiModule(const QString &path);

    /// The system's reason why the module cannot be used. Empty if it can.
    const QString &failure() const { return m_module.failure(); }

    /// Null if the module cannot be used.
    std::unique_ptr<MidiInput> makeMidiInput() const;

private:
    LoadedModule m_module;
    MakeMidiInputFunction *m_makeMidiInput; ///< null if the module cannot be used
};

/// The program's MIDI module. The first call opens it, which takes a few milliseconds. Main thread.
const MidiModule &midiModule();

} // namespace lyrabox
