#include "app/practice/TimeRuler.h"

#include <gtest/gtest.h>

using namespace lyrabox;
using namespace Qt::Literals::StringLiterals;

namespace {

TEST(TimeRuler, MarksHaveRoomForTheirTexts)
{
    for (double secondsPerPoint = 1e-5; secondsPerPoint < 100.0; secondsPerPoint *= 1.7)
        EXPECT_GE(timeRuler::step(secondsPerPoint) / secondsPerPoint, 72.0 - 1e-9);
    EXPECT_DOUBLE_EQ(timeRuler::step(0.016), 2.0);
}

TEST(TimeRuler, AMarkHasTheDecimalsThatItsStepNeeds)
{
    EXPECT_EQ(timeRuler::text(65.0, 5.0), u"1:05"_s);
    EXPECT_EQ(timeRuler::text(65.5, 0.5), u"1:05.5"_s);
    EXPECT_EQ(timeRuler::text(0.02, 0.02), u"0:00.02"_s);
    EXPECT_EQ(timeRuler::text(600.001, 0.001), u"10:00.001"_s);
}

TEST(TimeRuler, AnExactTimeIsRoundedAsAWhole)
{
    EXPECT_EQ(timeRuler::exactText(12.4021), u"0:12.402"_s);
    EXPECT_EQ(timeRuler::exactText(59.9996), u"1:00.000"_s);
}

} // namespace
