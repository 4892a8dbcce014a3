#include "platform/decoding/Formats.h"

#include "platform/decoding/FFmpeg.h"

#include <gtest/gtest.h>

#include "support/SampleAudio.h"

#include <QFile>

#include <map>
#include <string>
#include <vector>

using namespace lyrabox;
using namespace lyrabox::decoding;
using namespace Qt::Literals::StringLiterals;

TEST(Formats, AcceptsContainersByAnyOfTheirNames)
{
    EXPECT_TRUE(isAudioContainer("mp3"));
    EXPECT_TRUE(isAudioContainer("mov,mp4,m4a,3gp,3g2,mj2"));
    EXPECT_TRUE(isAudioContainer("matroska,webm"));
    EXPECT_FALSE(isAudioContainer(""));
    EXPECT_FALSE(isAudioContainer("mp"));
    EXPECT_FALSE(isAudioContainer(","));
}

TEST(Formats, LeavesOutContainersThatReferToOtherFiles)
{
    for (const char *name :
         {"hls",    "concat",     "dash",  "image2", "image2pipe", "png_pipe",
          "tty",    "sdp",        "rtp",   "rtsp",   "lavfi",      "alsa",
          "pulse",  "srt",        "ass",   "webvtt", "imf",        "webm_dash_manifest",
          "sap",    "ffmetadata", "mpsub", "s16le",  "data",       "bin",
          "libgme", "libopenmpt"})
        EXPECT_FALSE(isAudioContainer(name)) << name;
}

TEST(Formats, NamesOnlyContainersThatExist)
{
    std::string names = audioContainers();
    for (std::size_t start = 0; start < names.size();) {
        const std::size_t comma = std::min(names.find(',', start), names.size());
        const std::string name = names.substr(start, comma - start);
        EXPECT_NE(av_find_input_format(name.c_str()), nullptr) << name;
        start = comma + 1;
    }
}

TEST(Formats, AllowsNoDecoderOfPictures)
{
    const std::string decoders = std::string(",") + audioDecoders() + ',';
    for (const char *name :
         {"aac", "mp3float", "flac", "vorbis", "opus", "alac", "ape", "wavpack", "wmav2"})
        EXPECT_NE(decoders.find(std::string(",") + name + ','), std::string::npos) << name;
    for (const char *name : {"h264", "png", "mjpeg", "gif", "subrip"})
        EXPECT_EQ(decoders.find(std::string(",") + name + ','), std::string::npos) << name;
}

TEST(Formats, NamesOnlyDecodersThatExistOnePerCodec)
{
    std::map<AVCodecID, std::string> known;
    const std::string names = audioDecoders();
    for (std::size_t start = 0; start < names.size();) {
        const std::size_t comma = std::min(names.find(',', start), names.size());
        const std::string name = names.substr(start, comma - start);
        start = comma + 1;
        const AVCodec *decoder = avcodec_find_decoder_by_name(name.c_str());
        ASSERT_NE(decoder, nullptr) << name;
        EXPECT_EQ(decoder->type, AVMEDIA_TYPE_AUDIO) << name;
        if (name == "speex") // Stands in if libspeex is missing.
            continue;
        EXPECT_TRUE(known.emplace(decoder->id, name).second) << name;
    }
}

TEST(Formats, DecodesWithTheDecodersOfItsListAndNoOthers)
{
    const std::string listed = std::string(",") + audioDecoders() + ',';
    void *position = nullptr;
    while (const AVCodec *codec = av_codec_iterate(&position)) {
        const AVCodec *chosen = audioDecoder(codec->id);
        if (chosen) {
            EXPECT_EQ(chosen->id, codec->id) << codec->name;
            EXPECT_NE(listed.find(std::string(",") + chosen->name + ','), std::string::npos)
                << chosen->name;
        } else {
            EXPECT_EQ(listed.find(std::string(",") + codec->name + ','), std::string::npos)
                << codec->name;
        }
    }
}

TEST(Formats, DecodesTheSameCodecsWhateverElseFFmpegOffers)
{
    // Newer versions of FFmpeg decode these. The program refuses them until they are on its list.
    for (const char *name : {"wavesynth", "bonk", "qoa", "rka", "osq", "apac"}) {
        const AVCodec *decoder = avcodec_find_decoder_by_name(name);
        EXPECT_EQ(decoder ? audioDecoder(decoder->id) : nullptr, nullptr) << name;
    }
    EXPECT_EQ(audioDecoder(AV_CODEC_ID_H264), nullptr);
    EXPECT_STREQ(audioDecoder(AV_CODEC_ID_SPEEX)->name, "libspeex");
    EXPECT_STREQ(audioDecoder(AV_CODEC_ID_MP3)->name, "mp3float");
}

