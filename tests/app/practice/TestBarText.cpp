#include "app/practice/BarText.h"

#include <gtest/gtest.h>

using namespace lyrabox;
using namespace Qt::Literals::StringLiterals;

namespace {

constexpr std::uint64_t beat = 22'050;

/// Beats at 120 a minute from second 1 on, of which the first two are a pick-up, in bars of 4.
BeatGrid grid()
{
    std::vector<std::uint64_t> frames;
    for (std::uint64_t i = 0; i < 64; ++i)
        frames.push_back(44'100 + i * beat);
    return fittedGrid(frames, 2, 4);
}

std::uint64_t at(double beats)
{
    return static_cast<std::uint64_t>(44'100.0 + beats * double{beat});
}

TEST(BarText, NamesTheNearestBeat)
{
    EXPECT_EQ(barText::place(grid(), at(2)), u"1.1"_s);
    EXPECT_EQ(barText::place(grid(), at(2.4)), u"1.1"_s);
    EXPECT_EQ(barText::place(grid(), at(1.6)), u"1.1"_s);
    EXPECT_EQ(barText::place(grid(), at(0)), u"0.3"_s) << "a pick-up";
    EXPECT_EQ(barText::place(grid(), at(29)), u"7.4"_s);
    EXPECT_EQ(barText::places(grid(), {at(26), at(34)}), u"7.1–9.1"_s);
}

TEST(BarText, IsEmptyWhereTheBeatsAreNotKnown)
{
    EXPECT_TRUE(barText::place(BeatGrid(), 100).isEmpty());
    EXPECT_TRUE(barText::place(grid(), at(80)).isEmpty());
    EXPECT_TRUE(barText::places(grid(), {at(26), at(80)}).isEmpty());
    EXPECT_TRUE(barText::length(grid(), {at(26), at(80)}).isEmpty());
}

TEST(BarText, MeasuresLoopsInBarsOrElseInBeats)
{
    EXPECT_EQ(barText::length(grid(), {at(26), at(34)}), u"2 bars"_s);
    EXPECT_EQ(barText::length(grid(), {at(27), at(31)}), u"1 bar"_s);
    EXPECT_EQ(barText::length(grid(), {at(26), at(31)}), u"5 beats"_s);
    EXPECT_EQ(barText::length(grid(), {at(26), at(27.02)}), u"1 beat"_s);
    EXPECT_EQ(barText::length(grid(), {at(26), at(30.6)}), u"4.6 beats"_s);
}

TEST(BarText, WritesTempiWithAtMostOneDecimal)
{
    EXPECT_EQ(barText::tempo(123.0), u"123"_s);
    EXPECT_EQ(barText::tempo(89.79), u"89.8"_s);
    EXPECT_EQ(barText::tempo(119.98), u"120"_s);
}

} // namespace
