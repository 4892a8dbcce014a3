#include "platform/encoding/Encoders.h"

#include <array>

namespace lyrabox::encoding {

const Encoding &encodingOf(SongFormat format)
{
    // In the order of allSongFormats.
    static constexpr std::array<Encoding, allSongFormats.size()> encodings = {
        Encoding{"flac", "flac", AV_SAMPLE_FMT_S32, 44100, 0},
        Encoding{"pcm_s16le", "wav", AV_SAMPLE_FMT_S16, 44100, 0},
        Encoding{"pcm_s24le", "wav", AV_SAMPLE_FMT_S32, 44100, 0},
        Encoding{"pcm_f32le", "wav", AV_SAMPLE_FMT_FLT, 44100, 0},
        Encoding{"libopus", "opus", AV_SAMPLE_FMT_FLT, 48000, 160'000},
        Encoding{"libmp3lame", "mp3", AV_SAMPLE_FMT_FLTP, 44100, 0},
        Encoding{"aac", "ipod", AV_SAMPLE_FMT_FLTP, 44100, 256'000},
    };
    return encodings[static_cast<std::size_t>(format)];
}

bool isWritable(SongFormat format, const Lookup &lookup)
{
    const Encoding &encoding = encodingOf(format);
    return lookup.encoder(encoding.encoder) != nullptr &&
           lookup.container(encoding.container) != nullptr;
}

} // namespace lyrabox::encoding
