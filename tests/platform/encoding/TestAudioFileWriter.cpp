#include "platform/decoding/DecodingTools.h"
#include "platform/encoding/AudioFileWriter.h"
#include "platform/encoding/Encoders.h"
#include "platform/encoding/EncodingTools.h"
#include "support/SampleAudio.h"

#include <QProcess>

#include <gtest/gtest.h>

#include <cstring>
#include <limits>
#include <tuple>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox {
namespace {

using namespace test;

/// What another reader decodes: the number of frames at the file's own rate.
long long framesDecodedByFfmpeg(const QString &path)
{
    QProcess process;
    process.start(u"ffmpeg"_s, {u"-v"_s, u"error"_s, u"-nostdin"_s, u"-i"_s, path, u"-f"_s,
                                u"s16le"_s, u"-ac"_s, u"2"_s, u"-"_s});
    EXPECT_TRUE(process.waitForFinished(-1));
    EXPECT_EQ(process.readAllStandardError(), QByteArray());
    return process.readAllStandardOutput().size() / 4;
}

/// What another reader says of the file: the number of frames at the file's own rate.
long long lengthByFfprobe(const QString &path)
{
    QProcess process;
    process.start(u"ffprobe"_s, {u"-v"_s, u"error"_s, u"-of"_s, u"csv=p=0"_s, u"-show_entries"_s,
                                 u"stream=duration,sample_rate"_s, path});
    EXPECT_TRUE(process.waitForFinished(-1));
    const QList<QByteArray> fields = process.readAllStandardOutput().trimmed().split(',');
    return fields.size() == 2 ? std::llround(fields[0].toDouble() * fields[1].toDouble()) : -1;
}

/// The level of the difference in dB of the sound's own.
double errorLevel(const std::vector<float> &heard, const std::vector<float> &sound)
{
    double error = 0.0;
    double whole = 0.0;
    for (std::size_t i = 0; i < sound.size(); ++i) {
        error += std::pow(double(heard[i]) - double(sound[i]), 2.0);
        whole += std::pow(double(sound[i]), 2.0);
    }
    return 10.0 * std::log10(error / whole + 1e-30);
}

class EveryFormat : public testing::TestWithParam<SongFormat> {
protected:
    QString path(const QString &name = u"song"_s) const
    {
        return m_folder.filePath(name + u'.' + QLatin1String(suffixOf(GetParam())));
    }
    QTemporaryDir m_folder;
};

class EveryLength : public testing::TestWithParam<std::tuple<SongFormat, std::size_t>> {};

} // namespace

TEST_P(EveryFormat, IsWrittenHere)
{
    EXPECT_TRUE(encoding::isWritable(GetParam()));
}

TEST_P(EveryFormat, IsNotOfferedWithoutItsEncoderOrItsContainer)
{
    encoding::Lookup noEncoder;
    noEncoder.encoder = [](const char *) -> const AVCodec * { return nullptr; };
    EXPECT_FALSE(encoding::isWritable(GetParam(), noEncoder));
    encoding::Lookup noContainer;
    noContainer.container = [](const char *) -> const AVOutputFormat * { return nullptr; };
    EXPECT_FALSE(encoding::isWritable(GetParam(), noContainer));
}

