#pragma once

#include "practice/TrainerSettings.h"

#include <optional>
#include <vector>

namespace lyrabox {

/// What a player has said of a pass.
enum class PassVerdict { None, Missed, Right };

/// Why a run of the trainer ends.
enum class TrainerEnd {
    ByHand,
    LoopCleared,
    SongChanged, ///< the new song has a speed of its own, so none is restored
    DeviceLost,
    Quit,
};

/// What comes before a pass.
struct BeforePass {
    BetweenPasses kind = BetweenPasses::Nothing;
    int beats = 0; ///< 0 for Nothing

    bool operator==(const BeforePass &) const = default;
};

/// What the strip of the trainer says. The view makes the words.
struct TrainerStrip {
    enum class News {
        None,
        Up,     ///< the speed has just gone up a step
        Down,   ///< the speed has just gone down
        Missed, ///< the last pass was missed, and the speed stays
        AtTop,  ///< the last speed was played as often as needed
    };

    bool isRunning = false;
    double speed = 100.0;             ///< percent
    std::optional<double> tempo = {}; ///< beats per minute at this speed, if the song's is known
    int passesDone = 0;               ///< that count, at this speed
    int passesNeeded = 0;
    int rung = 0;  ///< the highest step of the ladder that is not above the speed, from 1; 0: none
    int rungs = 0; ///< steps of the ladder
    News news = News::None;
    PassVerdict thisPass = PassVerdict::None; ///< what was said of the pass that plays

    bool operator==(const TrainerStrip &) const = default;
};

/// What the caller of the trainer has to do.
struct TrainerOrder {
    enum class Command { None, StopPlaying, NextLoop };

    /// The speed to set, in percent. None: leave it as it is.
    std::optional<double> speed = {};
    Command command = Command::None;
    BeforePass next = {}; ///< what comes before the next pass, as far as is known now
    TrainerStrip strip = {};

    bool operator==(const TrainerOrder &) const = default;
};

/// Takes a player through a ladder of speeds. A step up needs some passes without a miss. A pure
/// state machine: events go in, orders come out. It may be copied at any time. One thread at a
/// time.
///
/// When a run ends, its last order restores the speed from before, however it ended.
class SpeedTrainer {
public:
    /// Until so many seconds into a pass, a verdict is meant for the pass before.
    static constexpr double verdictSeconds = 2.0;

    /// Begins a run. `speedBefore` is the speed that is restored at its end, in percent.
    /// `songTempo` is the song's tempo at 100 %, in beats per minute; 0 if it is not known. Returns
    /// false, and does nothing, if the ladder is in beats per minute and the tempo is not known.
    /// A run that is under way ends; the speed from before that run is kept.
    bool start(TrainerSettings settings, double speedBefore, double songTempo = 0.0);

    bool isRunning() const { return m_isRunning; }
    const TrainerSettings &settings() const { return m_settings; }

    // Events. While no run is under way they have no effect, and their order is empty.
    TrainerOrder passEnded();
    /// `secondsIntoPass` is how long the present pass has been playing.
    TrainerOrder missed(double secondsIntoPass);
    TrainerOrder right(double secondsIntoPass);
    /// The player has set the speed by hand. The present step of the ladder moves there. A speed
    /// that is the present one changes nothing, so the caller may report its own changes as well.
    TrainerOrder speedSet(double percent);
    TrainerOrder stop(TrainerEnd end);

    /// The order without an event.
    TrainerOrder order() const;

    /// What comes before the first pass of the run.
    BeforePass beforeFirstPass() const;

    /// The speeds of the ladder in percent, from the lowest on.
    const std::vector<int> &ladder() const { return m_now.rungs; }

private:
    /// Where the run is.
    struct Place {
        std::vector<int> rungs;
        double speed = 100.0;
        bool goesUp = true;
        int passes = 0; ///< that count, at this speed
        TrainerStrip::News news = TrainerStrip::News::None;
    };

    TrainerOrder::Command judge(PassVerdict verdict);
    TrainerOrder::Command countPass();
    TrainerOrder::Command goOn();
    TrainerOrder::Command arriveAtTop();
    void missPass();
    bool growByTen();
    bool stepUp(int steps);
    bool stepDown(int steps);
    bool isAboutTheLast(double secondsIntoPass, PassVerdict verdict) const;
    TrainerOrder give(PassVerdict verdict, double secondsIntoPass);
    TrainerOrder end(std::optional<double> speed, TrainerOrder::Command command);
    TrainerOrder carriedOut(TrainerOrder::Command command);
    BeforePass beforeNextPass() const;
    int stepInPercent() const;

    TrainerSettings m_settings;
    double m_songTempo = 0.0;
    double m_speedBefore = 100.0;
    bool m_isRunning = false;
    Place m_now;
    PassVerdict m_thisPass = PassVerdict::None;

    Place m_beforeLast; ///< where the run was before the last pass was judged
    PassVerdict m_lastPass = PassVerdict::None;
    bool m_canJudgeLast = false;
};

/// The speeds of a ladder in percent, from the lowest on, each once and within speedRange. A ladder
/// in beats per minute needs a tempo above 0; its speeds are the nearest whole percents.
std::vector<int> ladderSpeeds(TrainerSettings settings, double songTempo);

} // namespace lyrabox
