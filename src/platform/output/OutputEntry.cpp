// The functions that the program looks up by name in the output module.

#include "platform/audio/OutputModule.h"
#include "platform/output/CubebOutput.h"
#include "platform/output/PulseDefaultOutputWatcher.h"

#include <type_traits>

extern "C" {

const char *lyraboxOutputVersion()
{
    return LYRABOX_VERSION;
}

lyrabox::OutputUnit *lyraboxMakeOutput()
{
    return new lyrabox::CubebOutput;
}

lyrabox::DefaultOutputWatcher *lyraboxMakeDefaultOutputWatcher()
{
    return new lyrabox::PulseDefaultOutputWatcher;
}

} // extern "C"

static_assert(std::is_same_v<decltype(lyraboxOutputVersion), lyrabox::ModuleVersionFunction>);
static_assert(std::is_same_v<decltype(lyraboxMakeOutput), lyrabox::MakeOutputFunction>);
static_assert(std::is_same_v<decltype(lyraboxMakeDefaultOutputWatcher),
                             lyrabox::MakeDefaultOutputWatcherFunction>);
