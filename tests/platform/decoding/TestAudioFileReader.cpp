#include "platform/decoding/AudioFileReader.h"

#include "platform/decoding/DecodingTools.h"
#include "support/SampleAudio.h"

#include <QFile>

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <thread>

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

namespace {

/// How many samples of `decoded` differ from the source by more than `tolerance`. `skip` frames at
/// each end are not compared.
std::size_t differences(const std::vector<float> &decoded, const SampleSpec &spec, double tolerance,
                        std::size_t skip = 0)
{
    std::size_t count = 0;
    for (std::size_t i = skip; i + skip < decoded.size(); ++i)
        count += std::abs(decoded[i] - sampleValue(spec, 0, i)) > tolerance ? 1 : 0;
    return count;
}

} // namespace

TEST(AudioFileReader, DeliversTheSamplesOfALosslessFileBitForBit)
{
    for (const auto &[extension, codec] : {std::pair{u"wav"_s, QString()},
                                           {u"flac"_s, QString()},
                                           {u"m4a"_s, u"alac"_s},
                                           {u"aiff"_s, QString()},
                                           {u"wv"_s, QString()},
                                           {u"tta"_s, QString()},
                                           {u"caf"_s, QString()},
                                           {u"au"_s, QString()}}) {
        SampleSpec spec{.extension = extension, .codec = codec, .signal = SampleSpec::Signal::Ramp};
        spec.frames = 70000;
        spec.options = QStringList{
            u"-sample_fmt"_s, codec == u"alac"_s || extension == u"wv"_s ? u"s16p"_s : u"s16"_s};
        const Decoded song = readWholeFile(sampleFile(spec));
        ASSERT_EQ(song.status, status::noError) << qPrintable(extension);
        ASSERT_EQ(song.frames(), 70000U) << qPrintable(extension);
        EXPECT_EQ(differences(song.left, spec, 0.0), 0U) << qPrintable(extension);
        EXPECT_EQ(song.right, song.left);
    }
}

TEST(AudioFileReader, ReadsEverySampleTypeAtItsTrueLevel)
{
    for (const auto &codec : {u"pcm_u8"_s, u"pcm_s16le"_s, u"pcm_s24le"_s, u"pcm_s32le"_s,
                              u"pcm_f32le"_s, u"pcm_f64le"_s, u"pcm_mulaw"_s, u"pcm_alaw"_s}) {
        const SampleSpec spec{.codec = codec};
        const Decoded song = readWholeFile(sampleFile(spec));
        ASSERT_EQ(song.frames(), 44100U) << qPrintable(codec);
        EXPECT_EQ(differences(song.left, spec, 0.03), 0U) << qPrintable(codec);
    }
}

TEST(AudioFileReader, PlaysMonoOnBothSidesAtFullLevel)
{
    SampleSpec spec;
    spec.channels = 1;
    const Decoded song = readWholeFile(sampleFile(spec));
    ASSERT_EQ(song.frames(), 44100U);
    EXPECT_EQ(differences(song.left, spec, 1e-4), 0U);
    EXPECT_EQ(song.left, song.right);
}

TEST(AudioFileReader, MixesManyChannelsWithoutClipping)
{
    for (const int channels : {3, 4, 5, 6, 7, 8, 9, 24, 64}) {
        SampleSpec spec{.codec = u"pcm_f32le"_s, .amplitude = 1.0, .seconds = 0.1};
        spec.channels = channels;
        const Decoded song = readWholeFile(sampleFile(spec));
        ASSERT_EQ(song.frames(), 4410U) << channels;
        EXPECT_LE(peak(song.left), 1.001F) << channels;
        EXPECT_GE(peak(song.left), 0.3F) << channels;
        EXPECT_LE(peak(song.right), 1.001F) << channels;
        EXPECT_GE(peak(song.right), 0.3F) << channels;
    }
}

TEST(AudioFileReader, DeliversOneChannelWhenAskedTo)
{
    const SampleSpec spec;
    auto format = canonicalStreamFormat();
    format.mChannelsPerFrame = 1;
    const Decoded song = readWholeFile(sampleFile(spec), {.format = format});
    ASSERT_EQ(song.frames(), 44100U);
    EXPECT_EQ(differences(song.left, spec, 1e-4), 0U);
}

TEST(AudioFileReader, ConvertsTheSampleRateKeepingPitchAndPhase)
{
    for (const int rate : {8000, 22050, 48000, 96000, 192000}) {
        SampleSpec spec{.codec = u"pcm_f32le"_s};
        spec.rate = rate;
        const Decoded song = readWholeFile(sampleFile(spec));
        ASSERT_NEAR(static_cast<double>(song.frames()), 44100.0, 1.0) << rate;
        SampleSpec expected;
        expected.frequency = spec.frequency;
        EXPECT_EQ(differences(song.left, expected, 2e-3, 200), 0U) << rate;
    }
}