TEST(Formats, MeasuresATagAtTheStart)
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

TEST(Formats, MeasuresMp3Frames)
{
    const auto bytes = [](std::uint8_t second, std::uint8_t third) {
        return mp3FrameBytes(std::vector<std::uint8_t>{0xff, second, third, 0});
    };
    EXPECT_EQ(bytes(0xfb, 0x90), 417U); // 128 kbit/s at 44,100 Hz.
    EXPECT_EQ(bytes(0xfb, 0x92), 418U); // The same with padding.
    EXPECT_EQ(bytes(0xfb, 0xe4), 960U); // 320 kbit/s at 48,000 Hz.
    EXPECT_EQ(bytes(0xf3, 0x80), 208U); // 64 kbit/s at 22,050 Hz.
    EXPECT_EQ(bytes(0xe3, 0x80), 417U); // 64 kbit/s at 11,025 Hz.
    EXPECT_EQ(bytes(0xfd, 0x90), 0U);   // Layer II.
    EXPECT_EQ(bytes(0xeb, 0x90), 0U);   // Reserved version.
    EXPECT_EQ(bytes(0xfb, 0x00), 0U);   // Free bit rate.
    EXPECT_EQ(bytes(0xfb, 0xf0), 0U);   // Invalid bit rate.
    EXPECT_EQ(bytes(0xfb, 0x9c), 0U);   // Reserved sampling rate.
    EXPECT_EQ(mp3FrameBytes(std::vector<std::uint8_t>{0xff, 0xfb, 0x90}), 0U);
}

TEST(Formats, FindsFramesInARowWhereverTheyStart)
{
    for (const std::uint8_t layer : {0xfb, 0xfd}) { // Layers III and II.
        const std::size_t length = layer == 0xfb ? 417 : 522;
        std::vector<std::uint8_t> bytes(4000, 0xff);
        for (std::size_t frame = 0; frame < 3; ++frame) {
            bytes[333 + frame * length + 1] = layer;
            bytes[333 + frame * length + 2] = 0x90;
        }
        EXPECT_TRUE(hasMpegFramesInARow(bytes));
        bytes[333 + 2 * length + 2] = 0x94; // A different sampling rate.
        EXPECT_FALSE(hasMpegFramesInARow(bytes));
    }
    EXPECT_FALSE(hasMpegFramesInARow({}));
    EXPECT_FALSE(hasMpegFramesInARow(std::vector<std::uint8_t>(1000, 0xff)));
}

TEST(Formats, AgreesWithFFmpegOnWhatASignatureMeans)
{
    for (const auto &extension : {u"mp3"_s, u"m4a"_s, u"flac"_s, u"ogg"_s, u"opus"_s, u"wav"_s,
                                  u"aiff"_s, u"wma"_s, u"mka"_s, u"ac3"_s, u"aac"_s}) {
        test::SampleSpec spec{.extension = extension};
        if (extension == u"mp3"_s)
            spec.options = {u"-id3v2_version"_s, u"0"_s};
        QFile file(test::sampleFile(spec));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        QByteArray bytes = file.read(4096);
        const auto *start = reinterpret_cast<const std::uint8_t *>(bytes.constData());
        const auto *known =
            containerBySignature(std::span(start, static_cast<std::size_t>(bytes.size())));
        AVProbeData data = {};
        data.filename = "";
        data.buf_size = static_cast<int>(bytes.size());
        bytes.append(AVPROBE_PADDING_SIZE, '\0');
        data.buf = reinterpret_cast<unsigned char *>(bytes.data());
        int score = 0;
        const AVInputFormat *probed = av_probe_input_format3(&data, 1, &score);
        const bool isCommon = extension != u"wma"_s && extension != u"mka"_s &&
                              extension != u"ac3"_s && extension != u"aac"_s;
        EXPECT_EQ(known, isCommon ? probed : nullptr) << qPrintable(extension);
    }
}

TEST(Formats, NeedsThreeFramesInARowToRecogniseAnMp3)
{
    std::vector<std::uint8_t> bytes(2000, 0);
    for (const std::size_t offset : {std::size_t{0}, std::size_t{417}, std::size_t{834}}) {
        bytes[offset] = 0xff;
        bytes[offset + 1] = 0xfb;
        bytes[offset + 2] = 0x90;
    }
    EXPECT_STREQ(containerBySignature(bytes)->name, "mp3");
    bytes[834] = 0;
    EXPECT_EQ(containerBySignature(bytes), nullptr);
    EXPECT_EQ(containerBySignature(std::span(bytes).first(800)), nullptr);
    EXPECT_EQ(containerBySignature({}), nullptr);
}
