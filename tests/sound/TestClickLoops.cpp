// The metronome over loops, seeks and moved loops, for a long time.

#include "engine/ClicksAndLeadIns.h"
#include "sound/ClickSignals.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <random>
#include <vector>

using namespace lyrabox;
using namespace lyrabox::test;

namespace {

/// What a long run has shown.
struct Count {
    int pulses = 0;
    int clicks = 0;
    int missing = 0; ///< pulses without a click
    int extra = 0;   ///< clicks without a pulse, and clicks that sounded twice
};

/// Compares the pulses in the left channel with the clicks in the right one. Both begin within
/// `tolerance` frames of each other. Those near one of the `cuts`, where a seek fades, don't count.
class Counter {
public:
    explicit Counter(double tolerance) : m_tolerance(tolerance) {}

    void add(const Stereo &heard)
    {
        for (std::size_t i = 0; i < heard.size(); ++i) {
            note(heard.left[i], 0.2F, m_pulses, m_lastPulseSound);
            note(heard.right[i], 0.05F, m_clicks, m_lastClickSound);
            // Two clicks at once are twice as loud.
            m_loudest = std::max(m_loudest, std::abs(heard.right[i]));
            m_at += 1.0;
        }
    }
    void cut() { m_cuts.push_back(m_at); }
    float loudest() const { return m_loudest; }

    Count count() const
    {
        return {.pulses = static_cast<int>(m_pulses.size()),
                .clicks = static_cast<int>(m_clicks.size()),
                .missing = unmatched(m_pulses, m_clicks),
                .extra = unmatched(m_clicks, m_pulses)};
    }

private:
    void note(float sample, float threshold, std::vector<double> &found, double &lastSound) const
    {
        if (std::abs(sample) < threshold)
            return;
        if (m_at > lastSound + 600.0)
            found.push_back(m_at);
        lastSound = m_at;
    }

    int unmatched(const std::vector<double> &these, const std::vector<double> &those) const
    {
        int alone = 0;
        auto other = those.begin();
        auto cut = m_cuts.begin();
        for (const double place : these) {
            other = std::find_if(other, those.end(),
                                 [&](double at) { return at >= place - m_tolerance; });
            cut = std::find_if(cut, m_cuts.end(), [&](double at) { return at + 800.0 >= place; });
            const bool isAtCut = cut != m_cuts.end() && place >= *cut - 800.0;
            if (other != those.end() && *other <= place + m_tolerance)
                ++other;
            else if (!isAtCut && place + 800.0 < m_at)
                ++alone;
        }
        return alone;
    }

