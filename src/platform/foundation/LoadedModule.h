#pragma once

#include <QString>

namespace lyrabox {

extern "C" {
using ModuleVersionFunction = const char *(); ///< LYRABOX_VERSION
}

/// A part of the program in a file of its own, lib/lyrabox/lyrabox-*.so, with libraries that the
/// first picture need not wait for. It stays loaded until the process ends. Any thread.
class LoadedModule {
public:
    /// Opens the module at `path`. One of another version than the program, as its function
    /// `versionName` (a ModuleVersionFunction) tells, cannot be used.
    LoadedModule(const QString &path, const char *versionName);

    /// Why the module cannot be used, in the words of the system; empty when it can.
    const QString &failure() const { return m_failure; }

    /// The function of that name. Null for a module that cannot be used, which one without the
    /// function becomes.
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
