#pragma once

#include "platform/audio/AudioUnit.h"
#include "platform/foundation/LoadedModule.h"

#include <memory>

/// The output device is in a module of its own, so that the sound server's libraries are loaded
/// while the windows are built.
namespace lyrabox {

/// The functions that the program looks up in the module by name, apart from the version. They
/// never return null, and the caller owns the result.
extern "C" {
using MakeOutputFunction = lyrabox::OutputUnit *();
using MakeDefaultOutputWatcherFunction = lyrabox::DefaultOutputWatcher *();
}
constexpr const char *outputVersionName = "lyraboxOutputVersion";
constexpr const char *makeOutputName = "lyraboxMakeOutput";
constexpr const char *makeDefaultOutputWatcherName = "lyraboxMakeDefaultOutputWatcher";

/// The opened module. It stays loaded until the process ends.
class OutputModule {
public:
    explicit OutputModule(const QString &path);

    /// The system's reason why the module cannot be used. Empty if it can.
    const QString &failure() const { return m_module.failure(); }

    /// Null if the module cannot be used. Any thread.
    std::unique_ptr<OutputUnit> makeOutput() const;
    std::unique_ptr<DefaultOutputWatcher> makeDefaultOutputWatcher() const;

private:
    LoadedModule m_module;
    MakeOutputFunction *m_makeOutput;
    MakeDefaultOutputWatcherFunction *m_makeWatcher;
};

/// The program's output module. The first call opens it, and writes to the standard error if the
/// module cannot be used. Calls on other threads wait until it is open. Any thread.
const OutputModule &outputModule();

} // namespace lyrabox
