#include "platform/audio/DecodingModule.h"
#include "platform/foundation/Files.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <thread>
#include <vector>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox {
namespace {

QString modulePath()
{
    return QDir(files::moduleDirectory()).filePath(u"lyrabox-decoding.so"_s);
}

QString demoSong()
{
    const QDir demo(QLatin1String(LYRABOX_SOURCE_DIR) + u"/resources/demo"_s);
    const QStringList songs = demo.entryList({u"*.mp3"_s, u"*.flac"_s, u"*.ogg"_s, u"*.m4a"_s});
    return songs.isEmpty() ? QString() : demo.filePath(songs.first());
}

void expectUseless(const DecodingModule &module)
{
    EXPECT_FALSE(module.failure().isEmpty());
    const std::unique_ptr<SongReader> reader = module.makeSongReader();
    ASSERT_NE(reader, nullptr);
    EXPECT_EQ(reader->open(demoSong(), SongReader::Depth::Tags), status::missingDecoder);
    EXPECT_EQ(reader->open(demoSong(), SongReader::Depth::Samples), status::missingDecoder);
    AudioStreamBasicDescription format;
    EXPECT_EQ(reader->fileDataFormat(format), status::missingDecoder);
    EXPECT_EQ(reader->setClientDataFormat(canonicalStreamFormat()), status::missingDecoder);
    std::uint32_t frames = 100;
    AudioBufferList list;
    EXPECT_EQ(reader->read(frames, list), status::missingDecoder);
    EXPECT_EQ(frames, 0U);
    EXPECT_EQ(reader->estimatedFrames(), std::nullopt);
    EXPECT_EQ(reader->countedFrames(1), std::nullopt);
    EXPECT_TRUE(reader->albumArtwork().isEmpty());
    EXPECT_TRUE(reader->infoDictionary().isEmpty());
}

} // namespace

TEST(DecodingModule, TheProgramsModuleReadsSongs)
{
    ASSERT_FALSE(demoSong().isEmpty());
    EXPECT_EQ(decodingModule().failure(), QString());
    const std::unique_ptr<SongReader> reader = decodingModule().makeSongReader();
    EXPECT_EQ(reader->open(demoSong(), SongReader::Depth::Samples), status::noError);
    EXPECT_FALSE(reader->infoDictionary().value(u"title"_s).isEmpty());
    EXPECT_GT(reader->estimatedFrames().value_or(0), 44100U);
}

TEST(DecodingModule, ManyThreadsMayAskForTheFirstReaderAtOnce)
{
    std::vector<std::jthread> threads;
    std::vector<Status> results(8, status::unspecified);
    for (Status &result : results)
        threads.emplace_back([&result] {
            result = decodingModule().makeSongReader()->open(demoSong(), SongReader::Depth::Tags);
        });
    threads.clear();
    for (const Status result : results)
        EXPECT_EQ(result, status::noError);
}

TEST(DecodingModule, NamesAMissingFile)
{
    const DecodingModule module(u"/nowhere/lyrabox-decoding.so"_s);
    EXPECT_TRUE(module.failure().contains(u"/nowhere/lyrabox-decoding.so"_s));
    expectUseless(module);
}

TEST(DecodingModule, RefusesAModuleThatIsTruncatedAnywhere)
{
    QFile whole(modulePath());
    ASSERT_TRUE(whole.open(QIODevice::ReadOnly));
    const QByteArray bytes = whole.readAll();
    const QTemporaryDir folder;
    for (int part = 0; part < 16; ++part) {
        const QString path = folder.filePath(QString::number(part) + u".so"_s);
        QFile cut(path);
        ASSERT_TRUE(cut.open(QIODevice::WriteOnly));
        cut.write(bytes.left(bytes.size() * part / 16));
        cut.close();
        const DecodingModule module(path);
        EXPECT_TRUE(module.failure().contains(path)) << qPrintable(module.failure());
        expectUseless(module);
    }
}

TEST(DecodingModule, RefusesAFileThatIsNotALibrary)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"text.so"_s);
    QFile text(path);
    ASSERT_TRUE(text.open(QIODevice::WriteOnly));
    text.write(QByteArray(10000, 'x'));
    text.close();
    expectUseless(DecodingModule(path));
    expectUseless(DecodingModule(folder.path()));
}

TEST(DecodingModule, RefusesALibraryWithoutTheFunctions)
{
    expectUseless(DecodingModule(u"libm.so.6"_s));
}

TEST(DecodingModule, RefusesAModuleOfAnotherVersion)
{
    const DecodingModule module(QStringLiteral(OTHER_VERSION_MODULE));
    EXPECT_TRUE(module.failure().contains(u"0.0.0"_s));
    expectUseless(module);
}

} // namespace lyrabox
