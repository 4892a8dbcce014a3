#include "practice/SongTime.h"

#include <gtest/gtest.h>

using namespace lyrabox;
using namespace Qt::Literals::StringLiterals;

namespace {

TEST(SongTime, IsMinutesSecondsAndFiveDecimals)
{
    EXPECT_EQ(songTimeText(0), u"0:00.00000"_s);
    EXPECT_EQ(songTimeText(1), u"0:00.00002"_s);
    EXPECT_EQ(songTimeText(44099), u"0:00.99998"_s);
    EXPECT_EQ(songTimeText(44100 * 65), u"1:05.00000"_s);
    EXPECT_EQ(songTimeText(44100 * 3600 * 2), u"120:00.00000"_s);
}

TEST(SongTime, OfEveryFrameOfASecondComesBackExactly)
{
    for (const std::uint64_t second : {0ULL, 1ULL, 59ULL, 60ULL, 3599ULL, 60ULL * 99'998}) {
        for (std::uint64_t residue = 0; residue < practiceRate; ++residue) {
            const std::uint64_t frame = second * practiceRate + residue;
            ASSERT_EQ(framesOfSongTime(songTimeText(frame)), frame);
        }
    }
    EXPECT_EQ(framesOfSongTime(songTimeText(lastSongPlace)), lastSongPlace);
}

TEST(SongTime, IsReadWithAnyNumberOfDecimals)
{
    EXPECT_EQ(framesOfSongTime(u"0:01"), 44100U);
    EXPECT_EQ(framesOfSongTime(u"0:01.5"), 66150U);
    EXPECT_EQ(framesOfSongTime(u"12:05.123456789"), 725U * 44100U + 5444U);
    EXPECT_EQ(framesOfSongTime(u"0:12.40210"), 546933U);
    EXPECT_EQ(framesOfSongTime(u"007:00"), 7U * 60U * 44100U);
    EXPECT_EQ(framesOfSongTime(u"0:59.999999999"), 60U * 44100U);
}

TEST(SongTime, IsNothingElse)
{
    for (const QStringView text : {u"",
                                   u":",
                                   u"1",
                                   u"1.5",
                                   u"-0:01",
                                   u"0:-1",
                                   u"0:1",
                                   u"0:60",
                                   u"0:001",
                                   u"0:01.",
                                   u"0:01,5",
                                   u" 0:01",
                                   u"0:01 ",
                                   u"0:01.1234567890",
                                   u"1:02:03",
                                   u"0:01e2",
                                   u"nan",
                                   u"0:0a",
                                   u"+0:01",
                                   u"100000:00",
                                   u"99999:00.00002",
                                   u"\u0660:\u0660\u0661"})
        EXPECT_EQ(framesOfSongTime(text), std::nullopt) << qPrintable(text.toString());
}

} // namespace
