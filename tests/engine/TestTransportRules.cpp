#include "engine/TransportRules.h"

#include <gtest/gtest.h>

#include <limits>

namespace lyrabox::transport {
namespace {

using namespace Qt::Literals::StringLiterals;

TEST(TransportRules, TagsStepDownResetAndUpAndOthersChangeNothing)
{
    EXPECT_EQ(stepped(0, 80.0F, speedStep, normalSpeed), 75.0F);
    EXPECT_EQ(stepped(1, 80.0F, speedStep, normalSpeed), 100.0F);
    EXPECT_EQ(stepped(2, 80.0F, speedStep, normalSpeed), 85.0F);
    EXPECT_EQ(stepped(3, 80.0F, speedStep, normalSpeed), 80.0F);
    EXPECT_EQ(stepped(-1, 80.0F, speedStep, normalSpeed), 80.0F);
    EXPECT_EQ(stepped(0, 0.0F, pitchStep, normalPitch), -100.0F);
}

TEST(TransportRules, AStepFromHundredthsGivesTheNearestFloat)
{
    EXPECT_EQ(stepped(2, 123.4F, speedStep, normalSpeed), 128.4F);
    EXPECT_EQ(stepped(0, 128.4F, speedStep, normalSpeed), 123.4F);
    EXPECT_EQ(stepped(2, 99.99999237F, speedStep, normalSpeed), 105.0F);
    // Other fractions stay as they are.
    EXPECT_EQ(stepped(2, 62.003F, speedStep, normalSpeed), 62.003F + 5.0F);
}

TEST(TransportRules, ZeroAndNotANumberAreRefusedAsEntries)
{
    EXPECT_FALSE(isAcceptedEntry(0.0F));
    EXPECT_FALSE(isAcceptedEntry(-0.0F));
    EXPECT_FALSE(isAcceptedEntry(std::numeric_limits<float>::quiet_NaN()));
    EXPECT_TRUE(isAcceptedEntry(0.01F));
    EXPECT_TRUE(isAcceptedEntry(-100.0F));
}

TEST(TransportRules, CentsAreTruncatedTowardZeroWithin16Bits)
{
    EXPECT_EQ(wholeCents(150.7F), 150);
    EXPECT_EQ(wholeCents(-150.7F), -150);
    EXPECT_EQ(wholeCents(-0.9F), 0);
    EXPECT_EQ(wholeCents(1e9F), 32767);
    EXPECT_EQ(wholeCents(-1e9F), -32768);
    EXPECT_EQ(wholeCents(std::numeric_limits<float>::quiet_NaN()), 0);
}

TEST(TransportRules, ArtistLineJoinsThePartsThatExist)
{
    EXPECT_EQ(artistLine(u"A"_s, u"B"_s), QString::fromUtf8("A \xe2\x97\x8f B"));
    EXPECT_EQ(artistLine(u""_s, u"B"_s), u"B"_s);
    EXPECT_EQ(artistLine(u"A"_s, u""_s), u"A"_s);
    EXPECT_EQ(artistLine(u""_s, u""_s), u""_s);
    EXPECT_EQ(artistLine(u"%2"_s, u"%1"_s), QString::fromUtf8("%2 \xe2\x97\x8f %1"));
}

} // namespace
} // namespace lyrabox::transport
