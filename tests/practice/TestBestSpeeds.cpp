#include "practice/BestSpeeds.h"

#include <gtest/gtest.h>

namespace lyrabox {
namespace {

using namespace Qt::Literals::StringLiterals;

PracticeLogLine line(const QString &loop, double speed, int passes = 1, int missed = 0)
{
    return {.song = u"Song"_s, .loop = loop, .speed = speed, .passes = passes, .missed = missed};
}

TEST(BestSpeeds, AreTheHighestOnesWithAPassThatWasNotMissed)
{
    const BestSpeeds speeds({line(u"Riff"_s, 60.0), line(u"Riff"_s, 75.0, 3, 2),
                             line(u"Riff"_s, 80.0, 3, 3), line(u"Riff"_s, 90.0, 0),
                             line(u"Riff"_s, 70.0), line(u"Ending"_s, 100.0)});
    EXPECT_EQ(speeds.of(line(u"Riff"_s, 0.0)), 75.0);
    EXPECT_EQ(speeds.of(line(u"Ending"_s, 0.0)), 100.0);
    EXPECT_FALSE(speeds.of(line(u"Verse"_s, 0.0)));
    PracticeLogLine other = line(u"Riff"_s, 0.0);
    other.song = u"Other"_s;
    EXPECT_FALSE(speeds.of(other));
    EXPECT_TRUE(BestSpeeds({line(u"Riff"_s, 60.0, 1, 1)}).isEmpty());
}

TEST(BestSpeeds, AreJoinedWithTheBetterOfTwo)
{
    BestSpeeds speeds({line(u"Riff"_s, 60.0), line(u"Ending"_s, 100.0)});
    speeds.add(BestSpeeds({line(u"Riff"_s, 75.0), line(u"Ending"_s, 90.0)}));
    EXPECT_EQ(speeds.of(line(u"Riff"_s, 0.0)), 75.0);
    EXPECT_EQ(speeds.of(line(u"Ending"_s, 0.0)), 100.0);
}

TEST(BestSpeeds, TellLoopsWithoutANameApartByTheirPlaces)
{
    PracticeLogLine one = line({}, 60.0);
    PracticeLogLine other = line({}, 75.0);
    other.from = 1000;
    const BestSpeeds speeds({one, other});
    EXPECT_EQ(speeds.of(one), 60.0);
    EXPECT_EQ(speeds.of(other), 75.0);
    one.loop = u"Riff"_s;
    other.loop = u"Riff"_s;
    EXPECT_EQ(BestSpeeds({one, other}).of(one), 75.0) << "a loop with a name may be moved";
}

} // namespace
} // namespace lyrabox
