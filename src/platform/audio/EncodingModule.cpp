#include "platform/audio/EncodingModule.h"

#include "platform/foundation/Files.h"

#include <QDir>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox {

namespace {

/// Stands in for the encoders if their module cannot be used.
class NoWriter : public SongWriter {
public:
    Status open(const QString &, SongFormat, const SongDetails &) override
    {
        return status::missingEncoder;
    }
    Status write(const float *, const float *, std::uint32_t) override
    {
        return status::missingEncoder;
    }
    Status finish() override { return status::missingEncoder; }
};

} // namespace

EncodingModule::EncodingModule(const QString &path)
    : m_module(path, encodingVersionName),
      m_makeSongWriter(m_module.find<MakeSongWriterFunction>(makeSongWriterName)),
      m_writableSongFormats(m_module.find<WritableSongFormatsFunction>(writableSongFormatsName))
{}

std::vector<SongFormat> EncodingModule::formats() const
{
    std::vector<SongFormat> result;
    const std::uint32_t writable = failure().isEmpty() ? m_writableSongFormats() : 0U;
    for (const SongFormat format : allSongFormats) {
        if ((writable >> static_cast<unsigned>(format) & 1U) != 0)
            result.push_back(format);
    }
    return result;
}

std::unique_ptr<SongWriter> EncodingModule::makeSongWriter() const
{
    if (!failure().isEmpty())
        return std::make_unique<NoWriter>();
    return std::unique_ptr<SongWriter>(m_makeSongWriter());
}

const EncodingModule &encodingModule()
{
    static const EncodingModule theModule(
        QDir(files::moduleDirectory()).filePath(u"lyrabox-encoding.so"_s));
    return theModule;
}

} // namespace lyrabox
