#pragma once

#include "practice/SpeedTrainer.h"

#include <gmock/gmock.h>

#include <vector>

namespace lyrabox::test {

/// A trainer and a player who plays passes.
class TrainerFixture : public testing::Test {
protected:
    static constexpr double late = 10.0; ///< seconds into a pass, when a verdict is meant for it
    static constexpr double soon = 1.0;  ///< when it is meant for the pass before

    /// Five steps from 60 to 100 %, one pass at each.
    static TrainerSettings quick()
    {
        TrainerSettings settings;
        settings.step = 10;
        settings.passes = 1;
        return settings;
    }

    /// The speeds after each of so many passes.
    std::vector<double> speedsOf(int passes)
    {
        std::vector<double> speeds;
        for (int i = 0; i < passes; ++i)
            speeds.push_back(trainer.passEnded().speed.value_or(-1.0));
        return speeds;
    }

    double miss()
    {
        trainer.missed(late);
        return trainer.passEnded().speed.value_or(-1.0);
    }

    double speed() const { return trainer.order().strip.speed; }

    SpeedTrainer trainer;
};

} // namespace lyrabox::test
