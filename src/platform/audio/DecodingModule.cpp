#include "platform/audio/DecodingModule.h"

#include "platform/foundation/Files.h"

#include <QDir>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox {

namespace {

/// Stands in for the decoders if their module cannot be used.
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

} // namespace

DecodingModule::DecodingModule(const QString &path)
    : m_module(path, decodingVersionName),
      m_makeSongReader(m_module.find<MakeSongReaderFunction>(makeSongReaderName))
{}

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
