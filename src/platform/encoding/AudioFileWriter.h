#pragma once

#include "platform/audio/SongWriter.h"

#include <memory>

namespace lyrabox {

/// Writes audio files with FFmpeg. The functions are described in SongWriter. One thread at a time.
class AudioFileWriter final : public SongWriter {
public:
    AudioFileWriter();
    ~AudioFileWriter() override;

    Status open(const QString &path, SongFormat format, const SongDetails &details) override;
    Status write(const float *left, const float *right, std::uint32_t frames) override;
    Status finish() override;

private:
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace lyrabox
