#include "platform/decoding/AudioFileReader.h"

#include "platform/decoding/DecodingTools.h"
#include "support/SampleAudio.h"

#include <QFile>

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

namespace {

struct Format {
    QString extension;
    QString codec = {};
    std::size_t deviation = 0; ///< Frames that the container's coarse timing may add or remove.
    QStringList options = {};
};

/// Every format that states its length exactly, and those of MP4, whose edit lists count in
/// milliseconds.
std::vector<Format> gaplessFormats()
{
    return {{u"mp3"_s},
            {u"flac"_s},
            {u"ogg"_s},
            {u"opus"_s},
            {u"oga"_s, u"flac"_s},
            {u"wav"_s},
            {u"aiff"_s},
            {u"caf"_s, u"alac"_s, 0, {u"-sample_fmt"_s, u"s16p"_s}},
            {u"m4a"_s, u"alac"_s, 0, {u"-sample_fmt"_s, u"s16p"_s}},
            {u"m4a"_s, u"aac"_s, 48},
            {u"mp4"_s, u"libopus"_s, 48},
            {u"webm"_s, u"libopus"_s},
            {u"mka"_s, u"flac"_s},
            {u"wv"_s},
            {u"tta"_s},
            {u"au"_s}};
}

SampleSpec specOf(const Format &format)
{
    SampleSpec spec{.extension = format.extension, .codec = format.codec};
    spec.options = format.options;
    return spec;
}

/// The amplitude of a frequency in a range of samples.
double level(const std::vector<float> &samples, double frequency)
{
    double sine = 0.0;
    double cosine = 0.0;
    for (std::size_t i = 0; i < samples.size(); ++i) {
        const double angle = 2.0 * std::numbers::pi * frequency * static_cast<double>(i) / 44100.0;
        sine += samples[i] * std::sin(angle);
        cosine += samples[i] * std::cos(angle);
    }
    return 2.0 * std::hypot(sine, cosine) / static_cast<double>(samples.size());
}

} // namespace

TEST(Decoder, LeavesOutEncoderDelayAndPadding)
{
    for (const Format &format : gaplessFormats()) {
        SampleSpec spec = specOf(format);
        spec.frames = 50021;
        const Decoded song = readWholeFile(sampleFile(spec));
        EXPECT_EQ(song.status, status::noError);
        EXPECT_NEAR(static_cast<double>(song.frames()), 50021.0,
                    static_cast<double>(format.deviation))
            << qPrintable(format.extension) << ' ' << qPrintable(format.codec);
        // The sine starts where it did before encoding: there is no delay.
        double worst = 0.0;
        for (std::size_t i = 2000; i < 40000 && i < song.frames(); ++i)
            worst = std::max(worst,
                             std::abs(static_cast<double>(song.left[i]) - sampleValue(spec, 0, i)));
        EXPECT_LT(worst, 0.05) << qPrintable(format.extension) << ' ' << qPrintable(format.codec);
    }
}

TEST(Decoder, LosesNothingWhenTheRateIsConverted)
{
    for (const Format &format : gaplessFormats()) {
        SampleSpec spec = specOf(format);
        spec.frames = 50021;
        spec.rate = 48000;
        const Decoded song = readWholeFile(sampleFile(spec));
        EXPECT_EQ(song.status, status::noError);
        EXPECT_NEAR(static_cast<double>(song.frames()), 50021.0 * 44100 / 48000,
                    1.0 + static_cast<double>(format.deviation))
            << qPrintable(format.extension) << ' ' << qPrintable(format.codec);
    }
}

