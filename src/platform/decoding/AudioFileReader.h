#pragma once

#include "platform/audio/SongReader.h"

#include <functional>
#include <memory>
#include <optional>
#include <stop_token>
#include <utility>

namespace lyrabox {

/// Reads audio files with FFmpeg. Opens local files only: no protocol but `file`, no playlists, no
/// images, no network containers. The functions are described in SongReader. One thread at a time.
class AudioFileReader final : public SongReader {
public:
    AudioFileReader();
    ~AudioFileReader() override;

    void setWaitHook(std::function<void()> hook) override { m_waitHook = std::move(hook); }
    void setStopToken(std::stop_token stop) override { m_stop = std::move(stop); }
    Status open(const QString &path, Depth depth = Depth::Samples) override;
    Status fileDataFormat(AudioStreamBasicDescription &format) const override;
    Status setClientDataFormat(const AudioStreamBasicDescription &format) override;
    Status read(std::uint32_t &frames, AudioBufferList &list) override;
    std::optional<std::uint64_t> estimatedFrames() const override;
    bool isEstimateSure() const override;
    std::optional<std::uint64_t> countedFrames(std::uint64_t limit) const override;
    std::optional<QByteArray> payloadHash(const QString &path,
                                          const std::stop_token &stop) const override;
    QByteArray albumArtwork() const override;
    QMap<QString, QString> infoDictionary() const override;

private:
    struct Private;
    std::unique_ptr<Private> d;
    std::function<void()> m_waitHook;
    std::stop_token m_stop;
};

} // namespace lyrabox
