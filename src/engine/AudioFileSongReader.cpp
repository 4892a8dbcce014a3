#include "engine/SongReader.h"
#include "platform/audio/AudioFileReader.h"

namespace lyrabox::engine {

namespace {

class AudioFileSongReader : public SongReader {
public:
    Status open(const QString &path) override { return m_reader.open(path); }
    Status fileDataFormat(AudioStreamBasicDescription &format) const override
    {
        return m_reader.fileDataFormat(format);
    }
    Status setClientDataFormat(const AudioStreamBasicDescription &format) override
    {
        return m_reader.setClientDataFormat(format);
    }
    Status read(std::uint32_t &frames, AudioBufferList &list) override
    {
        return m_reader.read(frames, list);
    }
    std::optional<std::uint64_t> estimatedFrames() const override
    {
        return m_reader.estimatedFrames();
    }
    bool isEstimateSure() const override { return m_reader.isEstimateSure(); }
    std::optional<std::uint64_t> countedFrames(std::uint64_t most) const override
    {
        return m_reader.countedFrames(most);
    }
    QByteArray albumArtwork() const override { return m_reader.albumArtwork(); }

private:
    AudioFileReader m_reader;
};

} // namespace

std::unique_ptr<SongReader> audioFileSongReader()
{
    return std::make_unique<AudioFileSongReader>();
}

} // namespace lyrabox::engine