TEST(Decoder, PlaysEveryFormatAtItsPitch)
{
    const std::vector<Format> others = {
        {u"wma"_s},
        {u"mka"_s},
        {u"mka"_s, u"libmp3lame"_s},
        {u"ac3"_s},
        {u"eac3"_s},
        {u"dts"_s, u"dca"_s, 0, {u"-strict"_s, u"-2"_s}},
        {u"w64"_s},
        {u"aac"_s},
        {u"mp2"_s},
        {u"thd"_s, u"truehd"_s, 0, {u"-strict"_s, u"-2"_s, u"-f"_s, u"truehd"_s}},
        {u"voc"_s},
        {u"wav"_s, u"adpcm_ms"_s},
        {u"wav"_s, u"libmp3lame"_s},
        {u"spx"_s, u"libspeex"_s, 0, {u"-ar"_s, u"16000"_s, u"-ac"_s, u"1"_s}},
        {u"rm"_s, u"ac3"_s}};
    std::vector<Format> formats = gaplessFormats();
    formats.insert(formats.end(), others.begin(), others.end());
    for (const Format &format : formats) {
        const Decoded song = readWholeFile(sampleFile(specOf(format)));
        EXPECT_EQ(song.status, status::noError);
        EXPECT_NEAR(static_cast<double>(song.frames()), 44100.0, 4500.0)
            << qPrintable(format.extension) << ' ' << qPrintable(format.codec);
        EXPECT_GT(level(song.left, 440.0), 0.3)
            << qPrintable(format.extension) << ' ' << qPrintable(format.codec);
        EXPECT_LT(level(song.left, 466.0), 0.1)
            << qPrintable(format.extension) << ' ' << qPrintable(format.codec);
    }
}

TEST(Decoder, EndsWhereTheTagsOfApplesEncodersSay)
{
    SampleSpec spec{.extension = u"m4a"_s, .frames = 50021};
    spec.options = {u"-movflags"_s, u"use_metadata_tags"_s, u"-metadata"_s,
                    u"iTunSMPB= 00000000 00000400 00000000 000000000000C300"_s};
    EXPECT_EQ(readWholeFile(sampleFile(spec)).frames(), 0xC300U);
    // A length that is impossible for this song is ignored.
    spec.options.last() = u"iTunSMPB= 00000000 00000400 00000000 0000000000000100"_s;
    EXPECT_NEAR(static_cast<double>(readWholeFile(sampleFile(spec)).frames()), 50021.0, 48.0);
}

TEST(Decoder, PlaysTheRestAfterADamagedPart)
{
    for (const Format &format : {Format{u"mp3"_s},
                                 {u"flac"_s},
                                 {u"ogg"_s},
                                 {u"opus"_s},
                                 {u"m4a"_s},
                                 {u"wv"_s},
                                 {u"aac"_s},
                                 {u"wav"_s},
                                 {u"wma"_s},
                                 {u"mka"_s, {}, 0, {u"-cluster_time_limit"_s, u"500"_s}}}) {
        SampleSpec spec = specOf(format);
        spec.seconds = 4.0;
        QByteArray bytes = bytesOf(sampleFile(spec));
        const qsizetype middle = bytes.size() / 2;
        for (qsizetype i = middle; i < middle + 300; ++i)
            bytes[i] = static_cast<char>(i * 37 ^ i >> 3);
        const Decoded song = readWholeFile(writeSample(u"damaged."_s + format.extension, bytes));
        EXPECT_EQ(song.status, status::noError) << qPrintable(format.extension);
        EXPECT_GT(song.frames(), 100000U) << qPrintable(format.extension);
        const std::vector<float> end(song.left.end() - 20000, song.left.end() - 4000);
        EXPECT_GT(level(end, 440.0), 0.4) << qPrintable(format.extension);
    }
}

