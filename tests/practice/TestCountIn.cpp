#include "practice/CountIn.h"

#include <gmock/gmock.h>

#include <limits>
#include <string>

namespace lyrabox {
namespace {

constexpr double beat = 20000.0;

/// The kinds of the clicks: A for an accent, b for a beat.
std::string kinds(const LeadIn &leadIn)
{
    std::string result;
    for (std::uint32_t i = 0; i < leadIn.clickCount; ++i)
        result += leadIn.clicks[i].kind == ClickKind::Accent ? 'A' : 'b';
    return result;
}

std::uint32_t lastClick(const LeadIn &leadIn)
{
    return leadIn.clickCount == 0 ? 0 : leadIn.clicks[leadIn.clickCount - 1].frame;
}

TEST(CountIn, OfABarEndsOneBeatBeforeTheDownbeat)
{
    const LeadIn leadIn = countIn({.beatFrames = beat}, {.amount = 1});
    EXPECT_EQ(leadIn.frames, 80000U);
    EXPECT_EQ(kinds(leadIn), "Abbb");
    EXPECT_EQ(leadIn.clicks[0].frame, 0U);
    EXPECT_EQ(lastClick(leadIn), 60000U);
}

TEST(CountIn, OfTwoBarsOfThreeHasTwoAccents)
{
    EXPECT_EQ(kinds(countIn({.beatFrames = beat, .beatsPerBar = 3}, {.amount = 2})), "AbbAbb");
}

TEST(CountIn, RunsOnToAPickUp)
{
    const LeadIn onFour = countIn({.beatFrames = beat, .nextBeat = 4}, {.amount = 1});
    EXPECT_EQ(kinds(onFour), "AbbbAbb");
    EXPECT_EQ(onFour.frames, 140000U);

    // An eighth before the downbeat: the whole bar that has begun is counted.
    const LeadIn eighth =
        countIn({.beatFrames = beat, .framesToBeat = beat / 2, .nextBeat = 1}, {.amount = 1});
    EXPECT_EQ(kinds(eighth), "AbbbAbbb");
    EXPECT_EQ(eighth.frames, 150000U);
    EXPECT_EQ(eighth.frames - lastClick(eighth), 10000U);

    const LeadIn afterThree =
        countIn({.beatFrames = beat, .framesToBeat = beat / 4, .nextBeat = 4}, {.amount = 1});
    EXPECT_EQ(kinds(afterThree), "AbbbAbb");
    EXPECT_EQ(afterThree.frames - lastClick(afterThree), 15000U);
}

TEST(CountIn, OfBeatsCountsSoManyWhereverTheBarBegins)
{
    const CountInLength three{.unit = CountInLength::Unit::Beats, .amount = 3};
    EXPECT_EQ(kinds(countIn({.beatFrames = beat, .nextBeat = 2}, three)), "bbA");
    EXPECT_EQ(countIn({.beatFrames = beat, .nextBeat = 2}, three).frames, 60000U);
    EXPECT_EQ(countIn({.beatFrames = beat, .framesToBeat = 5000.0}, three).frames, 55000U);
}

TEST(CountIn, BringsOddValuesIntoTheirRange)
{
    using Unit = CountInLength::Unit;
    EXPECT_EQ(countIn({.beatFrames = beat}, {.amount = 0}).clickCount, 4U);
    EXPECT_EQ(countIn({.beatFrames = beat, .beatsPerBar = 99}, {.amount = 99}).clickCount, 24U);
    EXPECT_EQ(
        countIn({.beatFrames = beat, .nextBeat = 99, .beatsPerBar = 12}, {.amount = 2}).clickCount,
        35U);
    EXPECT_EQ(countIn({.beatFrames = beat}, {.unit = Unit::Beats, .amount = 99}).clickCount, 24U);
    EXPECT_EQ(countIn({.beatFrames = beat, .framesToBeat = -1e9}, {.amount = 1}).frames, 80000U);
    EXPECT_EQ(countIn({.beatFrames = beat, .framesToBeat = beat, .nextBeat = 2},
                      {.unit = Unit::Beats, .amount = 1})
                  .clickCount,
              0U);
    for (const double none : {0.0, -5.0, 1e9, std::numeric_limits<double>::quiet_NaN(),
                              std::numeric_limits<double>::infinity()}) {
        EXPECT_EQ(countIn({.beatFrames = none}, {}), LeadIn{});
        EXPECT_EQ(rest(none, 4), LeadIn{});
    }
}

TEST(CountIn, ClicksAreInOrderAndWithinTheSilence)
{
    for (int bar = 1; bar <= 12; ++bar) {
        for (int next = 1; next <= bar; ++next) {
            for (const double toBeat : {0.0, 1.0, 7000.3, beat - 0.4}) {
                const LeadIn leadIn = countIn({.beatFrames = beat,
                                               .framesToBeat = toBeat,
                                               .nextBeat = next,
                                               .beatsPerBar = bar},
                                              {.amount = 2});
                ASSERT_GE(leadIn.clickCount, static_cast<std::uint32_t>(2 * bar));
                EXPECT_EQ(leadIn.clicks[0].kind, ClickKind::Accent);
                for (std::uint32_t i = 0; i < leadIn.clickCount; ++i) {
                    EXPECT_LT(leadIn.clicks[i].frame, leadIn.frames);
                    if (i > 0) {
                        EXPECT_GT(leadIn.clicks[i].frame, leadIn.clicks[i - 1].frame);
                    }
                }
            }
        }
    }
}

TEST(CountIn, ARestIsSilenceOfSoManyBeats)
{
    EXPECT_EQ(rest(beat, 4).frames, 80000U);
    EXPECT_EQ(rest(beat, 4).clickCount, 0U);
    EXPECT_EQ(rest(beat, -1).frames, 20000U);
}

} // namespace
} // namespace lyrabox
