#include "platform/decoding/AudioFileReader.h"

#include "platform/decoding/DecodingTools.h"
#include "support/SampleAudio.h"

#include <QDir>
#include <QFile>
#include <QtEndian>

#include <gtest/gtest.h>

#include <vector>

#include <sys/stat.h>
#include <unistd.h>

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

namespace {

/// The status of opening a file. Both depths must agree.
Status opened(const QString &path)
{
    AudioFileReader reader;
    const Status tags = reader.open(path, AudioFileReader::Depth::Tags);
    const Status samples = reader.open(path);
    EXPECT_EQ(tags, samples) << qPrintable(path);
    return samples;
}

template <typename T>
QByteArray little(T value)
{
    const T bytes = qToLittleEndian(value);
    return QByteArray(reinterpret_cast<const char *>(&bytes), sizeof bytes);
}

QByteArray chunk(const char *name, const QByteArray &content)
{
    return QByteArray(name) + little(static_cast<quint32>(content.size())) + content;
}

/// A valid WAV file of 16-bit samples, unless the arguments make it invalid.
QByteArray wave(quint32 rate, quint16 channels, quint32 frames, quint16 format = 1)
{
    const auto frameBytes = static_cast<quint16>(channels * 2);
    const QByteArray description = little(format) + little(channels) + little(rate) +
                                   little(rate * frameBytes) + little(frameBytes) +
                                   little(quint16{16});
    return chunk("RIFF",
                 "WAVE" + chunk("fmt ", description) +
                     chunk("data", QByteArray(static_cast<qsizetype>(frames) * frameBytes, '\1')));
}

} // namespace

TEST(Container, ReportsAMissingFile)
{
    EXPECT_EQ(opened(sampleFolder() + u"/nothing.mp3"_s), status::fileNotFound);
    EXPECT_EQ(opened(u""_s), status::fileNotFound);
    EXPECT_EQ(opened(sampleFile({}) + u"/below-a-file.mp3"_s), status::fileNotFound);
    EXPECT_EQ(opened(u'/' + QString(5000, u'x')), status::fileNotFound);
    EXPECT_EQ(opened(sampleFile({}) + QChar(0) + u".mp3"_s), status::fileNotFound);
    const QString loop = sampleFolder() + u"/loop.mp3"_s;
    ASSERT_TRUE(QFile::link(loop, loop));
    EXPECT_EQ(opened(loop), status::fileNotFound);
}

TEST(Container, ReportsAFileWithoutReadPermission)
{
    const QString path = writeSample(u"secret.wav"_s, wave(44100, 2, 100));
    ASSERT_TRUE(QFile::setPermissions(path, {}));
    // Root may read everything, so the test gives up its rights for a moment.
    const bool isRoot = ::geteuid() == 0;
    if (isRoot) {
        ASSERT_EQ(::seteuid(65534), 0);
    }
    const Status result = opened(path);
    if (isRoot) {
        ASSERT_EQ(::seteuid(0), 0);
    }
    EXPECT_EQ(result, status::noPermission);
}