TEST(AudioFileReader, FillsEveryReadUntilTheEnd)
{
    for (const std::uint32_t chunk : {1U, 7U, 1000U, 8192U, 100000U}) {
        const Decoded song =
            readWholeFile(sampleFile({.extension = u"mp3"_s, .frames = 20000}), {.chunk = chunk});
        ASSERT_EQ(song.frames(), 20000U) << chunk;
        for (std::size_t i = 0; i + 2 < song.reads.size(); ++i)
            ASSERT_EQ(song.reads[i], chunk) << i;
    }
}

TEST(AudioFileReader, DeliversTheSameSamplesWhateverTheSizeOfTheReads)
{
    SampleSpec spec{.extension = u"ogg"_s};
    spec.rate = 48000;
    const QString path = sampleFile(spec);
    const Decoded whole = readWholeFile(path, {.chunk = 100000});
    EXPECT_EQ(readWholeFile(path, {.chunk = 333}).left, whole.left);
    EXPECT_EQ(readWholeFile(path, {.chunk = 8192}).left, whole.left);
}

TEST(AudioFileReader, StaysAtTheEnd)
{
    AudioFileReader reader;
    ASSERT_EQ(reader.open(sampleFile({.frames = 100})), status::noError);
    std::vector<float> left(200);
    std::vector<float> right(200);
    AudioBufferList list = bufferList(left, right);
    std::uint32_t frames = 200;
    EXPECT_EQ(reader.read(frames, list), status::noError);
    EXPECT_EQ(frames, 100U);
    EXPECT_EQ(list.mBuffers[0].mDataByteSize, 400U);
    EXPECT_EQ(list.mBuffers[1].mDataByteSize, 400U);
    for (int again = 0; again < 3; ++again) {
        frames = 200;
        EXPECT_EQ(reader.read(frames, list), status::noError);
        EXPECT_EQ(frames, 0U);
        EXPECT_EQ(list.mBuffers[0].mDataByteSize, 0U);
    }
}

TEST(AudioFileReader, ReportsTheFilesOwnFormat)
{
    AudioFileReader reader;
    SampleSpec spec{.extension = u"flac"_s, .options = {u"-sample_fmt"_s, u"s16"_s}};
    spec.rate = 48000;
    spec.channels = 1;
    ASSERT_EQ(reader.open(sampleFile(spec)), status::noError);
    AudioStreamBasicDescription format;
    EXPECT_EQ(reader.fileDataFormat(format), status::noError);
    EXPECT_EQ(format.mSampleRate, 48000.0);
    EXPECT_EQ(format.mChannelsPerFrame, 1U);
    EXPECT_EQ(format.mBitsPerChannel, 16U);
}

TEST(AudioFileReader, EstimatesTheLengthInClientFrames)
{
    AudioFileReader reader;
    SampleSpec spec{.extension = u"flac"_s, .seconds = 2.0};
    spec.rate = 48000;
    ASSERT_EQ(reader.open(sampleFile(spec)), status::noError);
    EXPECT_EQ(reader.estimatedFrames(), 88200U);
    auto format = canonicalStreamFormat();
    format.mSampleRate = 96000.0;
    ASSERT_EQ(reader.setClientDataFormat(format), status::noError);
    EXPECT_EQ(reader.estimatedFrames(), 192000U);
}

TEST(AudioFileReader, RefusesClientFormatsThatItDoesNotDeliver)
{
    AudioFileReader reader;
    ASSERT_EQ(reader.open(sampleFile({})), status::noError);
    const auto refused = [&](auto change) {
        auto format = canonicalStreamFormat();
        change(format);
        return reader.setClientDataFormat(format) == status::unsupportedDataFormat;
    };
    EXPECT_TRUE(refused([](auto &format) { format.mChannelsPerFrame = 0; }));
    EXPECT_TRUE(refused([](auto &format) { format.mChannelsPerFrame = 3; }));
    EXPECT_TRUE(refused([](auto &format) { format.mSampleRate = 0.0; }));
    EXPECT_TRUE(refused([](auto &format) { format.mSampleRate = std::nan(""); }));
    EXPECT_TRUE(refused([](auto &format) { format.mFormatID = 0; }));
    EXPECT_TRUE(refused([](auto &format) { format.mBitsPerChannel = 16; }));
    EXPECT_TRUE(refused([](auto &format) { format.mFormatFlags = 0x9; }));
}

