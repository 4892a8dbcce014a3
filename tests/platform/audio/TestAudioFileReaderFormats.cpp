#include "platform/audio/AudioFileReaderFormats.h"

#include "platform/audio/AudioFileReaderFFmpeg.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace lyrabox;

TEST(AudioFileReaderFormats, TakesContainersByAnyOfTheirNames)
{
    EXPECT_TRUE(isAudioContainer("mp3"));
    EXPECT_TRUE(isAudioContainer("mov,mp4,m4a,3gp,3g2,mj2"));
    EXPECT_TRUE(isAudioContainer("matroska,webm"));
    EXPECT_FALSE(isAudioContainer(""));
    EXPECT_FALSE(isAudioContainer("mp"));
    EXPECT_FALSE(isAudioContainer(","));
}

TEST(AudioFileReaderFormats, LeavesOutWhatLeadsElsewhere)
{
    for (const char *name :
         {"hls",    "concat",     "dash",  "image2", "image2pipe", "png_pipe",
          "tty",    "sdp",        "rtp",   "rtsp",   "lavfi",      "alsa",
          "pulse",  "srt",        "ass",   "webvtt", "imf",        "webm_dash_manifest",
          "sap",    "ffmetadata", "mpsub", "s16le",  "data",       "bin",
          "libgme", "libopenmpt"})
        EXPECT_FALSE(isAudioContainer(name)) << name;
}

TEST(AudioFileReaderFormats, NamesOnlyContainersThatExist)
{
    std::string names = audioContainers();
    for (std::size_t start = 0; start < names.size();) {
        const std::size_t comma = std::min(names.find(',', start), names.size());
        const std::string name = names.substr(start, comma - start);
        EXPECT_NE(av_find_input_format(name.c_str()), nullptr) << name;
        start = comma + 1;
    }
}

TEST(AudioFileReaderFormats, AllowsNoDecoderOfPictures)
{
    const std::string decoders = std::string(",") + audioDecoders() + ',';
    for (const char *name :
         {"aac", "mp3float", "flac", "vorbis", "opus", "alac", "ape", "wavpack", "wmav2"})
        EXPECT_NE(decoders.find(std::string(",") + name + ','), std::string::npos) << name;
    for (const char *name : {"h264", "png", "mjpeg", "gif", "subrip"})
        EXPECT_EQ(decoders.find(std::string(",") + name + ','), std::string::npos) << name;
}

TEST(AudioFileReaderFormats, MeasuresATagAtTheStart)
{
    const std::vector<std::uint8_t> tag = {'I', 'D', '3', 4, 0, 0, 0, 0, 2, 1};
    EXPECT_EQ(id3TagBytes(tag), 10 + 257);
    std::vector<std::uint8_t> withFooter = tag;
    withFooter[5] = 0x10;
    EXPECT_EQ(id3TagBytes(withFooter), 20 + 257);
    std::vector<std::uint8_t> wrongSize = tag;
    wrongSize[7] = 0x80;
    EXPECT_EQ(id3TagBytes(wrongSize), 0);
    EXPECT_EQ(id3TagBytes(std::span(tag).first(9)), 0);
    EXPECT_EQ(id3TagBytes(std::vector<std::uint8_t>(10, 0)), 0);
}
