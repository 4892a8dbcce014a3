#include "app/controls/ValueTransformers.h"

#include <gtest/gtest.h>

#include <limits>

using namespace Qt::Literals::StringLiterals;

namespace {

TEST(TimeText, DoesNotWrapMinutesIntoHours)
{
    EXPECT_EQ(lyrabox::timeText(3903), u"65:03"_s);
    EXPECT_EQ(lyrabox::timeText(0), u"0:00"_s);
    EXPECT_EQ(lyrabox::timeText(9), u"0:09"_s);
}

TEST(SecondsToMinutesTransformer, ShowsMinutesAndTwoDigitSeconds)
{
    EXPECT_EQ(SecondsToMinutesTransformer::transformedValue(0), u"0:00"_s);
    EXPECT_EQ(SecondsToMinutesTransformer::transformedValue(65), u"1:05"_s);
    EXPECT_EQ(SecondsToMinutesTransformer::transformedValue(3661), u"61:01"_s);
    EXPECT_EQ(SecondsToMinutesTransformer::transformedValue(59.9), u"0:59"_s);
}

TEST(SecondsToMinutesTransformer, AnInvalidValueGivesNoText)
{
    EXPECT_EQ(SecondsToMinutesTransformer::transformedValue({}), QString());
}

TEST(SecondsToMinutesTransformer, ReadsTheNumberInSinglePrecision)
{
    // The float nearest to 16777219 is 16777220.
    EXPECT_EQ(SecondsToMinutesTransformer::transformedValue(16777219.0), u"279620:20"_s);
}

TEST(SecondsToMinutesTransformer, ExtremeAndInvalidNumbersAreHandled)
{
    EXPECT_EQ(SecondsToMinutesTransformer::transformedValue(-5.0), u"0:00"_s);
    EXPECT_EQ(
        SecondsToMinutesTransformer::transformedValue(std::numeric_limits<double>::quiet_NaN()),
        u"0:00"_s);
    EXPECT_FALSE(
        SecondsToMinutesTransformer::transformedValue(std::numeric_limits<double>::infinity())
            .isEmpty());
    EXPECT_EQ(SecondsToMinutesTransformer::transformedValue(u"65.5"_s), u"1:05"_s);
    EXPECT_EQ(SecondsToMinutesTransformer::transformedValue(u"long"_s), u"0:00"_s);
}

TEST(PlayImageTransformer, TrueGivesTheSpeakerAndFalseNothing)
{
    EXPECT_EQ(PlayImageTransformer::transformedValue(true).name(), u"IsPlaying"_s);
    EXPECT_FALSE(PlayImageTransformer::transformedValue(true).isNull());
    EXPECT_TRUE(PlayImageTransformer::transformedValue(false).isNull());
}

TEST(SettingsImageTransformer, TrueGivesTheStarAndFalseNothing)
{
    EXPECT_EQ(SettingsImageTransformer::transformedValue(true).name(), u"HasSettings"_s);
    EXPECT_FALSE(SettingsImageTransformer::transformedValue(true).isNull());
    EXPECT_TRUE(SettingsImageTransformer::transformedValue(false).isNull());
}

TEST(PlusMinusImageTransformer, TrueGivesPlusAndFalseMinus)
{
    EXPECT_EQ(PlusMinusImageTransformer::transformedValue(true).name(), u"PlusButton"_s);
    EXPECT_EQ(PlusMinusImageTransformer::transformedValue(false).name(), u"MinusButton"_s);
    EXPECT_FALSE(PlusMinusImageTransformer::transformedValue(true).isNull());
    EXPECT_FALSE(PlusMinusImageTransformer::transformedValue(false).isNull());
}

} // namespace