TEST(Container, OpensOnlyRegularFiles)
{
    ASSERT_TRUE(QDir().mkpath(sampleFolder() + u"/folder.mp3"_s));
    EXPECT_EQ(opened(sampleFolder() + u"/folder.mp3"_s), status::unsupportedFileType);
    // Opening a pipe without a writer would block forever.
    const QString pipe = sampleFolder() + u"/pipe.mp3"_s;
    ASSERT_EQ(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    EXPECT_EQ(opened(pipe), status::unsupportedFileType);
    EXPECT_EQ(opened(u"/dev/zero"_s), status::unsupportedFileType);
}

TEST(Container, FollowsALinkToASong)
{
    const QString link = sampleFolder() + u"/link to a song.flac"_s;
    ASSERT_TRUE(QFile::link(sampleFile({.extension = u"flac"_s}), link));
    EXPECT_EQ(readWholeFile(link).frames(), 44100U);
}

TEST(Container, OpensNamesInAnyScript)
{
    const QString path = sampleFolder() + u"/Ünï çödé \u05d0\u05d1 \u3042\u3044 %20#?&\n.mp3"_s;
    ASSERT_TRUE(makeSampleAt(path, {.extension = u"mp3"_s}));
    EXPECT_EQ(readWholeFile(path).frames(), 44100U);
}

TEST(Container, RecognisesASongWhateverItsNameSays)
{
    for (const auto &extension :
         {u"mp3"_s, u"flac"_s, u"m4a"_s, u"ogg"_s, u"opus"_s, u"wav"_s, u"aiff"_s, u"wma"_s}) {
        for (const auto &name :
             {u"song.txt"_s, u"song"_s, u"song.png"_s, u"song.mp3"_s, u"song.wav"_s}) {
            const QString path = sampleFolder() + u'/' + name;
            ASSERT_TRUE(makeSampleAt(path, {.extension = extension}));
            EXPECT_EQ(opened(path), status::noError)
                << qPrintable(extension) << " as " << qPrintable(name);
        }
    }
}

TEST(Container, RefusesOtherFilesWhateverTheirNamesSay)
{
    QByteArray text;
    while (text.size() < 100000)
        text += "The quick brown fox jumps over the lazy dog.\n";
    QByteArray noise;
    quint32 random = 1;
    while (noise.size() < 300000) {
        random = random * 1664525U + 1013904223U;
        noise.append(static_cast<char>(random >> 24));
    }
    const std::vector<std::pair<const char *, QByteArray>> contents = {
        {"nothing", {}},
        {"one byte", "x"},
        {"a line", "hello\n"},
        {"text", text},
        {"zeros", QByteArray(1 << 20, '\0')},
        {"noise", noise},
        {"a picture", sampleArtwork()},
        {"a page", "<!DOCTYPE html><html><body>" + text + "</body></html>"},
        {"a program", bytesOf(u"/proc/self/exe"_s).left(1 << 20)},
    };
    for (const auto &[what, content] : contents) {
        for (const auto &extension :
             {u"txt"_s, u"mp3"_s, u"wav"_s, u"flac"_s, u"m4a"_s, u"ogg"_s, u"aac"_s, u"amr"_s}) {
            const QString path = writeSample(u"no-song."_s + extension, content);
            EXPECT_EQ(opened(path), status::unsupportedFileType)
                << what << " as " << qPrintable(extension);
        }
    }
}

TEST(Container, RefusesProgramTablesThatDecodeAsSound)
{
    // Rows of numbers between instructions. Each row begins like a frame of MPEG layer I.
    QByteArray content;
    quint32 random = 1;
    for (int table = 0; table < 20; ++table) {
        for (int i = 0; i < 3000; ++i) {
            random = random * 1664525U + 1013904223U;
            content.append(static_cast<char>(random >> 25));
        }
        for (int row = 0; row < 5; ++row)
            content += QByteArray("\xff\xff\x10", 3) + QByteArray(29, '\0');
    }
    for (const auto &extension : {u"mp3"_s, u"mp2"_s, u"bin"_s})
        EXPECT_EQ(opened(writeSample(u"no-song."_s + extension, content)),
                  status::unsupportedFileType)
            << qPrintable(extension);
}

TEST(Container, FindsAnMp3AfterForeignBytes)
{
    const QByteArray song =
        bytesOf(sampleFile({.extension = u"mp3"_s, .options = {u"-id3v2_version"_s, u"0"_s}}));
    EXPECT_EQ(opened(writeSample(u"late-song.mp3"_s, QByteArray(3000, 'x') + song)),
              status::noError);
}

TEST(Container, RefusesFilesThatReferToOthers)
{
    const QByteArray song = QFile::encodeName(sampleFile({}));
    const std::vector<std::pair<QString, QByteArray>> disguises = {
        {u"list.m3u"_s, "#EXTM3U\n#EXTINF:1,Song\n" + song + '\n'},
        {u"list.m3u8"_s,
         "#EXTM3U\n#EXT-X-TARGETDURATION:1\n#EXTINF:1,\nfile://" + song + "\n#EXT-X-ENDLIST\n"},
        {u"list.mp3"_s,
         "#EXTM3U\n#EXT-X-TARGETDURATION:1\n#EXTINF:1,\nfile://" + song + "\n#EXT-X-ENDLIST\n"},
        {u"joined.mp3"_s, "ffconcat version 1.0\nfile '" + song + "'\n"},
        {u"joined.ffconcat"_s, "ffconcat version 1.0\nfile '" + song + "'\n"},
        {u"session.sdp"_s,
         "v=0\no=- 0 0 IN IP4 127.0.0.1\ns=x\nc=IN IP4 127.0.0.1\nm=audio 5004 RTP/AVP 0\n"},
        {u"manifest.mpd"_s,
         "<?xml version=\"1.0\"?><MPD xmlns=\"urn:mpeg:dash:schema:mpd:2011\"><Period/></MPD>"},
        {u"picture%03d.png"_s, sampleArtwork()},
        {u"words.srt"_s, "1\n00:00:00,000 --> 00:00:01,000\nwords\n"},
    };
    for (const auto &[name, content] : disguises)
        EXPECT_EQ(opened(writeSample(name, content)), status::unsupportedFileType)
            << qPrintable(name);
}

TEST(Container, RefusesAFilmWithoutSound)
{
    const QString path = sampleFolder() + u"/silent.mp4"_s;
    ASSERT_TRUE(runFfmpeg(
        {u"-f"_s, u"lavfi"_s, u"-i"_s, u"testsrc=d=1:s=64x64"_s, u"-c:v"_s, u"mpeg4"_s, path}));
    EXPECT_EQ(opened(path), status::unsupportedFileType);
}

TEST(Container, PlaysTheSoundOfAFilm)
{
    for (const auto &extension : {u"mp4"_s, u"mkv"_s}) {
        const QString path = sampleFolder() + u"/film."_s + extension;
        ASSERT_TRUE(runFfmpeg({u"-f"_s, u"lavfi"_s, u"-i"_s, u"testsrc=d=1:s=64x64"_s, u"-i"_s,
                               sampleFile({}), u"-c:v"_s, u"mpeg4"_s, u"-c:a"_s, u"aac"_s, path}));
        EXPECT_EQ(opened(path), status::noError);
        EXPECT_NEAR(static_cast<double>(readWholeFile(path).frames()), 44100.0, 2100.0)
            << qPrintable(extension);
    }
}

TEST(Container, OpensAnEmptySongWithoutFrames)
{
    const QString path = writeSample(u"empty.wav"_s, wave(44100, 2, 0));
    EXPECT_EQ(opened(path), status::noError);
    const Decoded song = readWholeFile(path);
    EXPECT_EQ(song.status, status::noError);
    EXPECT_EQ(song.frames(), 0U);
}

TEST(Container, RefusesAbsurdRatesAndChannels)
{
    EXPECT_EQ(opened(writeSample(u"fast.wav"_s, wave(768001, 2, 1000))),
              status::unsupportedDataFormat);
    EXPECT_EQ(opened(writeSample(u"slow.wav"_s, wave(999, 2, 1000))),
              status::unsupportedDataFormat);
    EXPECT_EQ(opened(writeSample(u"wide.wav"_s, wave(44100, 65, 1000))),
              status::unsupportedDataFormat);
    EXPECT_EQ(opened(writeSample(u"still.wav"_s, wave(0, 2, 1000))), status::invalidFile);
    EXPECT_EQ(opened(writeSample(u"narrow.wav"_s, wave(44100, 0, 1000))), status::invalidFile);
    EXPECT_EQ(opened(writeSample(u"most.wav"_s, wave(768000, 64, 1000))), status::noError);
}

TEST(Container, ReportsAFormatWithoutADecoder)
{
    EXPECT_EQ(opened(writeSample(u"strange.wav"_s, wave(44100, 2, 1000, 0x9999))),
              status::unsupportedDataFormat);
}

TEST(Container, ReportsAMalformedAudioFile)
{
    const QByteArray song = bytesOf(sampleFile({.extension = u"m4a"_s, .seconds = 2.0}));
    // The table of contents is at the end of this file.
    EXPECT_EQ(opened(writeSample(u"beheaded.m4a"_s, song.left(song.size() / 2))),
              status::invalidFile);
    EXPECT_EQ(opened(writeSample(u"header.wav"_s, wave(44100, 2, 1000).left(40))),
              status::invalidFile);
}

TEST(Container, IgnoresALengthThatTheFileCannotHold)
{
    // A recorder that was interrupted leaves such a header.
    QByteArray bytes = wave(44100, 2, 1000);
    const quint32 most = 0xfffffff0;
    bytes.replace(4, 4, little(most)).replace(40, 4, little(most));
    AudioFileReader reader;
    ASSERT_EQ(reader.open(writeSample(u"unfinished.wav"_s, bytes)), status::noError);
    EXPECT_LE(reader.estimatedFrames().value_or(0), 1100U);
    EXPECT_EQ(readAll(reader).frames(), 1000U);
}

TEST(Container, FindsTheSongAfterATagOfManyMegabytes)
{
#ifdef LYRABOX_IS_SLOW
    const std::vector sizes = {2}; // Opening may take only half a second.
#else
    const std::vector sizes = {2, 20, 60};
#endif
    for (const int megabytes : sizes) {
        const int size = megabytes << 20;
        QByteArray tag("ID3\4\0\0", 6);
        for (const int shift : {21, 14, 7, 0})
            tag.append(static_cast<char>(size >> shift & 0x7f));
        tag.append(QByteArray(size, '\0'));
        const QByteArray song =
            bytesOf(sampleFile({.extension = u"mp3"_s, .options = {u"-id3v2_version"_s, u"0"_s}}));
        const QString path = writeSample(u"tagged"_s, tag + song);
        EXPECT_EQ(opened(path), status::noError) << megabytes;
        EXPECT_EQ(readWholeFile(path).frames(), 44100U) << megabytes;
    }
}
