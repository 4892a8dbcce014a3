#pragma once

#include "PracticingFixture.h"
#include "app/practice/TrainerRun.h"
#include "engine/ClicksAndLeadIns.h"

#include <vector>

namespace lyrabox::test {

/// A trainer on a player without a device. Passes are played by pulling the output.
class TrainerRunFixture : public PracticingFixture {
protected:
    static constexpr std::uint32_t slice = TimePitchUnit::sliceFrames;
    static constexpr std::uint64_t loopFrames = 100 * slice; // 0.3 s

    TrainerRunFixture()
    {
        run = std::make_unique<TrainerRun>(&audio(), practice.get());
        run->setBeforePassHandler(
            [this](std::optional<BeforePass> before) { wanted.push_back(before); });
        load(QStringLiteral("A"));
        loop = addLoop(firstFrame, firstFrame + loopFrames, QStringLiteral("Riff"));
    }

    /// Steps of 10 from 60 to 100 %, one pass at each, nothing between.
    static TrainerSettings quick()
    {
        TrainerSettings settings;
        settings.step = 10;
        settings.passes = 1;
        settings.between = BetweenPasses::Nothing;
        return settings;
    }

    void train(const TrainerSettings &settings)
    {
        keep(loop, settings);
        ASSERT_TRUE(practice->play(loop));
        ASSERT_TRUE(run->start());
    }

    void keep(PracticeId id, const TrainerSettings &settings)
    {
        PracticeLoop changed = *record().loop(id);
        changed.trainer = settings;
        ASSERT_TRUE(practice->store().apply({PutLoop{changed}}));
    }

    /// Plays to the end of the loop, and into the next pass.
    void playPass()
    {
        const std::uint64_t before = engine::passes().heard;
        for (int i = 0; i < 100'000 && engine::passes().heard == before; ++i) {
            transport.audio.pull(slice);
            run->poll();
        }
        ASSERT_GT(engine::passes().heard, before);
        run->poll();
    }

    void playSeconds(double length)
    {
        transport.audio.pull(static_cast<std::uint32_t>(length * rate));
    }

    float speed() const { return audio().playbackSpeedPct(); }

    static constexpr std::uint64_t firstFrame = 10 * rate;
    std::unique_ptr<TrainerRun> run;
    PracticeId loop = 0;
    std::vector<std::optional<BeforePass>> wanted; ///< what the run asked for, in turn
};

} // namespace lyrabox::test
