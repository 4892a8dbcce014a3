#pragma once

namespace lyrabox {

/// In which order the trainer takes the speeds of a ladder.
enum class LadderKind {
    Steady,       ///< one speed, the ladder's start
    Ladder,       ///< up, step by step
    TwoUpOneDown, ///< up two steps, then down one, and so on
    UpAndBack,    ///< up to the top, and down again
};

/// The unit of a ladder's speeds.
enum class TempoUnit {
    Percent,
    BeatsPerMinute, ///< needs the song's tempo
};

/// How passes without a miss add up.
enum class PassCounting {
    InARow, ///< a miss starts the count anew
    InAll,  ///< a miss only does not count
};

/// What the trainer does when a pass was missed.
enum class AfterMiss { Stay, OneDown, TwoDown, ToStart };

/// What the trainer does when the last speed was played as often as needed.
enum class AtTop {
    GoOn,     ///< the speed stays
    Stop,     ///< the music stops
    NextLoop, ///< the next loop of the list
    Again,    ///< from the ladder's start
    TenMore,  ///< the ladder grows by ten percent points, up to the highest speed
};

/// Which passes count.
enum class PassJudging {
    UnlessMissed, ///< every pass that the player does not call missed
    OnlyRight,    ///< only passes that the player calls right; the others are not missed, either
};

/// What comes between two passes.
enum class BetweenPasses {
    Nothing,
    CountIn, ///< clicks in silence, see CountInWhen
    RunUp,   ///< the music before the loop
    Rest,    ///< silence
};

/// Before which passes there is a count-in.
enum class CountInWhen {
    AtPlay,     ///< before the first
    AtNewSpeed, ///< before the first, and after each change of speed
    EveryPass,
    Never,
};

/// How a loop is trained. Plain values.
struct TrainerSettings {
    static constexpr int maximumStep = 100;
    static constexpr int maximumPasses = 99;
    static constexpr int maximumBeats = 24;
    static constexpr int minimumTempo = 5; ///< beats per minute
    static constexpr int maximumTempo = 1000;

    LadderKind kind = LadderKind::Ladder;
    TempoUnit unit = TempoUnit::Percent;
    int from = 60;  ///< in `unit`
    int to = 100;   ///< in `unit`
    int step = 5;   ///< in `unit`; 1 to maximumStep
    int passes = 3; ///< without a miss, at each speed; 1 to maximumPasses
    PassCounting counting = PassCounting::InARow;
    AfterMiss afterMiss = AfterMiss::OneDown;
    AtTop atTop = AtTop::GoOn;
    PassJudging judging = PassJudging::UnlessMissed;
    BetweenPasses between = BetweenPasses::CountIn;
    CountInWhen countInWhen = CountInWhen::AtNewSpeed;
    int beats = 4; ///< of the count-in, run-up or rest; 1 to maximumBeats

    bool operator==(const TrainerSettings &) const = default;
};

/// Brings the numbers within their ranges. A top below the start changes places with it; a steady
/// ladder has no top.
void clean(TrainerSettings &settings);

} // namespace lyrabox
