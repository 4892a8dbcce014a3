#include "platform/foundation/LoadedModule.h"

#include <QFile>

#include <cstring>

#include <dlfcn.h>
#include <elf.h>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox {

namespace {

/// Whether the file is cut off before the end of its section table, which comes last in it. The
/// system's loader does not check this, and the process would crash on the missing part.
bool isCutOff(const QString &path)
{
    QFile file(path);
    Elf64_Ehdr header{};
    if (!file.open(QIODevice::ReadOnly))
        return false; // the loader gives the reason
    if (file.read(reinterpret_cast<char *>(&header), sizeof header) != qint64(sizeof header))
        return true;
    if (std::memcmp(header.e_ident, ELFMAG, SELFMAG) != 0 || header.e_ident[EI_CLASS] != ELFCLASS64)
        return false;
    const auto size = static_cast<std::uint64_t>(file.size());
    const std::uint64_t sections = std::uint64_t(header.e_shnum) * header.e_shentsize;
    return header.e_shoff > size || sections > size - header.e_shoff;
}

QString loaderMessage()
{
    const char *text = dlerror();
    return text != nullptr ? QString::fromLocal8Bit(text) : QString();
}

} // namespace

LoadedModule::LoadedModule(const QString &path, const char *versionName)
{
    if (isCutOff(path)) {
        m_failure = u"%1: file too short"_s.arg(path);
        return;
    }
    m_module = dlopen(QFile::encodeName(path).constData(), RTLD_NOW | RTLD_LOCAL);
    if (m_module == nullptr) {
        m_failure = loaderMessage();
        return;
    }
    const auto version = find<ModuleVersionFunction>(versionName);
    if (version != nullptr && std::strcmp(version(), LYRABOX_VERSION) != 0)
        m_failure = u"%1: version %2"_s.arg(path, QString::fromUtf8(version()));
}

void *LoadedModule::address(const char *name)
{
    if (m_module == nullptr || !m_failure.isEmpty())
        return nullptr;
    void *const found = dlsym(m_module, name);
    if (found == nullptr)
        m_failure = loaderMessage();
    return found;
}

} // namespace lyrabox
