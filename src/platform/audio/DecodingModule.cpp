#include "platform/audio/DecodingModule.h"

#include "platform/foundation/Files.h"

#include <QDir>
#include <QFile>

#include <cstring>

#include <dlfcn.h>
#include <elf.h>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox {

namespace {

class NoReader : public SongReader {
public:
    Status open(const QString &, Depth) override { return status::missingDecoder; }
    Status fileDataFormat(AudioStreamBasicDescription &) const override
    {
        return status::missingDecoder;
    }
    Status setClientDataFormat(const AudioStreamBasicDescription &) override
    {
        return status::missingDecoder;
    }
    Status read(std::uint32_t &frames, AudioBufferList &) override
    {
        frames = 0;
        return status::missingDecoder;
    }
    std::optional<std::uint64_t> estimatedFrames() const override { return std::nullopt; }
    QByteArray albumArtwork() const override { return {}; }
};

/// Whether the file ends before its table of sections, which is the last thing in it. The system's
/// loader does not look, and would end the process when it touches what is not there.
bool isCutOff(const QString &path)
{
    QFile file(path);
    Elf64_Ehdr header{};
    if (!file.open(QIODevice::ReadOnly))
        return false; // the loader tells why
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

template <typename Function>
Function *find(void *module, const char *name)
{
    return reinterpret_cast<Function *>(dlsym(module, name));
}

} // namespace

DecodingModule::DecodingModule(const QString &path)
{
    if (isCutOff(path)) {
        m_failure = u"%1: file too short"_s.arg(path);
        return;
    }
    void *module = dlopen(QFile::encodeName(path).constData(), RTLD_NOW | RTLD_LOCAL);
    if (module == nullptr) {
        m_failure = loaderMessage();
        return;
    }
    const auto version = find<DecodingVersionFunction>(module, decodingVersionName);
    const auto make = find<MakeSongReaderFunction>(module, makeSongReaderName);
    if (version == nullptr || make == nullptr) {
        m_failure = loaderMessage();
        return;
    }
    if (std::strcmp(version(), LYRABOX_VERSION) != 0) {
        m_failure = u"%1: version %2"_s.arg(path, QString::fromUtf8(version()));
        return;
    }
    m_makeSongReader = make;
}

std::unique_ptr<SongReader> DecodingModule::makeSongReader() const
{
    if (m_makeSongReader == nullptr)
        return std::make_unique<NoReader>();
    return std::unique_ptr<SongReader>(m_makeSongReader());
}

const DecodingModule &decodingModule()
{
    static const DecodingModule theModule(
        QDir(files::moduleDirectory()).filePath(u"lyrabox-decoding.so"_s));
    return theModule;
}

} // namespace lyrabox
