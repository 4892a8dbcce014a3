#pragma once

#include "platform/audio/SongWriter.h"
#include "platform/encoding/FFmpeg.h"

#include <functional>

/// Which of FFmpeg's encoders and containers write which format.
namespace lyrabox::encoding {

/// How a format is written.
struct Encoding {
    const char *encoder;         ///< FFmpeg's name
    const char *container;       ///< FFmpeg's name
    AVSampleFormat sampleFormat; ///< what the encoder is given
    int sampleRate;              ///< in hertz
    std::int64_t bitRate;        ///< in bits per second; 0: the encoder has none
};

/// The only encoder that is used for a format. FFmpeg has others for Opus and MP3, but they sound
/// worse and do not say how much silence they add at the ends.
const Encoding &encodingOf(SongFormat format);

/// Finds an encoder or a container by its name; null if there is none. Tests replace them.
struct Lookup {
    std::function<const AVCodec *(const char *name)> encoder = avcodec_find_encoder_by_name;
    std::function<const AVOutputFormat *(const char *name)> container = [](const char *name) {
        return av_guess_format(name, nullptr, nullptr);
    };
};

/// Whether FFmpeg has here what the format needs.
bool isWritable(SongFormat format, const Lookup &lookup = {});

} // namespace lyrabox::encoding
