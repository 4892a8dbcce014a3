#pragma once

#include <QString>

namespace lyrabox {

extern "C" {
using ModuleVersionFunction = const char *(); ///< returns LYRABOX_VERSION
}

/// A shared library of the program itself, lib/lyrabox/lyrabox-*.so. The module links large
/// libraries, so the program can show its window before they are loaded. Once loaded, it stays
/// loaded until the process ends; destroying this object does not unload it.
///
/// The constructor and failure() may be used on any thread, and different modules by several
/// threads at once. Only one thread at a time may use an object.
class LoadedModule {
public:
    /// Opens the module at `path`. The module exports a ModuleVersionFunction under the name
    /// `versionName`. A module whose version differs from the program's is unusable.
    LoadedModule(const QString &path, const char *versionName);

    /// The system's reason why the module is unusable; empty if it is usable.
    const QString &failure() const { return m_failure; }

    /// The function that the module exports under `name`. Null if the module could not be loaded. A
    /// module without the function is unusable: failure() then gives the reason.
    template <typename Function>
    Function *find(const char *name)
    {
        return reinterpret_cast<Function *>(address(name));
    }

private:
    void *address(const char *name);

    void *m_module = nullptr;
    QString m_failure;
};

} // namespace lyrabox