TEST(AudioFileReader, DeliversNothingWithoutAFile)
{
    AudioFileReader reader;
    std::vector<float> left(10);
    std::vector<float> right(10);
    AudioBufferList list = bufferList(left, right);
    std::uint32_t frames = 10;
    EXPECT_NE(reader.read(frames, list), status::noError);
    EXPECT_EQ(frames, 0U);
    AudioStreamBasicDescription format;
    EXPECT_NE(reader.fileDataFormat(format), status::noError);
    EXPECT_NE(reader.setClientDataFormat(canonicalStreamFormat()), status::noError);
    EXPECT_EQ(reader.estimatedFrames(), std::nullopt);
    EXPECT_TRUE(reader.albumArtwork().isEmpty());
    EXPECT_TRUE(reader.infoDictionary().isEmpty());
}

TEST(AudioFileReader, DoesNotReadIntoBuffersThatAreMissing)
{
    AudioFileReader reader;
    ASSERT_EQ(reader.open(sampleFile({})), status::noError);
    AudioBufferList list;
    std::uint32_t frames = 10;
    EXPECT_NE(reader.read(frames, list), status::noError);
    EXPECT_EQ(frames, 0U);
    list.mNumberBuffers = 2;
    frames = 10;
    EXPECT_NE(reader.read(frames, list), status::noError);
    EXPECT_EQ(frames, 0U);
}

TEST(AudioFileReader, CallsTheWaitHookWhileItOpensAndWhileItReads)
{
    const QString path = sampleFile({.extension = u"flac"_s, .seconds = 20.0});
    AudioFileReader reader;
    int waits = 0;
    reader.setWaitHook([&, thread = std::this_thread::get_id()] {
        EXPECT_EQ(std::this_thread::get_id(), thread);
        ++waits;
    });
    ASSERT_EQ(reader.open(path), status::noError);
    const int whileOpening = waits;
    EXPECT_GT(whileOpening, 0);
    EXPECT_EQ(reader.setClientDataFormat(canonicalStreamFormat()), status::noError);
    EXPECT_GT(readAll(reader).left.size(), 0U);
    EXPECT_GT(waits, whileOpening);
}

TEST(AudioFileReader, ReadsNoMoreOfTheFileAfterAStopRequest)
{
    for (const QString &extension : {u"flac"_s, u"mp3"_s, u"wav"_s, u"m4a"_s}) {
        const QString path = sampleFile({.extension = extension, .seconds = 60.0});
        AudioFileReader reader;
        std::stop_source stop;
        int waits = 0;
        reader.setStopToken(stop.get_token());
        reader.setWaitHook([&] { ++waits; });
        ASSERT_EQ(reader.open(path), status::noError);
        EXPECT_EQ(reader.setClientDataFormat(canonicalStreamFormat()), status::noError);
        stop.request_stop();
        const int whileOpening = waits;
        // What was read while opening may still be decoded.
        EXPECT_LT(readAll(reader).frames(), 44100U * 40) << qPrintable(extension);
        EXPECT_EQ(waits, whileOpening) << qPrintable(extension);
    }
}

TEST(AudioFileReader, DoesNotOpenAFileAfterAStopRequest)
{
    std::stop_source stop;
    AudioFileReader reader;
    reader.setStopToken(stop.get_token());
    stop.request_stop();
    EXPECT_NE(reader.open(sampleFile({.extension = u"flac"_s, .seconds = 5.0})), status::noError);
}

TEST(AudioFileReader, OpensOneFileAfterAnother)
{
    AudioFileReader reader;
    ASSERT_EQ(reader.open(sampleFile({.extension = u"mp3"_s, .frames = 3000})), status::noError);
    ASSERT_EQ(reader.open(sampleFile({.extension = u"flac"_s, .frames = 4000})), status::noError);
    EXPECT_EQ(reader.estimatedFrames(), 4000U);
    EXPECT_EQ(reader.open(u"/nowhere/song.mp3"_s), status::fileNotFound);
    EXPECT_EQ(reader.estimatedFrames(), std::nullopt);
}

TEST(AudioFileReader, KeepsReadingAfterTheFileIsRemoved)
{
    const QString path = sampleFolder() + u"/vanishing.flac"_s;
    ASSERT_TRUE(makeSampleAt(path, {.extension = u"flac"_s, .seconds = 5.0}));
    AudioFileReader reader;
    ASSERT_EQ(reader.open(path), status::noError);
    ASSERT_TRUE(QFile::remove(path));
    EXPECT_EQ(readAll(reader).frames(), 220500U);
}
