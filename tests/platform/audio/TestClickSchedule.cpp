#include "platform/audio/ClickSchedule.h"

#include "platform/audio/ClickTable.h"

#include <gmock/gmock.h>

#include <memory>
#include <vector>

namespace lyrabox {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ClickScheduleTest : public testing::Test {
protected:
    /// A beat every 1,000 frames in bars of 4.
    ClickScheduleTest() { setPattern({}); }

    void setPattern(const ClickPattern &pattern)
    {
        std::vector<SongBeat> beats;
        for (std::uint64_t i = 0; i < 40; ++i)
            beats.push_back({.frame = 1000 * i, .beat = static_cast<std::uint8_t>(1 + i % 4)});
        schedule.setTable(clickTable(beats, pattern));
    }

    /// Reads the song in slices from `position` to `end`.
    void play(std::uint64_t position, std::uint64_t end)
    {
        for (; position < end; position += 100)
            schedule.readSong(position, 100);
    }

    /// Takes what is due: the frames of the stream.
    std::vector<std::uint64_t> due()
    {
        std::vector<std::uint64_t> found;
        for (; !schedule.isEmpty(); schedule.removeNext())
            found.push_back(schedule.next().at);
        return found;
    }

    ClickSchedule schedule;
};

TEST_F(ClickScheduleTest, FindsEveryBeatOnceAsTheSongIsRead)
{
    play(0, 3100);
    EXPECT_THAT(due(), ElementsAre(0, 1000, 2000, 3000));
    EXPECT_EQ(schedule.framesRead(), 3100U);
}

TEST_F(ClickScheduleTest, FollowsJumpsWhileTheStreamGoesOn)
{
    play(500, 2500);   // stream 0 to 2000
    play(500, 2500);   // 2000 to 4000
    play(9900, 10200); // 4000 to 4300
    EXPECT_THAT(due(), ElementsAre(500, 1500, 2500, 3500, 4100));
}

TEST_F(ClickScheduleTest, TheBeatAtALoopsEndSoundsOnlyIfTheSongGoesOn)
{
    schedule.readSong(1950, 100, 2000); // the slice overshoots the loop's end
    schedule.readSong(1000, 100, 2000);
    EXPECT_THAT(due(), ElementsAre(100)) << "the loop's start";

    schedule.readSong(1950, 100, 2000); // from 200
    schedule.readSong(2050, 100);       // the loop was cleared
    EXPECT_THAT(due(), ElementsAre(300)) << "late by the rest of the slice, but not lost";
}

TEST_F(ClickScheduleTest, FindsTheFirstFrameFromBelowZero)
{
    schedule.readSong(std::uint64_t{0} - 50, 128);
    EXPECT_THAT(due(), ElementsAre(50));
}

TEST_F(ClickScheduleTest, WithoutATableOnlyCountInsAreDue)
{
    schedule.setTable(nullptr);
    EXPECT_FALSE(schedule.isOn());
    play(0, 1000);
    LeadIn leadIn{.frames = 300, .clickCount = 2};
    leadIn.clicks[0] = {.frame = 0, .kind = ClickKind::Accent};
    leadIn.clicks[1] = {.frame = 150, .kind = ClickKind::Beat};
    for (std::uint32_t done = 0; done < 300; done += 100)
        schedule.readLeadIn(leadIn, done, 100);
    play(0, 1000);
    EXPECT_TRUE(schedule.next().isCountIn);
    EXPECT_EQ(schedule.next().kind, ClickKind::Accent);
    EXPECT_THAT(due(), ElementsAre(1000, 1150));
    EXPECT_EQ(schedule.framesRead(), 2300U);
}

TEST_F(ClickScheduleTest, MoreClicksThanALeadInHoldsAreNotRead)
{
    LeadIn leadIn{.frames = 100, .clickCount = 4'000'000'000U};
    schedule.readLeadIn(leadIn, 0, 100);
    EXPECT_EQ(due().size(), LeadIn::maximumClicks);
}

TEST_F(ClickScheduleTest, SilentBarsAlternateWithBarsThatSound)
{
    setPattern({.barsOn = 1, .barsOff = 2});
    play(0, 16000);
    EXPECT_THAT(due(), ElementsAre(0, 1000, 2000, 3000, 12000, 13000, 14000, 15000));
}

TEST_F(ClickScheduleTest, SilentBarsAreCountedAsTheyArePlayedInALoopOfHalfABar)
{
    setPattern({.barsOn = 1, .barsOff = 1});
    for (int pass = 0; pass < 4; ++pass)
        play(2000, 4000);
    EXPECT_THAT(due(), ElementsAre(0, 1000, 4000, 5000));
}

TEST_F(ClickScheduleTest, SilentBarsBeginAnewAfterASeek)
{
    setPattern({.barsOn = 1, .barsOff = 1});
    play(0, 6000); // two silent beats
    schedule.seek();
    play(6000, 8000);
    EXPECT_THAT(due(), ElementsAre(0, 1000, 2000, 3000, 6000, 7000));
}

TEST_F(ClickScheduleTest, ATakenTableIsReplacedAtTheNextSlice)
{
    play(0, 100);
    schedule.setTable(nullptr);
    play(1000, 1100);
    setPattern({});
    play(2000, 2100);
    EXPECT_THAT(due(), ElementsAre(0, 200));
}

TEST_F(ClickScheduleTest, IsBoundedIfNobodyTakesTheClicks)
{
    for (int i = 0; i < 10000; ++i)
        schedule.readSong(0, 100);
    const std::vector<std::uint64_t> found = due();
    EXPECT_GT(found.size(), 32768U / closestClicks);
    EXPECT_LT(found.size(), 1000U);
    play(0, 100);
    EXPECT_EQ(due().size(), 1U);
}

TEST_F(ClickScheduleTest, KeepsTheSoundThatWasSetLast)
{
    EXPECT_EQ(schedule.sound(), ClickSound{});
    const ClickSound wood{.loudness = 0.25F, .timbre = ClickTimbre::Wood};
    schedule.setSound(wood);
    EXPECT_EQ(schedule.sound(), wood);
    EXPECT_EQ(schedule.sound(), wood);
}

} // namespace
} // namespace lyrabox
