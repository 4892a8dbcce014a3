#include "practice/LabelTrack.h"

#include "practice/SongTime.h"

#include <gtest/gtest.h>

using namespace lyrabox;
using namespace Qt::Literals::StringLiterals;

namespace {

PracticeRecord recordOf(const QByteArray &text, bool isWhole = true)
{
    const auto reading = readLabelTrack(text);
    EXPECT_TRUE(reading) << text.toStdString();
    EXPECT_EQ(reading && reading->isWhole, isWhole) << text.toStdString();
    return reading ? reading->record : PracticeRecord();
}

TEST(LabelTrack, WithAnExtentIsALoopAndWithoutOneAMarker)
{
    const PracticeRecord record =
        recordOf("12.402113\t16.738095\tTurnaround\n6.900000\t6.900000\tVerse\n");
    ASSERT_EQ(record.loops.size(), 1U);
    EXPECT_EQ(record.loops[0].name, u"Turnaround"_s);
    EXPECT_EQ(record.loops[0].from, 546933U);
    EXPECT_EQ(record.loops[0].to, 738150U);
    ASSERT_EQ(record.markers.size(), 1U);
    EXPECT_EQ(record.markers[0].name, u"Verse"_s);
    EXPECT_EQ(record.markers[0].at, 304290U);
}

TEST(LabelTrack, ReadsCommasLineEndsAndByteOrderMarksOfOtherSystems)
{
    const PracticeRecord record = recordOf("\xef\xbb\xbf"
                                           "1,5\t2,25\tÄnderung\r\n\r\n3\t4\r+5.0\t 5.0 \tc");
    ASSERT_EQ(record.loops.size(), 2U);
    EXPECT_EQ(record.loops[0].from, 66150U);
    EXPECT_EQ(record.loops[0].to, 99225U);
    EXPECT_EQ(record.loops[0].name, u"Änderung"_s);
    EXPECT_EQ(record.loops[1].name, QString());
    ASSERT_EQ(record.markers.size(), 1U);
    EXPECT_EQ(record.markers[0].at, 220500U);
}

TEST(LabelTrack, TurnsBackwardTimesRound)
{
    const PracticeRecord record = recordOf("4.0\t1.0\tback\n");
    ASSERT_EQ(record.loops.size(), 1U);
    EXPECT_EQ(record.loops[0].from, 44100U);
    EXPECT_EQ(record.loops[0].to, 4 * 44100U);
}

TEST(LabelTrack, SkipsTheFrequenciesOfALabel)
{
    const PracticeRecord record = recordOf("1.0\t2.0\ta\n\\\t500.0\t2000.0\n3.0\t3.0\tb\n");
    EXPECT_EQ(record.loops.size(), 1U);
    EXPECT_EQ(record.markers.size(), 1U);
}

TEST(LabelTrack, BeginsWithTheSong)
{
    EXPECT_EQ(recordOf("-0.5\t2.0\ta\n").loops.at(0).from, 0U);
    const PracticeRecord record = recordOf("-2.0\t-1.0\ta\n-1\t0\tb\n-1\t-1\tc\n1\t1\td\n", false);
    EXPECT_TRUE(record.loops.empty());
    EXPECT_EQ(record.markers.size(), 1U);
}

TEST(LabelTrack, LeavesOutLinesThatAreNoLabels)
{
    const PracticeRecord record =
        recordOf("1.0\t2.0\tgood\nnan\t2\tx\n1e3\t2\tx\n1:00\t2\tx\n\t\tx\n1..2\t3\tx\n"
                 "99999999\t3\tx\n1 2 x\n.\t.\t.\n9999999\t9999999\tbeyond\n",
                 false);
    EXPECT_EQ(record.loops.size(), 1U);
    EXPECT_TRUE(record.markers.empty());
}

TEST(LabelTrack, IsNoTextWithoutLabels)
{
    EXPECT_FALSE(readLabelTrack({}));
    EXPECT_FALSE(readLabelTrack("Dear diary,\n\ttoday I practised.\n"));
    EXPECT_FALSE(readLabelTrack("{\"lyrabox practice\": 1}"));
    EXPECT_FALSE(readLabelTrack("\\\t500.0\t2000.0\n"));
    EXPECT_FALSE(readLabelTrack(QByteArray("1\t2\ta\n") + QByteArray(1'000'000, ' ')));
}

TEST(LabelTrack, KeepsTheLimitsOfARecord)
{
    QByteArray text;
    for (int i = 0; i < 3000; ++i) {
        const QByteArray number = QByteArray::number(i);
        text += number + '\t' + number + ".5\tl\n" + number + '\t' + number + "\tm\n";
    }
    const PracticeRecord record = recordOf(text, false);
    EXPECT_EQ(record.loops.size(), PracticeLimits::loops);
    EXPECT_EQ(record.markers.size(), PracticeLimits::markers);
    const PracticeRecord named = recordOf("0\t1\t" + QByteArray(900'000, 'x') + "\ty");
    EXPECT_EQ(named.loops.at(0).name.size(), PracticeLimits::nameLength);
}

TEST(LabelTrack, OfARecordIsReadAgainExactly)
{
    PracticeRecord record;
    for (const std::uint64_t from : {0ULL, 1ULL, 44099ULL, 44100ULL * 3601 + 12345})
        record.loops.push_back({.name = u"Schleife 世 \"a\""_s, .from = from, .to = from + 44101});
    record.markers.push_back({.at = 44101, .name = {}});
    const QByteArray text = labelTrackText(record);
    EXPECT_TRUE(text.startsWith("0.000000\t1.000023\tSchleife")) << text.toStdString();
    const PracticeRecord again = recordOf(text);
    ASSERT_EQ(again.loops.size(), 4U);
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_EQ(again.loops[i].from, record.loops[i].from);
        EXPECT_EQ(again.loops[i].to, record.loops[i].to);
        EXPECT_EQ(again.loops[i].name, record.loops[i].name);
    }
    ASSERT_EQ(again.markers.size(), 1U);
    EXPECT_EQ(again.markers[0].at, 44101U);
    EXPECT_EQ(labelTrackText(again), text);
}

} // namespace
