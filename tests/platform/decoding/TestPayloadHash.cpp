#include "platform/decoding/PayloadHash.h"

#include "platform/decoding/AudioFileReader.h"
#include "platform/decoding/DecodingTools.h"
#include "support/SampleAudio.h"

#include <QFile>
#include <QtEndian>

#include <gtest/gtest.h>

#include <array>
#include <map>
#include <vector>

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

namespace {

constexpr qsizetype hashDigits = 40;

/// The hash as text; empty if there is none.
QByteArray hashOf(const QString &path)
{
    return AudioFileReader().payloadHash(path, {}).value_or(QByteArray());
}

/// Puts the packets of the first audio stream into another container.
QString remuxed(const QString &path, const QString &name, const QStringList &options = {})
{
    const QString result = sampleFolder() + u'/' + name;
    runFfmpeg(QStringList{u"-i"_s, path, u"-map"_s, u"0:a:0"_s, u"-c"_s, u"copy"_s, u"-strict"_s,
                          u"-2"_s} +
              options + QStringList{result});
    return result;
}

/// A format, and the containers that take up its packets.
struct Format {
    const char *name;
    SampleSpec song;
    QStringList containers;
};

void PrintTo(const Format &format, std::ostream *out)
{
    *out << format.name;
}

const std::vector<Format> &formats()
{
    static const std::vector<Format> all = {
        {"mp3", {.extension = u"mp3"_s}, {u"mka"_s, u"mp4"_s, u"mp3"_s}},
        {"mp2", {.extension = u"mp2"_s}, {u"mka"_s, u"mp2"_s}},
        {"aac", {.extension = u"m4a"_s}, {u"mka"_s, u"aac"_s, u"mp4"_s, u"mov"_s}},
        {"alac", {.extension = u"m4a"_s, .codec = u"alac"_s}, {u"mka"_s, u"caf"_s, u"m4a"_s}},
        {"flac", {.extension = u"flac"_s}, {u"mka"_s, u"oga"_s, u"mp4"_s, u"flac"_s}},
        {"vorbis", {.extension = u"ogg"_s, .codec = u"libvorbis"_s}, {u"mka"_s, u"webm"_s}},
        {"opus", {.extension = u"opus"_s}, {u"mka"_s, u"webm"_s, u"mp4"_s, u"ogg"_s}},
        {"wav", {.extension = u"wav"_s}, {u"mka"_s, u"w64"_s, u"mov"_s, u"caf"_s}},
        {"wav_24_bits",
         {.extension = u"wav"_s, .codec = u"pcm_s24le"_s},
         {u"mka"_s, u"w64"_s, u"caf"_s}},
        {"aiff", {.extension = u"aiff"_s}, {u"caf"_s, u"mov"_s, u"mka"_s}},
        {"wavpack", {.extension = u"wv"_s}, {u"mka"_s, u"wv"_s}},
        {"ac3", {.extension = u"ac3"_s}, {u"mka"_s, u"mp4"_s}},
        {"eac3", {.extension = u"eac3"_s}, {u"mka"_s, u"mp4"_s}},
        {"wma", {.extension = u"wma"_s}, {u"mka"_s, u"wma"_s}},
        {"tta", {.extension = u"tta"_s}, {u"mka"_s}},
        {"adpcm", {.extension = u"wav"_s, .codec = u"adpcm_ms"_s}, {u"mka"_s, u"w64"_s}},
    };
    return all;
}

SampleSpec noise(SampleSpec spec)
{
    spec.signal = SampleSpec::Signal::Noise;
    spec.seconds = 3.0;
    return spec;
}

class PayloadHashOf : public testing::TestWithParam<Format> {};

TEST_P(PayloadHashOf, SurvivesAnotherContainerAndTheWayBack)
{
    const QString song = sampleFile(noise(GetParam().song));
    const QByteArray hash = hashOf(song);
    ASSERT_EQ(hash.size(), hashDigits);
    for (const QString &container : GetParam().containers) {
        const QString other =
            remuxed(song, QLatin1StringView(GetParam().name) + u"-other."_s + container);
        EXPECT_EQ(hashOf(other), hash) << "in " << qPrintable(container);
        const QString matroska =
            remuxed(other, QLatin1StringView(GetParam().name) + u'-' + container + u"-again.mka"_s);
        EXPECT_EQ(hashOf(matroska), hash) << "from " << qPrintable(container) << " to mka";
    }
}

TEST_P(PayloadHashOf, SurvivesNewTags)
{
    const QString song = sampleFile(noise(GetParam().song));
    const QString tagged = remuxed(
        song, QLatin1StringView(GetParam().name) + u"-tagged."_s + GetParam().song.extension,
        {u"-metadata"_s, u"title=Another title"_s, u"-metadata"_s,
         u"comment="_s + QString(5000, u'x')});
    EXPECT_EQ(hashOf(tagged), hashOf(song));
}

TEST_P(PayloadHashOf, SurvivesACopyOfAnotherName)
{
    const QString song = sampleFile(noise(GetParam().song));
    const QString copy = sampleFolder() + u"/a copy of "_s + QLatin1StringView(GetParam().name);
    QFile::remove(copy);
    ASSERT_TRUE(QFile::copy(song, copy));
    AudioFileReader reader;
    if (reader.open(copy, SongReader::Depth::Tags) != status::noError)
        GTEST_SKIP() << "this format is recognised by its name";
    EXPECT_EQ(hashOf(copy), hashOf(song));
}

TEST_P(PayloadHashOf, TellsSongsApart)
{
    SampleSpec other = noise(GetParam().song);
    other.amplitude = 0.49;
    EXPECT_NE(hashOf(sampleFile(other)), hashOf(sampleFile(noise(GetParam().song))));
    SampleSpec shorter = noise(GetParam().song);
    shorter.seconds = 2.5;
    EXPECT_NE(hashOf(sampleFile(shorter)), hashOf(sampleFile(noise(GetParam().song))));
}

INSTANTIATE_TEST_SUITE_P(OfEveryFormat, PayloadHashOf, testing::ValuesIn(formats()),
                         [](const auto &given) { return std::string(given.param.name); });

TEST(PayloadHash, SurvivesArtwork)
{
    for (const auto &extension : {u"mp3"_s, u"m4a"_s, u"flac"_s, u"aiff"_s}) {
        const SampleSpec plain{.extension = extension, .tags = {{u"title"_s, u"A"_s}}};
        SampleSpec pictured = plain;
        pictured.artwork = true;
        pictured.tags = {{u"title"_s, u"B"_s}, {u"artist"_s, u"Somebody"_s}};
        EXPECT_EQ(hashOf(sampleFile(pictured)), hashOf(sampleFile(plain))) << qPrintable(extension);
    }
}

QByteArray little(quint32 value)
{
    value = qToLittleEndian(value);
    return {reinterpret_cast<const char *>(&value), sizeof value};
}

TEST(PayloadHash, SurvivesTagsBehindAnMp3)
{
    const QByteArray song = bytesOf(sampleFile({.extension = u"mp3"_s}));
    const QByteArray expected = hashOf(sampleFile({.extension = u"mp3"_s}));
    const QByteArray oldTag = "TAG" + QByteArray(125, 'x');
    const QByteArray item = little(5) + little(0) + QByteArray("Title\0hello", 11);
    const auto ape = [&](quint32 flags) {
        return "APETAGEX" + little(2000) + little(static_cast<quint32>(32 + item.size())) +
               little(1) + little(flags) + QByteArray(8, '\0');
    };
    const QByteArray newTag = ape(0xa0000000U) + item + ape(0x80000000U);
    for (const QByteArray &tag : {oldTag, newTag, newTag + oldTag})
        EXPECT_EQ(hashOf(writeSample(u"tag-behind.mp3"_s, song + tag)), expected);
}

TEST(PayloadHash, IsTheSameWithOrWithoutTheTableOfAnMp3)
{
    const SampleSpec spec{.extension = u"mp3"_s};
    const SampleSpec bare{.extension = u"mp3"_s, .options = {u"-write_xing"_s, u"0"_s}};
    EXPECT_EQ(hashOf(sampleFile(bare)), hashOf(sampleFile(spec)));
}

TEST(PayloadHash, LeavesOutTheTableOfAnMp3WhereverItIs)
{
    // A demuxer hides the table only if it is the first frame.
    SampleSpec bare{.extension = u"mp3"_s,
                    .options = {u"-write_xing"_s, u"0"_s, u"-id3v2_version"_s, u"0"_s}};
    SampleSpec withTable = bare;
    withTable.options[1] = u"1"_s;
    const QByteArray first = bytesOf(sampleFile(bare));
    const QByteArray second = bytesOf(sampleFile(withTable));
    ASSERT_GT(second.size(), first.size());
    EXPECT_EQ(hashOf(writeSample(u"joined-table.mp3"_s, first + second)),
              hashOf(writeSample(u"joined.mp3"_s, first + first)));
}

TEST(PayloadHash, IncludesPacketsThatAnEditListOfMp4LeavesOut)
{
    const QString song = sampleFile(noise({.extension = u"m4a"_s, .codec = u"alac"_s}));
    const QString back = remuxed(remuxed(song, u"there.mka"_s), u"back.m4a"_s);
    EXPECT_EQ(hashOf(back), hashOf(song));
}

TEST(PayloadHash, OfAiffIsThatOfWavWithTheSameSamples)
{
    const QString wav = sampleFile(noise({.extension = u"wav"_s}));
    const QString aiff = sampleFolder() + u"/twin.aiff"_s;
    ASSERT_TRUE(runFfmpeg({u"-i"_s, wav, aiff}));
    EXPECT_EQ(hashOf(aiff), hashOf(wav));
}

TEST(PayloadHash, IsTheSameForAFragmentedMp4AndOneWithItsTableInFront)
{
    const QString song = sampleFile(noise({.extension = u"m4a"_s}));
    EXPECT_EQ(
        hashOf(remuxed(song, u"fragments.m4a"_s, {u"-movflags"_s, u"frag_keyframe+empty_moov"_s})),
        hashOf(song));
    EXPECT_EQ(hashOf(remuxed(song, u"front.m4a"_s, {u"-movflags"_s, u"faststart"_s})),
              hashOf(song));
}

TEST(PayloadHash, DependsOnRateAndChannelsOfPlainSamples)
{
    // The same bytes of silence, described in three ways.
    const SampleSpec stereo{.amplitude = 0.0, .frames = 44100};
    const SampleSpec mono{.amplitude = 0.0, .frames = 88200, .channels = 1};
    const SampleSpec slow{.amplitude = 0.0, .frames = 44100, .rate = 22050};
    EXPECT_NE(hashOf(sampleFile(stereo)), hashOf(sampleFile(mono)));
    EXPECT_NE(hashOf(sampleFile(stereo)), hashOf(sampleFile(slow)));
    EXPECT_NE(hashOf(sampleFile(mono)), hashOf(sampleFile(slow)));
}

TEST(PayloadHash, IsNoneForASongWithoutSound)
{
    const QString song = sampleFile({.extension = u"wav"_s});
    const QByteArray header = bytesOf(song).left(bytesOf(song).indexOf("data") + 4);
    EXPECT_EQ(hashOf(writeSample(u"nothing.wav"_s, header + little(0))), QByteArray());
    EXPECT_EQ(hashOf(writeSample(u"text.mp3"_s, "no song")), QByteArray());
    EXPECT_EQ(hashOf(sampleFolder() + u"/missing.mp3"_s), QByteArray());
}

TEST(PayloadHash, StopsWithoutAResult)
{
    std::stop_source source;
    source.request_stop();
    const QString song = sampleFile({.extension = u"mp3"_s});
    EXPECT_EQ(AudioFileReader().payloadHash(song, source.get_token()), std::nullopt);
}

TEST(PayloadHash, LeavesTheReaderAtItsPlace)
{
    AudioFileReader reader;
    const QString song = sampleFile({.extension = u"flac"_s});
    ASSERT_EQ(reader.open(song), status::noError);
    ASSERT_EQ(reader.setClientDataFormat(canonicalStreamFormat()), status::noError);
    std::vector<float> left(1000);
    std::vector<float> right(1000);
    AudioBufferList list = bufferList(left, right);
    std::uint32_t total = 0;
    std::uint32_t frames = 1000;
    do {
        EXPECT_TRUE(total % 10000 != 0 || reader.payloadHash(song, {}).has_value());
        ASSERT_EQ(reader.read(frames, list), status::noError);
        total += frames;
    } while (frames > 0);
    EXPECT_EQ(total, 44100U);
}

/// Silence and near-silence in every codec at two rates, of three lengths, in one and two channels.
std::map<QString, QStringList> quietOptions()
{
    std::map<QString, QStringList> options;
    const std::vector<std::pair<QString, QStringList>> codecs = {
        {u"mp3"_s, {}},  {u"m4a"_s, {}}, {u"flac"_s, {}}, {u"ogg"_s, {u"-c:a"_s, u"libvorbis"_s}},
        {u"aiff"_s, {}}, {u"wv"_s, {}},  {u"mp2"_s, {}},  {u"mka"_s, {u"-c:a"_s, u"alac"_s}},
        {u"ac3"_s, {}},
    };
    for (const auto &[extension, codec] : codecs)
        for (const auto &rate : {u"44100"_s, u"48000"_s})
            for (const auto &seconds : {u"1"_s, u"1.25"_s, u"2"_s})
                for (const auto &channels : {u"1"_s, u"2"_s})
                    options[u"%1-%2-%3.%4"_s.arg(rate, seconds, channels, extension)] =
                        codec + QStringList{u"-ar"_s, rate, u"-t"_s, seconds, u"-ac"_s, channels};
    return options;
}

/// Five hundred songs: quiet ones from encoders, and plain samples that differ by one bit, in
/// length or in how they are described.
QStringList fiveHundredSongs()
{
    QStringList songs;
    const std::array signalTexts = {u"anullsrc"_s, u"sine=frequency=440,volume=0.01"_s};
    for (const QString &signal : signalTexts) {
        QStringList arguments{u"-f"_s, u"lavfi"_s, u"-i"_s, signal};
        for (const auto &[name, options] : quietOptions()) {
            songs << sampleFolder() + u"/%1-%2"_s.arg(songs.size()).arg(name);
            arguments += options + QStringList{songs.last()};
        }
        runFfmpeg(arguments);
    }
    const QByteArray whole = bytesOf(sampleFile({.amplitude = 0.0}));
    const qsizetype samples = whole.indexOf("data") + 8;
    while (songs.size() < 500) {
        QByteArray song = whole;
        const auto number = static_cast<int>(songs.size());
        if (number % 2 == 0)
            song[samples + 2 * number] = 1; // one sample is not silent
        else
            song.replace(samples - 4, 4, little(static_cast<quint32>(40000 + 4 * number)));
        songs << writeSample(u"quiet%1.wav"_s.arg(number), song);
    }
    return songs;
}

TEST(PayloadHash, NeverTakesOneOf500SongsForAnother)
{
    std::map<QByteArray, QString> seen;
    for (const QString &song : fiveHundredSongs()) {
        const QByteArray hash = hashOf(song);
        ASSERT_EQ(hash.size(), hashDigits) << qPrintable(song);
        const auto [other, isNew] = seen.emplace(hash, song);
        EXPECT_TRUE(isNew) << qPrintable(song) << " is taken for " << qPrintable(other->second);
    }
    EXPECT_EQ(seen.size(), 500U);
}

TEST(AacCore, IsThatBelowBandReplication)
{
    // LC, 22,050 Hz, stereo; and HE-AAC: replication to 44,100 Hz above the same.
    const std::array<std::uint8_t, 2> plain = {0x13, 0x90};
    const std::array<std::uint8_t, 4> replicated = {0x2b, 0x92, 0x08, 0x00};
    const auto core = decoding::aacCoreOfConfig(plain);
    ASSERT_TRUE(core);
    EXPECT_EQ(*core, (decoding::AacCore{.objectType = 2, .rateIndex = 7, .channels = 2}));
    EXPECT_EQ(decoding::aacCoreOfConfig(replicated), core);
    EXPECT_EQ(decoding::aacCoreOfConfig(std::span(plain).first(1)), std::nullopt);
}

TEST(AacCore, OfAnAdtsHeaderIsThatOfTheConfig)
{
    const std::array<std::uint8_t, 9> packet = {0xff, 0xf1, 0x5c, 0x80, 0x01, 0x3f, 0xfc, 0x21, 0};
    decoding::AacCore core;
    EXPECT_EQ(decoding::adtsHeaderBytes(packet, core), 7U);
    EXPECT_EQ(core, (decoding::AacCore{.objectType = 2, .rateIndex = 7, .channels = 2}));
    auto checked = packet;
    checked[1] = 0xf0;
    EXPECT_EQ(decoding::adtsHeaderBytes(checked, core), 9U);
    const std::array<std::uint8_t, 8> raw = {0x21, 0x10, 0x04, 0x60, 0x8c, 0x1c, 0, 0};
    EXPECT_EQ(decoding::adtsHeaderBytes(raw, core), 0U);
}

} // namespace
