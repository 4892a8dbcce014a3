#pragma once

#include "practice/PracticeRecord.h"
#include "practice/SpeedTrainer.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <random>
#include <vector>

namespace lyrabox {

/// Trains several loops in turn, in shuffled rounds. Each loop keeps its own ladder, and goes on
/// where it was left. No loop follows itself unless it is the only one. One thread at a time.
class LoopRotation {
public:
    /// How long a loop stays.
    struct Turn {
        enum class Unit { Passes, Minutes };
        static constexpr int maximum = 999;

        Unit unit = Unit::Passes;
        int amount = 5; ///< 1 to maximum; others count as the nearest one
    };

    /// A loop and how it is trained.
    struct Loop {
        PracticeId id = 0;
        TrainerSettings settings = {};
    };

    /// What the caller has to do.
    struct Order {
        TrainerOrder trainer;
        bool loopChanges = false; ///< current() is another loop now: play it from its start
        bool hasEnded = false;    ///< no loop is left, or a ladder ended with a stop
    };

    /// The same `seed` gives the same order everywhere. Loops that cannot be trained (their ladder
    /// is in beats per minute and `songTempo` is 0) and loops that occur twice are left out.
    LoopRotation(const std::vector<Loop> &loops, Turn turn, std::uint64_t seed, double speedBefore,
                 double songTempo = 0.0);

    /// The loop that is trained. None if there is none left.
    std::optional<PracticeId> current() const;

    /// All loops that take part.
    std::vector<PracticeId> loops() const { return m_order; }

    /// The trainer of the current loop. Only if there is one.
    const SpeedTrainer &trainer() const { return m_trainers.at(m_order[m_at]); }

    /// A pass of the current loop has ended. `secondsInTurn` is the time since its turn began.
    Order passEnded(double secondsInTurn);
    /// A verdict right after a change of the loop is meant for the last pass of the former loop.
    Order missed(double secondsIntoPass) { return give(PassVerdict::Missed, secondsIntoPass); }
    Order right(double secondsIntoPass) { return give(PassVerdict::Right, secondsIntoPass); }
    Order speedSet(double percent);
    /// The turn goes to the next loop at once.
    Order skip();
    /// The loop was deleted or unticked.
    Order remove(PracticeId id);
    Order stop(TrainerEnd end);

private:
    Order give(PassVerdict verdict, double secondsIntoPass);
    Order changed(bool loopChanges) const;
    Order ended(TrainerEnd reason);
    Order endedBy(const TrainerOrder &order);
    void goToNext();
    void shuffle();

    Turn m_turn;
    std::mt19937_64 m_random;
    double m_speedBefore = 100.0;
    std::map<PracticeId, SpeedTrainer> m_trainers;
    std::vector<PracticeId> m_order; ///< of this round
    std::size_t m_at = 0;
    int m_passes = 0;                   ///< of this turn
    std::optional<PracticeId> m_former; ///< the loop before, until a pass of the current one ended
};

} // namespace lyrabox
