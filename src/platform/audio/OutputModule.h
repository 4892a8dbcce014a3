#pragma once

#include "platform/audio/AudioUnit.h"
#include "platform/foundation/LoadedModule.h"

#include <memory>

/// The output device is a module of its own: the sound server's libraries are loaded while the
/// windows are built.
namespace lyrabox {

/// Beside its version, what the program finds in the module by name.
extern "C" {
using MakeOutputFunction = lyrabox::OutputUnit *();                         ///< never null
using MakeDefaultOutputWatcherFunction = lyrabox::DefaultOutputWatcher *(); ///< never null
}
constexpr const char *outputVersionName = "lyraboxOutputVersion";
constexpr const char *makeOutputName = "lyraboxMakeOutput";
constexpr const char *makeDefaultOutputWatcherName = "lyraboxMakeDefaultOutputWatcher";

/// One opened module, which stays loaded until the process ends.
class OutputModule {
public:
    explicit OutputModule(const QString &path);

    /// Why the module at the path cannot be used, in the words of the system; empty when it can.
    const QString &failure() const { return m_module.failure(); }

    /// Null without a usable module. Any thread.
    std::unique_ptr<OutputUnit> makeOutput() const;
    std::unique_ptr<DefaultOutputWatcher> makeDefaultOutputWatcher() const;

private:
    LoadedModule m_module;
    MakeOutputFunction *m_makeOutput;
    MakeDefaultOutputWatcherFunction *m_makeWatcher;
};

/// The program's own module; the first call opens it, says on the standard error why it cannot be
/// used, and others wait for that. Any thread.
const OutputModule &outputModule();

} // namespace lyrabox
