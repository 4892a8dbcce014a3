#include "platform/decoding/Tags.h"

#include "platform/decoding/AudioFileReader.h"
#include "support/SampleAudio.h"

#include <QtEndian>

#include <gtest/gtest.h>

using namespace lyrabox;
using namespace lyrabox::decoding;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

namespace {

const QString durationKey = u"approximate duration in seconds"_s;

QMap<QString, QString> infoOf(const QString &path)
{
    AudioFileReader reader;
    EXPECT_EQ(reader.open(path, AudioFileReader::Depth::Tags), status::noError) << qPrintable(path);
    return reader.infoDictionary();
}

QByteArray artworkOf(const QString &path)
{
    AudioFileReader reader;
    EXPECT_EQ(reader.open(path), status::noError) << qPrintable(path);
    return reader.albumArtwork();
}

/// An ID3v2.3 frame: a header of ten bytes and `content`.
QByteArray id3Frame(const char *name, const QByteArray &content)
{
    QByteArray size(4, '\0');
    qToBigEndian(static_cast<quint32>(content.size()), size.data());
    return QByteArray(name) + size + QByteArray(2, '\0') + content;
}

QByteArray id3Tag(const QByteArray &frames)
{
    QByteArray tag("ID3\3\0\0", 6);
    for (const int shift : {21, 14, 7, 0})
        tag.append(static_cast<char>(frames.size() >> shift & 0x7f));
    return tag + frames;
}

QByteArray untaggedMp3()
{
    return bytesOf(sampleFile({.extension = u"mp3"_s, .options = {u"-id3v2_version"_s, u"0"_s}}));
}

} // namespace

TEST(Tags, ReadsTitleArtistAndAlbumOfEveryContainer)
{
    const QMap<QString, QString> tags = {{u"title"_s, u"Öde an die Freude"_s},
                                         {u"artist"_s, u"Zoë & the “Räuber”"_s},
                                         {u"album"_s, u"日本 \u05e9\u05dc\u05d5\u05dd"_s}};
    for (const auto &extension : {u"mp3"_s, u"m4a"_s, u"flac"_s, u"ogg"_s, u"opus"_s, u"wav"_s,
                                  u"aiff"_s, u"wma"_s, u"wv"_s, u"tta"_s, u"mka"_s}) {
        SampleSpec spec{.extension = extension, .seconds = 2.0};
        spec.tags = tags;
        QMap<QString, QString> info = infoOf(sampleFile(spec));
        EXPECT_NEAR(info.take(durationKey).toDouble(), 2.0, 0.06) << qPrintable(extension);
        EXPECT_EQ(info, tags) << qPrintable(extension);
    }
}

TEST(Tags, ReportsTheLengthOfASongWithoutTags)
{
    for (const auto &extension :
         {u"mp3"_s, u"m4a"_s, u"flac"_s, u"ogg"_s, u"opus"_s, u"wav"_s, u"aiff"_s, u"wma"_s,
          u"aac"_s, u"ac3"_s, u"wv"_s, u"mka"_s, u"caf"_s, u"au"_s}) {
        const auto info = infoOf(sampleFile({.extension = extension, .seconds = 3.0}));
        EXPECT_EQ(info.keys(), QStringList{durationKey}) << qPrintable(extension);
        EXPECT_NEAR(info[durationKey].toDouble(), 3.0, 0.15) << qPrintable(extension);
    }
}

TEST(Tags, WritesTheLengthAsDecimalText)
{
    EXPECT_EQ(infoOf(sampleFile({.seconds = 1.25}))[durationKey], u"1.250"_s);
}

TEST(Tags, EstimatesTheLengthOfAnMp3WithoutItsTableOfContents)
{
    const auto info =
        infoOf(sampleFile({.extension = u"mp3"_s,
                           .seconds = 10.0,
                           .options = {u"-write_xing"_s, u"0"_s, u"-b:a"_s, u"128k"_s}}));
    EXPECT_NEAR(info[durationKey].toDouble(), 10.0, 0.2);
}

