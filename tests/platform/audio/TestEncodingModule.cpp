#include "platform/audio/EncodingModule.h"
#include "platform/foundation/Files.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <array>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox {
namespace {

void expectUseless(const EncodingModule &module)
{
    EXPECT_FALSE(module.failure().isEmpty());
    EXPECT_TRUE(module.formats().empty());
    const QTemporaryDir folder;
    const std::unique_ptr<SongWriter> writer = module.makeSongWriter();
    EXPECT_EQ(writer->open(folder.filePath(u"song.wav"_s), SongFormat::Wav16, {}),
              status::missingEncoder);
    EXPECT_EQ(writer->write(nullptr, nullptr, 0), status::missingEncoder);
    EXPECT_EQ(writer->finish(), status::missingEncoder);
    EXPECT_FALSE(QFile::exists(folder.filePath(u"song.wav"_s)));
}

} // namespace

TEST(EncodingModule, TheProgramsModuleWritesSongs)
{
    EXPECT_EQ(encodingModule().failure(), QString());
    const std::vector<SongFormat> formats = encodingModule().formats();
    EXPECT_EQ(formats, std::vector<SongFormat>(allSongFormats.begin(), allSongFormats.end()));
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"song.flac"_s);
    const std::unique_ptr<SongWriter> writer = encodingModule().makeSongWriter();
    const std::array<float, 100> silence{};
    ASSERT_EQ(writer->open(path, SongFormat::Flac, {}), status::noError);
    ASSERT_EQ(writer->write(silence.data(), silence.data(), 100), status::noError);
    ASSERT_EQ(writer->finish(), status::noError);
    EXPECT_GT(QFile(path).size(), 0);
}

TEST(EncodingModule, NamesAMissingFile)
{
    const EncodingModule module(u"/nowhere/lyrabox-encoding.so"_s);
    EXPECT_TRUE(module.failure().contains(u"/nowhere/lyrabox-encoding.so"_s));
    expectUseless(module);
}

TEST(EncodingModule, RefusesALibraryWithoutTheFunctions)
{
    expectUseless(EncodingModule(u"libm.so.6"_s));
    expectUseless(
        EncodingModule(QDir(files::moduleDirectory()).filePath(u"lyrabox-decoding.so"_s)));
}

} // namespace lyrabox