TEST_P(EveryFormat, SoundsLikeTheSongFrameByFrame)
{
    const Sound sound = madeSound(100'000);
    ASSERT_EQ(writeFile(path(), GetParam(), sound), 0);
    const Decoded heard = readWholeFile(path());
    ASSERT_EQ(heard.status, 0);
    ASSERT_EQ(heard.frames(), 100'000U);
    // A shift by one frame alone would raise the error to -28 dB.
    const double most = GetParam() >= SongFormat::Opus    ? -31.0
                        : GetParam() == SongFormat::Wav16 ? -80.0
                                                          : -110.0;
    EXPECT_LT(errorLevel(heard.left, sound.left), most);
    EXPECT_LT(errorLevel(heard.right, sound.right), most);
}

TEST_P(EveryFormat, CarriesTheTags)
{
    const SongDetails details{.title = u"Ünter / dem \"Ton\" 音"_s,
                              .artist = u"The Demo Band"_s,
                              .album = QString(5000, u'x')};
    ASSERT_EQ(writeFile(path(), GetParam(), madeSound(3000), details), 0);
    AudioFileReader reader;
    ASSERT_EQ(reader.open(path(), SongReader::Depth::Tags), 0);
    EXPECT_EQ(reader.infoDictionary().value(u"title"_s), details.title);
    EXPECT_EQ(reader.infoDictionary().value(u"artist"_s), details.artist);
    EXPECT_EQ(reader.infoDictionary().value(u"album"_s).left(1000), QString(1000, u'x'));
}

TEST_P(EveryFormat, GivesTheSameFileAgain)
{
    const Sound sound = madeSound(20'000);
    ASSERT_EQ(writeFile(path(), GetParam(), sound), 0);
    ASSERT_EQ(writeFile(path(u"again"_s), GetParam(), sound), 0);
    QByteArray first = bytesOf(path());
    QByteArray second = bytesOf(path(u"again"_s));
    if (GetParam() == SongFormat::Opus) { // each Ogg stream has a random number, and so other sums
        EXPECT_EQ(first.size(), second.size());
        return;
    }
    EXPECT_EQ(first, second);
}

INSTANTIATE_TEST_SUITE_P(Formats, EveryFormat, testing::ValuesIn(allSongFormats));

TEST_P(EveryLength, IsExactForOurReaderAndForAnother)
{
    const auto [format, frames] = GetParam();
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"song."_s + QLatin1String(suffixOf(format)));
    ASSERT_EQ(writeFile(path, format, madeSound(frames)), 0);
    ReadOptions atItsRate;
    atItsRate.format.mSampleRate = format == SongFormat::Opus ? 48000.0 : 44100.0;
    const long long length = std::llround(double(frames) * atItsRate.format.mSampleRate / 44100.0);
    const Decoded heard = readWholeFile(path, atItsRate);
    EXPECT_EQ(heard.status, 0);
    EXPECT_EQ(heard.frames(), length);
    // ffprobe counts the silence that Opus and MP3 add. ffmpeg plays the rest of AAC's last block.
    EXPECT_EQ(format == SongFormat::M4a ? lengthByFfprobe(path) : framesDecodedByFfmpeg(path),
              length);
}

INSTANTIATE_TEST_SUITE_P(Formats, EveryLength,
                         testing::Combine(testing::ValuesIn(allSongFormats),
                                          testing::Values<std::size_t>(1, 2, 100, 1023, 1152, 4608,
                                                                       4609, 44'100, 123'457)));

TEST(AudioFileWriter, KeepsEveryFloatSampleBitForBit)
{
    Sound sound = madeSound(10'000);
    sound.left[5] = -0.0F;
    sound.left[6] = 7.5F;
    sound.left[7] = std::numeric_limits<float>::denorm_min();
    sound.left[8] = std::nextafter(0.1F, 1.0F);
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"song.wav"_s);
    ASSERT_EQ(writeFile(path, SongFormat::WavFloat, sound), 0);
    const Decoded heard = readWholeFile(path);
    ASSERT_EQ(heard.frames(), sound.left.size());
    EXPECT_EQ(std::memcmp(heard.left.data(), sound.left.data(), 4 * sound.left.size()), 0);
    EXPECT_EQ(std::memcmp(heard.right.data(), sound.right.data(), 4 * sound.right.size()), 0);
}

TEST(AudioFileWriter, KeepsA16BitSongInEveryLosslessFormat)
{
    Sound sound;
    for (int value = -32768; value <= 32767; value += 3) {
        sound.left.push_back(static_cast<float>(value) / 32768.0F);
        sound.right.push_back(static_cast<float>(-value - 1) / 32768.0F);
    }
    for (const SongFormat format : {SongFormat::Flac, SongFormat::Wav16, SongFormat::Wav24}) {
        const QTemporaryDir folder;
        const QString path = folder.filePath(u"song."_s + QLatin1String(suffixOf(format)));
        ASSERT_EQ(writeFile(path, format, sound), 0);
        const Decoded heard = readWholeFile(path);
        EXPECT_EQ(heard.left, sound.left) << suffixOf(format);
        EXPECT_EQ(heard.right, sound.right) << suffixOf(format);
    }
}

TEST(AudioFileWriter, AWavFileOfMoreThan4GigabytesHasTheLargeHeader)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"song.wav"_s);
    constexpr std::uint64_t enough = 4'294'967'296U / 8U;
    ASSERT_EQ(writeFile(path, SongFormat::WavFloat, madeSound(5000), {.frames = enough}), 0);
    EXPECT_EQ(bytesOf(path).left(4), QByteArray("RF64"));
    EXPECT_EQ(readWholeFile(path).frames(), 5000U);
    ASSERT_EQ(writeFile(path, SongFormat::Wav16, madeSound(5000), {.frames = enough}), 0);
    EXPECT_EQ(bytesOf(path).left(4), QByteArray("RIFF"));
}

} // namespace lyrabox