TEST(Decoder, PlaysTheIntactPartOfATruncatedFile)
{
    for (const Format &format : {Format{u"mp3"_s},
                                 {u"flac"_s},
                                 {u"ogg"_s},
                                 {u"opus"_s},
                                 {u"wv"_s},
                                 {u"aac"_s},
                                 {u"wav"_s},
                                 {u"wma"_s},
                                 {u"mka"_s},
                                 {u"aiff"_s},
                                 {u"m4a"_s, {}, 0, {u"-movflags"_s, u"faststart"_s}}}) {
        SampleSpec spec = specOf(format);
        spec.signal = SampleSpec::Signal::Noise;
        spec.seconds = 8.0;
        const QByteArray bytes = bytesOf(sampleFile(spec));
        for (const int tenth : {2, 5, 8}) {
            const QString path = writeSample(u"truncated."_s + format.extension,
                                             bytes.left(bytes.size() * tenth / 10));
            const Decoded song = readWholeFile(path);
            EXPECT_EQ(song.status, status::noError) << qPrintable(format.extension) << tenth;
            const double expected = 8.0 * 44100.0 * tenth / 10;
            EXPECT_NEAR(static_cast<double>(song.frames()), expected, 50000.0)
                << qPrintable(format.extension) << tenth;
        }
    }
}

TEST(Decoder, PlaysAcrossMegabytesOfJunk)
{
    const QByteArray bytes = bytesOf(sampleFile({.extension = u"mp3"_s, .seconds = 4.0}));
    const QByteArray half = bytes.left(bytes.size() / 2);
    const QString path =
        writeSample(u"junk.mp3"_s, half + QByteArray(8 << 20, '\0') + bytes.mid(half.size()));
    const Decoded song = readWholeFile(path);
    EXPECT_EQ(song.status, status::noError);
    EXPECT_GT(song.frames(), 4U * 44100 - 6000);
}

TEST(Decoder, GivesUpInEndlessJunk)
{
    const QByteArray bytes = bytesOf(sampleFile({.extension = u"mp3"_s, .seconds = 4.0}));
    const QString path = writeSample(u"endless.mp3"_s, bytes);
    QFile file(path);
    // The junk is a hole in the file and takes no space on the disk.
    ASSERT_TRUE(file.resize(bytes.size() + (qint64{64} << 30)));
    const Decoded song = readWholeFile(path);
    EXPECT_EQ(song.status, status::noError);
    EXPECT_GT(song.frames(), 3U * 44100);
    EXPECT_LT(song.frames(), 5U * 44100);
}

TEST(Decoder, FollowsAChangeOfRateAndChannelsWithinAFile)
{
    SampleSpec first{.extension = u"mp3"_s,
                     .seconds = 2.0,
                     .options = {u"-write_xing"_s, u"0"_s, u"-id3v2_version"_s, u"0"_s}};
    SampleSpec second = first;
    second.rate = 48000;
    second.channels = 1;
    const QString path =
        writeSample(u"changing.mp3"_s, bytesOf(sampleFile(first)) + bytesOf(sampleFile(second)));
    const Decoded song = readWholeFile(path);
    EXPECT_EQ(song.status, status::noError);
    EXPECT_NEAR(static_cast<double>(song.frames()), 4.0 * 44100, 8000.0);
    const std::vector<float> begin(song.left.begin() + 4000, song.left.begin() + 80000);
    const std::vector<float> end(song.left.end() - 80000, song.left.end() - 4000);
    EXPECT_GT(level(begin, 440.0), 0.4);
    EXPECT_GT(level(end, 440.0), 0.4);
    EXPECT_EQ(song.left.back(), song.right.back());
}

TEST(Decoder, ReportsAFileOfWhichNothingCanBeDecoded)
{
    QByteArray bytes = bytesOf(sampleFile({.extension = u"flac"_s, .seconds = 2.0}));
    const qsizetype audio = bytes.size() - bytes.size() / 10 * 8;
    for (qsizetype i = audio / 2; i < bytes.size(); ++i)
        bytes[i] = '\x55';
    AudioFileReader reader;
    const QString path = writeSample(u"hopeless.flac"_s, bytes);
    const Decoded song = readWholeFile(path);
    EXPECT_TRUE(song.frames() > 0 || song.status == status::invalidFile);
}
