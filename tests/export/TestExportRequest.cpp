#include "export/ExportRequest.h"

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox {
namespace {

QString nameOf(const QString &title)
{
    return exportFileName(title, SongFormat::Mp3, u"Song"_s);
}

} // namespace

TEST(ExportFileName, KeepsAnOrdinaryTitle)
{
    EXPECT_EQ(nameOf(u"Corner Shop Blues (75 %)"_s), u"Corner Shop Blues (75 %).mp3"_s);
    EXPECT_EQ(nameOf(u"夜の音 é"_s), u"夜の音 é.mp3"_s);
}

TEST(ExportFileName, HasNoSeparatorsAndNothingThatPhonesRefuse)
{
    EXPECT_EQ(nameOf(u"AC/DC: \"Live\"\n?"_s), u"AC-DC- -Live---.mp3"_s);
    EXPECT_EQ(nameOf(u"../../etc/passwd"_s), u"-..-etc-passwd.mp3"_s);
    EXPECT_EQ(nameOf(u"...hidden"_s), u"hidden.mp3"_s);
}

TEST(ExportFileName, FitsIntoTheFileSystem)
{
    EXPECT_EQ(nameOf(QString(300, u'a')), QString(251, u'a') + u".mp3"_s);
    const QString notes = QString(u"🎵"_s).repeated(300);
    const QString name = nameOf(notes);
    EXPECT_LE(name.toUtf8().size(), 255);
    EXPECT_GE(name.toUtf8().size(), 252);
    EXPECT_TRUE(name.startsWith(u"🎵"_s));
    EXPECT_FALSE(name.toUtf8().contains('?'));
}

TEST(ExportFileName, IsNeverEmpty)
{
    EXPECT_EQ(nameOf({}), u"Song.mp3"_s);
    EXPECT_EQ(nameOf(u"  .. "_s), u"Song.mp3"_s);
}

TEST(ExportedFrames, AddUpThePassesAtTheirSpeeds)
{
    EXPECT_EQ(exportedFrames({{}}, 1000), 1000U);
    EXPECT_EQ(exportedFrames({{.start = 100, .end = 400, .rate = 0.5F}, {.start = 900}}, 1000),
              700U);
    EXPECT_EQ(exportedFrames({{.start = 2000, .end = 3000}}, 1000), 0U);
    EXPECT_EQ(exportedFrames({{.end = 100, .before = {.frames = 50}}}, 1000), 150U);
    EXPECT_EQ(exportedFrames({{.rate = 0.0F}}, 100), exportedFrames({{.rate = 0.1F}}, 100));
}

} // namespace lyrabox
