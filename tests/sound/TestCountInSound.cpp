// A count-in is in time with the first note, and the note is as strong as without it.

#include "engine/ClicksAndLeadIns.h"
#include "sound/ClickSignals.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <numbers>
#include <vector>

using namespace lyrabox;
using namespace lyrabox::test;

namespace {

constexpr std::uint64_t noteAt = 200'064;
constexpr std::uint64_t loopFrames = 344 * TimePitchUnit::sliceFrames; // about a second
constexpr std::uint32_t beatFrames = 22050;
constexpr std::uint32_t countedBeats = 4;
constexpr double msPerFrame = 1000.0 / 44100.0;

/// A plucked note at the loop's start, in the left channel.
float note(std::uint32_t channel, std::uint64_t frame)
{
    if (channel != 0 || frame < noteAt)
        return 0.0F;
    const double time = static_cast<double>(frame - noteAt) / 44100.0;
    return static_cast<float>(0.6 * std::exp(-time / 0.08) *
                              std::cos(2.0 * std::numbers::pi * 440.0 * time));
}

LeadIn fourBeats()
{
    LeadIn leadIn{.frames = countedBeats * beatFrames, .clickCount = countedBeats};
    for (std::uint32_t i = 0; i < countedBeats; ++i)
        leadIn.clicks[i] = {.frame = i * beatFrames,
                            .kind = i == 0 ? ClickKind::Accent : ClickKind::Beat};
    return leadIn;
}

/// The places where the note begins: it rises above half its level after silence.
std::vector<std::size_t> notesIn(const std::vector<float> &heard)
{
    std::vector<std::size_t> found;
    std::size_t lastSound = 0;
    for (std::size_t i = 0; i < heard.size(); ++i) {
        if (std::abs(heard[i]) < 0.3F)
            continue;
        if (found.empty() || i > lastSound + 8000)
            found.push_back(i);
        lastSound = i;
    }
    return found;
}

/// The energy of the first 30 ms, in dB.
double attackLevel(const std::vector<float> &heard, std::size_t note)
{
    double energy = 0.0;
    for (std::size_t i = note > 220 ? note - 220 : 0; i < note + 1323; ++i)
        energy += static_cast<double>(heard[i]) * static_cast<double>(heard[i]);
    return 0.5 * inDecibels(energy);
}

struct Heard {
    Stereo sound;
    std::vector<std::size_t> notes;
};

Heard listen(float rate, const LeadIn &atWrap, const LeadIn &atStart, std::uint64_t from)
{
    Player player(note, 600'000);
    engine::setClickSound({.loudness = 1.0F, .side = ClickSide::Right, .hasAccents = false});
    engine::setPlaybackRate(rate);
    engine::setLeadInAtWrap(atWrap);
    engine::setLeadInAtStart(atStart);
    engine::setLoopStartFrame(noteAt);
    engine::setLoopEndFrame(noteAt + loopFrames);
    engine::setIsLooping(true);
    engine::seekToFrame(from);
    engine::setOutputRunning(true);
    Heard heard{.sound = player.pull(static_cast<std::size_t>(500'000.0F / rate)), .notes = {}};
    heard.notes = notesIn(heard.sound.left);
    return heard;
}

class CountInSound : public testing::TestWithParam<float> {};

TEST_P(CountInSound, LeadsIntoTheFirstNoteOfEveryPass)
{
    const float rate = GetParam();
    const Heard plain = listen(rate, {}, {}, noteAt - 6400);
    const Heard counted = listen(rate, fourBeats(), {}, noteAt - 6400);
    ASSERT_GE(plain.notes.size(), 6U);
    ASSERT_GE(counted.notes.size(), 3U);
    const std::vector<double> clicks = clicksIn(counted.sound.right);
    ASSERT_GE(clicks.size(), 8U);
    double worstTime = 0.0;
    double worstLevel = 0.0;
    const double beat = static_cast<double>(beatFrames) / static_cast<double>(rate);
    for (std::size_t pass = 0; pass < 2; ++pass) {
        const auto note = static_cast<double>(counted.notes[pass + 1]);
        const double click = clicks[countedBeats * pass + countedBeats - 1];
        worstTime = std::max(worstTime, std::abs(note - click - beat) * msPerFrame);
        // The third note of the plain loop, when everything has settled.
        const double level = attackLevel(counted.sound.left, counted.notes[pass + 1]) -
                             attackLevel(plain.sound.left, plain.notes[3]);
        worstLevel = std::max(worstLevel, std::abs(level));
    }
    std::printf(
        "[ measured ] count-in at %3.0f %%: to the first note %.2f ms, its attack %.2f dB\n",
        static_cast<double>(rate) * 100.0, worstTime, worstLevel);
    EXPECT_LE(worstTime, 3.0);
    EXPECT_LE(worstLevel, 1.0);
}

TEST_P(CountInSound, LeadsIntoTheNoteAtAStart)
{
    const float rate = GetParam();
    const Heard plain = listen(rate, {}, {}, noteAt - 6400);
    const Heard counted = listen(rate, {}, fourBeats(), noteAt);
    ASSERT_GE(plain.notes.size(), 6U);
    ASSERT_GE(counted.notes.size(), 3U);
    const std::vector<double> clicks = clicksIn(counted.sound.right);
    ASSERT_EQ(clicks.size(), countedBeats);
    const double beat = static_cast<double>(beatFrames) / static_cast<double>(rate);
    const double late = static_cast<double>(counted.notes[0]) - clicks.back() - beat;
    const double level = attackLevel(counted.sound.left, counted.notes[0]) -
                         attackLevel(plain.sound.left, plain.notes[3]);
    std::printf("[ measured ] start at %3.0f %%: to the first note %.2f ms, its attack %.2f dB\n",
                static_cast<double>(rate) * 100.0, late * msPerFrame, level);
    EXPECT_LE(std::abs(late) * msPerFrame, 3.0);
    EXPECT_LE(std::abs(level), 1.0);
}

TEST_P(CountInSound, ThePassBeforeCountsAsHeardWhenTheLoopBeginsAnew)
{
    constexpr std::uint32_t block = 128;
    Player player(note, 600'000);
    engine::setPlaybackRate(GetParam());
    engine::setLoopStartFrame(noteAt);
    engine::setLoopEndFrame(noteAt + loopFrames);
    engine::setIsLooping(true);
    engine::seekToFrame(noteAt);
    engine::setOutputRunning(true);
    const std::uint64_t before = engine::passes().heard;
    Stereo heard;
    std::vector<std::size_t> ended;
    std::vector<std::size_t> passed;
    while (passed.size() < 3 && heard.size() < 600'000) {
        player.pull(heard, block, block);
        const engine::PassCount count = engine::passes();
        if (count.ended - before > ended.size())
            ended.push_back(heard.size());
        if (count.heard - before > passed.size())
            passed.push_back(heard.size());
    }
    const std::vector<std::size_t> notes = notesIn(heard.left);
    ASSERT_EQ(passed.size(), 3U);
    ASSERT_GE(notes.size(), 3U);
    for (std::size_t i = 0; i < 2; ++i) {
        EXPECT_LE(ended[i], passed[i]);
        EXPECT_NEAR(static_cast<double>(passed[i]), static_cast<double>(notes[i + 1]), 441.0);
    }
}

INSTANTIATE_TEST_SUITE_P(Speeds, CountInSound, testing::Values(0.5F, 0.75F, 1.0F, 1.5F, 2.0F));

} // namespace