TEST(Tags, ReadsTheSameAtBothDepths)
{
    const QString path =
        sampleFile({.extension = u"mp3"_s, .tags = {{u"title"_s, u"One"_s}}, .artwork = true});
    AudioFileReader tags;
    AudioFileReader samples;
    ASSERT_EQ(tags.open(path, AudioFileReader::Depth::Tags), status::noError);
    ASSERT_EQ(samples.open(path), status::noError);
    EXPECT_EQ(tags.infoDictionary(), samples.infoDictionary());
    EXPECT_EQ(tags.albumArtwork(), samples.albumArtwork());
    std::uint32_t frames = 10;
    AudioBufferList list;
    EXPECT_NE(tags.read(frames, list), status::noError);
}

TEST(Tags, LeavesOutEmptyTexts)
{
    const QString path = writeSample(
        u"blank.mp3"_s, id3Tag(id3Frame("TIT2", QByteArray("\3   \0", 5))) + untaggedMp3());
    EXPECT_FALSE(infoOf(path).contains(u"title"_s));
}

TEST(Tags, ReplacesInvalidBytes)
{
    EXPECT_EQ(tagText("a\xff\xfe"
                      "b"),
              u"a\ufffd\ufffdb"_s);
    EXPECT_EQ(tagText(" \tsong \n"), u"song"_s);
    EXPECT_EQ(tagText(""), u""_s);
    const QString path =
        writeSample(u"invalid.mp3"_s,
                    id3Tag(id3Frame("TIT2", QByteArray("\3ab\xe9\xe9zz", 7))) + untaggedMp3());
    EXPECT_TRUE(infoOf(path)[u"title"_s].startsWith(u"ab"_s));
}

TEST(Tags, CutsAnExcessivelyLongText)
{
    const QString path = writeSample(
        u"long.mp3"_s, id3Tag(id3Frame("TIT2", "\3" + QByteArray(8 << 20, 'x'))) + untaggedMp3());
    EXPECT_EQ(infoOf(path)[u"title"_s], QString(64 << 10, u'x'));
}

TEST(Tags, ReadsAnId3TagInAWaveFile)
{
    QByteArray wave = bytesOf(sampleFile({.options = {u"-fflags"_s, u"+bitexact"_s}}));
    const QByteArray tag =
        id3Tag(id3Frame("TIT2", "\3Inside") +
               id3Frame("APIC", QByteArray("\0image/png\0\3\0", 13) + sampleArtwork()));
    QByteArray size(4, '\0');
    qToLittleEndian(static_cast<quint32>(tag.size()), size.data());
    wave += "id3 " + size + tag + QByteArray(tag.size() & 1, '\0');
    qToLittleEndian(static_cast<quint32>(wave.size() - 8), wave.data() + 4);
    const QString path = writeSample(u"id3.wav"_s, wave);
    EXPECT_EQ(infoOf(path)[u"title"_s], u"Inside"_s);
    EXPECT_EQ(artworkOf(path), sampleArtwork());
}

TEST(Tags, ReturnsTheArtworkAsItIsStored)
{
    for (const auto &extension : {u"mp3"_s, u"m4a"_s, u"flac"_s, u"aiff"_s}) {
        EXPECT_EQ(artworkOf(sampleFile({.extension = extension, .artwork = true})), sampleArtwork())
            << qPrintable(extension);
        EXPECT_TRUE(artworkOf(sampleFile({.extension = extension})).isEmpty());
    }
}

TEST(Tags, PrefersTheFrontCover)
{
    const auto picture = [](char kind, const QByteArray &data) {
        return id3Frame("APIC",
                        QByteArray("\0image/png\0", 11) + kind + QByteArray(1, '\0') + data);
    };
    const QByteArray front = sampleArtwork();
    QByteArray back = front;
    back.back() = '!';
    const QString path =
        writeSample(u"covers.mp3"_s, id3Tag(picture(4, back) + picture(3, front)) + untaggedMp3());
    EXPECT_EQ(artworkOf(path), front);
}

TEST(Tags, SkipsUnreasonablyLargeArtwork)
{
#ifdef LYRABOX_IS_SLOW
    GTEST_SKIP()
        << "this build is too slow to read such a tag within the half second that opening may take";
#endif
    QByteArray picture = sampleArtwork();
    picture.resize(33 << 20);
    const QString path = writeSample(
        u"bomb.mp3"_s,
        id3Tag(id3Frame("APIC", QByteArray("\0image/png\0\3\0", 13) + picture)) + untaggedMp3());
    EXPECT_TRUE(artworkOf(path).isEmpty());
}