    double m_tolerance;
    double m_at = 0.0;
    double m_lastPulseSound = -1000.0;
    double m_lastClickSound = -1000.0;
    float m_loudest = 0.0F;
    std::vector<double> m_pulses;
    std::vector<double> m_clicks;
    std::vector<double> m_cuts;
};

void setLoop(std::uint64_t start, std::uint64_t length)
{
    engine::setIsLooping(false);
    engine::setLoopStartFrame(start);
    engine::setLoopEndFrame(start + length);
    engine::setIsLooping(true);
}

struct LongRun {
    float rate;
    std::uint64_t seconds;
    double tolerance; ///< frames between an attack and its click
};

class ClickInALongLoop : public testing::TestWithParam<LongRun> {};

TEST_P(ClickInALongLoop, OfHalfASecondMissesNoneAndDoublesNone)
{
    constexpr std::uint64_t half = 22050;
    constexpr std::uint64_t loopStart = PulseSong::firstBeat + 40 * PulseSong::period + 4000;
    Player player(&PulseSong::sample, PulseSong::frames);
    engine::setClickSound({.loudness = 0.5F, .side = ClickSide::Right, .hasAccents = false});
    engine::setClicks(PulseSong::clicks());
    setLoop(loopStart, half);
    engine::setPlaybackRate(GetParam().rate);
    engine::seekToFrame(loopStart);
    engine::setOutputRunning(true);

    std::mt19937 random(5);
    const auto upTo = [&random](std::uint64_t most) {
        return std::uniform_int_distribution<std::uint64_t>(0, most)(random);
    };
    Counter counter(GetParam().tolerance);
    int seeks = 0;
    int nudges = 0;
    for (std::uint64_t played = 0; played < GetParam().seconds * 44100;) {
        const std::uint64_t frames = 5000 + upTo(60'000);
        counter.add(player.pull(frames, static_cast<std::uint32_t>(100 + upTo(900))));
        played += frames;
        const std::uint64_t nudge = upTo(882);
        switch (upTo(3)) {
        case 0:
            counter.cut();
            engine::seekToFrame(loopStart + upTo(half));
            ++seeks;
            break;
        case 1: // both ends, by up to 10 ms
            setLoop(loopStart + nudge - 441, half);
            ++nudges;
            break;
        case 2: // and then from the start
            counter.cut();
            setLoop(loopStart + nudge - 441, half);
            engine::seekToFrame(engine::loopStartFrame());
            ++nudges;
            break;
        default:
            break;
        }
    }
    const Count count = counter.count();
    std::printf("[ measured ] click in a loop at %3.0f %%: %d pulses, %d clicks, %d missing, %d "
                "extra; %d seeks, %d nudges\n",
                static_cast<double>(GetParam().rate) * 100.0, count.pulses, count.clicks,
                count.missing, count.extra, seeks, nudges);
    EXPECT_GE(static_cast<float>(count.clicks),
              3.8F * static_cast<float>(GetParam().seconds) * GetParam().rate);
    EXPECT_GE(seeks, static_cast<int>(GetParam().seconds / 6));
    EXPECT_GE(nudges, static_cast<int>(GetParam().seconds / 3));
    EXPECT_EQ(count.missing, 0);
    EXPECT_EQ(count.extra, 0);
    EXPECT_LE(counter.loudest(), 0.5F * 0.7F * 1.01F);
}

#ifdef LYRABOX_IS_SLOW
constexpr std::uint64_t minutes = 6; // a tenth of the time
#else
constexpr std::uint64_t minutes = 60;
#endif

INSTANTIATE_TEST_SUITE_P(Speeds, ClickInALongLoop,
                         testing::Values(LongRun{1.0F, 10 * minutes, 2.0},
                                         LongRun{0.75F, 2 * minutes, 132.0}));

TEST(ClickInALoop, WhoseEndsAreBeatsSoundsOncePerBeat)
{
    // The loop's end is overshot by up to a slice. The beat there is the one at its start.
    constexpr std::uint64_t beats = 2;
    constexpr std::uint64_t start = PulseSong::firstBeat + 40 * PulseSong::period;
    static_assert(beats * PulseSong::period % TimePitchUnit::sliceFrames != 0);
    for (const float rate : {1.0F, 0.75F}) {
        const Stereo heard = heardWithClicks([rate](Player &player, Stereo &all) {
            engine::setPlaybackRate(rate);
            setLoop(start, beats * PulseSong::period);
            engine::seekToFrame(start);
            engine::setOutputRunning(true);
            player.pull(all, 300'000);
        });
        const std::vector<double> found = clicksIn(heard.right);
        const double period = static_cast<double>(PulseSong::period) / static_cast<double>(rate);
        EXPECT_NEAR(static_cast<double>(found.size()), 300'000.0 / period, 1.5);
        for (std::size_t i = 1; i < found.size(); ++i)
            EXPECT_NEAR(found[i] - found[i - 1], period, 132.0) << i;
        for (const float sample : heard.right)
            ASSERT_LE(std::abs(sample), 0.71F);
    }
}

TEST(ClickInALoop, GoesOnWithANewDevice)
{
    for (const float rate : {1.0F, 0.75F}) {
        const Stereo heard = heardWithClicks([rate](Player &player, Stereo &all) {
            engine::setPlaybackRate(rate);
            engine::setOutputRunning(true);
            player.pull(all, 100'000);
            engine::defaultOutputChanged();
            player.pull(all, 200'000);
        });
        int count = 0;
        for (const double click : clicksIn(heard.right)) {
            const bool isAtChange = click > 96'000.0 && click < 104'000.0;
            if (click < 3000.0 || click > 297'000.0 || isAtChange)
                continue;
            EXPECT_LE(std::abs(lateness(heard, click, rate)), 0.003 * 44100.0) << click;
            ++count;
        }
        EXPECT_GE(count, static_cast<int>(22.0F * rate));
    }
}

TEST(ClickInALoop, IsWithinThreeMillisecondsAtOtherSpeeds)
{
    constexpr std::uint64_t start = PulseSong::firstBeat + 40 * PulseSong::period + 4000;
    for (const float rate : {0.5F, 0.75F, 1.5F}) {
        const Stereo heard = heardWithClicks([rate](Player &player, Stereo &all) {
            engine::setPlaybackRate(rate);
            setLoop(start, 22016); // whole slices: the loop is as long as it says
            engine::seekToFrame(start);
            engine::setOutputRunning(true);
            player.pull(all, 400'000);
            engine::seekToFrame(start + 9000);
            player.pull(all, 200'000);
        });
        int count = 0;
        for (const double click : clicksIn(heard.right)) {
            const bool isAtSeek = std::abs(click - 400'000.0) < 4000.0;
            if (click < 3000.0 || click > 597'000.0 || isAtSeek)
                continue;
            EXPECT_LE(std::abs(lateness(heard, click, rate)), 0.003 * 44100.0) << click;
            ++count;
        }
        EXPECT_GE(count, static_cast<int>(50.0F * rate));
    }
}

} // namespace
