#include "platform/output/CubebOutput.h"
#include "sound/Player.h"
#include "support/SampleAudio.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <numbers>

using namespace lyrabox;
using namespace lyrabox::test;

namespace {

constexpr double sampleRate = 44100.0;

constexpr std::uint32_t deviceFrames = CubebOutput::preferredLatencyFrames;

TEST(PlaybackUntouched, TheOutputEqualsTheDecodedFileBitForBit)
{
    const SampleSpec spec{.signal = SampleSpec::Signal::Ramp, .seconds = 3.0};
    Player player(QUrl::fromLocalFile(sampleFile(spec)));
    ASSERT_EQ(engine::totalFrames(), sampleFrames(spec));
    engine::setOutputVolume(1.0F);
    engine::setOutputRunning(true);
    const Stereo heard = player.pull(130'000, 700);
    std::size_t different = 0;
    for (std::size_t i = OutputRenderer::fadeFrames; i < heard.size(); ++i) {
        if (heard.left[i] != sampleValue(spec, 0, i) || heard.right[i] != sampleValue(spec, 1, i))
            ++different;
    }
    EXPECT_EQ(different, 0U);
}

TEST(PlaybackUntouched, TheOutputEqualsTheSongAgainAfterChangesAndBack)
{
    const auto song = [](std::uint32_t channel, std::uint64_t frame) {
        return noiseAt(static_cast<std::int64_t>(frame), channel, 0.4F);
    };
    Player player(song, 500'000);
    engine::setOutputRunning(true);
    Player::setUnevenEqualizer(9.0F);
    engine::setPlaybackRate(0.75F);
    engine::setPitchCents(-200.0F);
    engine::setOutputVolume(0.3F);
    player.pull(30'000);
    for (std::uint32_t id = 0; id < parameter::equalizerBands; ++id)
        engine::setEqLevel(id, 0.0F);
    engine::setPlaybackRate(1.0F);
    engine::setPitchCents(0.0F);
    engine::setOutputVolume(1.0F);
    player.pull(60'000);
    const Stereo heard = player.pull(20'000);
    // The song continues near the shown position. From there on every sample is the song's own.
    std::uint64_t first = engine::currentFrame() - heard.size() - 20'000;
    const std::uint64_t last = engine::currentFrame();
    while (first < last && heard.left[0] != song(0, first))
        ++first;
    ASSERT_LT(first, last);
    for (std::size_t i = 0; i < heard.size(); ++i) {
        ASSERT_EQ(heard.left[i], song(0, first + i)) << i;
        ASSERT_EQ(heard.right[i], song(1, first + i)) << i;
    }
}

struct Setting {
    int percent;
    float cents = 0.0F;
    double mostAhead = 0.25; ///< the largest lead of the shown position, in seconds

    void apply() const
    {
        engine::setPlaybackRate(static_cast<float>(percent) / 100.0F);
        engine::setPitchCents(cents);
    }
};

void PrintTo(const Setting &setting, std::ostream *stream)
{
    *stream << setting.percent << " %, " << setting.cents << " cents";
}

/// A song of short bursts, one every fifth of a second.
class PositionShown : public testing::TestWithParam<Setting> {
protected:
    static constexpr std::uint64_t distance = 8820;
    static constexpr std::uint64_t burstFrames = 400;

    static float bursts(std::uint32_t, std::uint64_t frame)
    {
        const std::uint64_t since = frame % distance;
        if (since >= burstFrames)
            return 0.0F;
        const double place = static_cast<double>(since) / static_cast<double>(burstFrames);
        return static_cast<float>(0.5 * std::sin(std::numbers::pi * place) *
                                  std::sin(2.0 * std::numbers::pi * 40.0 * place));
    }

    /// The centres of the bursts in `heard`, in frames.
    static std::vector<double> centres(const std::vector<float> &heard, double speed)
    {
        // A burst is a run of frames with sound. The next one is at least half a distance away.
        const auto gap = static_cast<std::size_t>(0.4 * static_cast<double>(distance) / speed);
        std::vector<double> result;
        for (std::size_t i = 0; i < heard.size(); ++i) {
            if (std::abs(heard[i]) < 0.1F)
                continue;
            const std::size_t first = i > gap / 2 ? i - gap / 2 : 0;
            const std::size_t last = std::min(heard.size(), i + gap);
            if (last == i + gap) // the last burst may be cut off
                result.push_back(burstBetween(heard, first, last).centre);
            i = last;
        }
        return result;
    }
};

TEST_P(PositionShown, IsWithinItsLimitOfWhatIsHeard)
{
    constexpr std::uint32_t callback = 128;
    const Setting setting = GetParam();
    const double speed = setting.percent / 100.0;
    Player player(bursts, 30 * 44100);
    setting.apply();
    engine::setOutputRunning(true);
    engine::seekToFrame(10 * distance - 2000);
    Stereo heard;
    std::vector<std::uint64_t> shown; // after each callback
    const auto frames = static_cast<std::size_t>(6.5 * static_cast<double>(distance) / speed);
    while (heard.size() < frames) {
        player.pull(heard, callback, callback);
        shown.push_back(engine::currentFrame());
    }
    const std::vector<double> centre = centres(heard.left, speed);
    ASSERT_GE(centre.size(), 5U);
    ASSERT_LE(centre.size(), 7U);
    double least = 1e9;
    double most = -1e9;
    for (std::size_t i = 0; i < centre.size(); ++i) {
        const double place = static_cast<double>((10 + i) * distance + burstFrames / 2);
        const auto at = static_cast<std::size_t>(centre[i]) / callback;
        const double ahead = (static_cast<double>(shown[at]) - place) / sampleRate;
        least = std::min(least, ahead);
        most = std::max(most, ahead);
    }
    // A device plays frames that were pulled a while ago.
    const double device = speed * deviceFrames / sampleRate;
    std::printf("[ measured ] %3d %% %+5.0f cents: shown ahead of pulled by %.0f to %.0f ms, of "
                "heard through a device by up to %.0f ms\n",
                setting.percent, static_cast<double>(setting.cents), 1000.0 * least, 1000.0 * most,
                1000.0 * (most + device));
    EXPECT_GT(least, 0.0);
    EXPECT_LT(most + device, setting.mostAhead);
}

INSTANTIATE_TEST_SUITE_P(Speeds, PositionShown,
                         testing::Values(Setting{10}, Setting{25}, Setting{50}, Setting{75},
                                         Setting{100}, Setting{125}, Setting{200},
                                         Setting{100, 300.0F}, Setting{200, 300.0F},
                                         Setting{100, -1200.0F}, Setting{100, 1200.0F}));

// At these speeds the stretcher's window moves slowly. More than a quarter of a second is
// unavoidable.
INSTANTIATE_TEST_SUITE_P(DoubleSpeedPitchedDown, PositionShown,
                         testing::Values(Setting{200, -300.0F, 0.26}, Setting{200, -600.0F, 0.3}));

class Clicks : public testing::TestWithParam<Setting> {
protected:
    static void report(const char *what, double level)
    {
        std::printf("[ measured ] %3d %% %+5.0f cents: %s %.1f dB\n", GetParam().percent,
                    static_cast<double>(GetParam().cents), what, level);
    }
};

class ClicksOfSeeks : public Clicks {
protected:
    /// In dB of the tone's own level behind the equalizer.
    static double ofSeeks(float sliders)
    {
        Player player(tone(331.0), 3'000'000);
        Player::setUnevenEqualizer(sliders);
        GetParam().apply();
        engine::setOutputRunning(true);
        player.pull(20'000);
        Stereo heard;
        player.pull(heard, 5000);
        for (std::uint64_t i = 1; i <= 24; ++i) {
            engine::seekToFrame(100'000 * i + 3571 * i);
            player.pull(heard, 6000 + 37 * i, 512);
        }
        double squares = 0.0;
        for (const float sample : player.pull(8820).left)
            squares += static_cast<double>(sample) * static_cast<double>(sample);
        return clickLevel(heard.left, std::sqrt(squares / 4410.0));
    }
};

TEST_P(ClicksOfSeeks, MakeNone)
{
    const double level = ofSeeks(0.0F);
    report("seeks", level);
    EXPECT_LT(level, -60.0);
}

TEST_P(ClicksOfSeeks, MakeNoneWithTheSlidersAtTheirExtremes)
{
    for (const float sliders : {12.0F, -12.0F}) {
        const double level = ofSeeks(sliders);
        report(sliders > 0.0F ? "seeks, sliders at +12, -12 ..." : "seeks, sliders at -12, +12 ...",
               level);
        EXPECT_LT(level, -60.0);
    }
}

INSTANTIATE_TEST_SUITE_P(Settings, ClicksOfSeeks,
                         testing::Values(Setting{100}, Setting{50}, Setting{75}, Setting{125},
                                         Setting{200}, Setting{100, 300.0F},
                                         Setting{100, -1200.0F}));

TEST_P(Clicks, FastSeeksMakeNone)
{
    // Like those of the seek buttons: several within one fade.
    Player player(tone(331.0), 3'000'000);
    GetParam().apply();
    engine::setOutputRunning(true);
    player.pull(20'000);
    Stereo heard;
    player.pull(heard, 5000);
    for (std::uint64_t i = 1; i <= 24; ++i) {
        engine::seekToFrame(60'000 * i + 3571 * i);
        player.pull(heard, 90 + 41 * i, 128);
    }
    player.pull(heard, 3000);
    const double level = clickLevel(heard.left);
    report("hurried seeks", level);
    EXPECT_LT(level, -60.0);
}

TEST_P(Clicks, StopsAndStartsMakeNone)
{
    Player player(tone(331.0), 3'000'000);
    GetParam().apply();
    Stereo heard;
    player.pull(heard, 512);
    for (std::uint64_t i = 1; i <= 12; ++i) {
        engine::setOutputRunning(true);
        player.pull(heard, 7000 + 37 * i);
        engine::setOutputRunning(false);
        EXPECT_FALSE(engine::outputIsRunning());
        const std::uint64_t position = engine::currentFrame();
        player.pull(heard, i % 3 == 0 ? 100 : 3000);
        EXPECT_EQ(engine::currentFrame(), position) << "the position moved while stopped";
    }
    const double level = clickLevel(heard.left);
    report("stops and starts", level);
    EXPECT_LT(level, -60.0);
    EXPECT_GT(*std::max_element(heard.left.begin(), heard.left.end()), 0.4F);
}

TEST_P(Clicks, TheEndOfASongMakesNone)
{
    // A song that breaks off at full level.
    Player player(tone(331.0), 100'000);
    GetParam().apply();
    engine::setOutputRunning(true);
    engine::seekToFrame(80'000);
    player.pull(3000);
    Stereo heard;
    player.pull(heard, 1000);
    for (int i = 0; i < 2000 && !engine::trackHasEnded(); ++i)
        player.pull(heard, 128);
    EXPECT_TRUE(engine::trackHasEnded());
    EXPECT_FALSE(engine::outputIsRunning());
    while (player.output().isPlayingOut() && heard.size() < 200'000)
        player.pull(heard, 128);
    player.pull(heard, 2000);
    EXPECT_EQ(engine::currentFrame(), 100'000U - 2U * TimePitchUnit::sliceFrames);
    EXPECT_EQ(heard.left.back(), 0.0F);
    const double level = clickLevel(heard.left);
    report("end of the song", level);
    EXPECT_LT(level, -60.0);
}

INSTANTIATE_TEST_SUITE_P(Settings, Clicks,
                         testing::Values(Setting{100}, Setting{50}, Setting{200},
                                         Setting{100, 300.0F}));

} // namespace
