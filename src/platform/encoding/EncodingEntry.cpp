// Exports the functions that the program looks up by name in the encoding module.

#include "platform/audio/EncodingModule.h"
#include "platform/encoding/AudioFileWriter.h"
#include "platform/encoding/Encoders.h"

extern "C" {

const char *lyraboxEncodingVersion()
{
    return LYRABOX_VERSION;
}

lyrabox::SongWriter *lyraboxMakeSongWriter()
{
    return new lyrabox::AudioFileWriter;
}

std::uint32_t lyraboxWritableSongFormats()
{
    std::uint32_t result = 0;
    for (const lyrabox::SongFormat format : lyrabox::allSongFormats) {
        if (lyrabox::encoding::isWritable(format))
            result |= 1U << static_cast<unsigned>(format);
    }
    return result;
}

} // extern "C"

static_assert(std::is_same_v<decltype(lyraboxEncodingVersion), lyrabox::ModuleVersionFunction>);
static_assert(std::is_same_v<decltype(lyraboxMakeSongWriter), lyrabox::MakeSongWriterFunction>);
static_assert(
    std::is_same_v<decltype(lyraboxWritableSongFormats), lyrabox::WritableSongFormatsFunction>);
