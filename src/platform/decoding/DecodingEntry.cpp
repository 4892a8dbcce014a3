// Exports the functions that the program looks up by name in the decoding module.

#include "platform/audio/DecodingModule.h"
#include "platform/decoding/AudioFileReader.h"

extern "C" {

const char *lyraboxDecodingVersion()
{
    return LYRABOX_VERSION;
}

lyrabox::SongReader *lyraboxMakeSongReader()
{
    return new lyrabox::AudioFileReader;
}

} // extern "C"

static_assert(std::is_same_v<decltype(lyraboxDecodingVersion), lyrabox::ModuleVersionFunction>);
static_assert(std::is_same_v<decltype(lyraboxMakeSongReader), lyrabox::MakeSongReaderFunction>);
