#pragma once

#include "engine/LoopRange.h"
#include "engine/TrackRecord.h"
#include "practice/LoopRotation.h"
#include "practice/SpeedTrainer.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

class LB_AudioController;

namespace lyrabox {

class DecodedSong;
class SongPractice;

/// Carries out what the trainer decides: counts the passes of the player's loop, sets the speed,
/// and calls up loops. Main thread. Only while a run is on does a timer look for passes.
///
/// A run is about a loop that is called up. It ends when that loop is cleared or another one is
/// called up, with the song, without sound, and with the program. However it ends, the speed is
/// what it was before; only a new song brings its own. The speed of a run is kept nowhere.
class TrainerRun : public QObject {
    Q_OBJECT

public:
    /// Gets what comes before the next pass of a run; none while there is no run.
    using BeforePassHandler = std::function<void(std::optional<BeforePass>)>;

    /// Both must outlive this object.
    TrainerRun(LB_AudioController *audio, SongPractice *practice, QObject *parent = nullptr);
    ~TrainerRun() override;

    /// Who plays count-ins and rests.
    void setBeforePassHandler(BeforePassHandler handler) { m_beforePass = std::move(handler); }

    /// The kept loop that start() would train: that of the run, the one that is called up, or, if
    /// the player repeats none, the selected one. None as well if start() would keep the player's
    /// loop first.
    std::optional<PracticeId> target() const;
    /// The settings of the target. Those of TrainerSettings{} if it has none, or without a target.
    TrainerSettings settings() const;
    /// The tempo of the target or the player's loop at 100 %, in beats per minute; 0 if unknown.
    double songTempo() const;
    /// Keeps settings with the target as a step that can be undone. Keeps the player's loop before
    /// if it is not kept. False if that is not possible. A run goes on with them at its speed, a
    /// rotation does not take them over.
    bool setSettings(const TrainerSettings &settings);

    /// Whether start() would begin a run now.
    bool canStart() const;
    /// Begins a run at the start of the loop. Keeps the player's loop before if it is not kept, and
    /// starts the player. A run that is on begins anew.
    bool start();
    /// Trains these loops in turn. Loops that cannot be played or trained are left out. False if
    /// none is left.
    bool startRotation(const std::vector<PracticeId> &loops, LoopRotation::Turn turn);
    /// Ends the run. Does nothing without one.
    void stop(TrainerEnd reason = TrainerEnd::ByHand);

    bool isRunning() const { return m_loop.has_value(); }
    bool isRotating() const { return m_rotation.has_value(); }
    /// The loop of the run.
    std::optional<PracticeId> loop() const { return m_loop; }

    /// What the player says of a pass. Until two seconds into a pass, the one before is meant.
    void missed() { judge(PassVerdict::Missed); }
    void right() { judge(PassVerdict::Right); }

    /// The run goes on at another speed in percent, as if the player had set it. Does nothing
    /// without a run.
    void goTo(double percent);

    /// Of the run, or of the last one.
    const TrainerStrip &strip() const { return m_strip; }
    /// The speeds of the ladder in percent, from the lowest on; empty without a run.
    std::vector<int> ladder() const;
    /// The unit in which the run's ladder was given.
    TempoUnit unit() const;
    /// Whether the run counts only the passes that were called right.
    bool onlyRightCounts() const;
    /// The speed that follows after passes without a miss; none if no other one does.
    std::optional<double> nextSpeed() const;

    /// Looks for passes that have ended. The timer calls it.
    void poll();

Q_SIGNALS:
    /// The run, its strip or its ladder changed, or what start() would do.
    void changed();
    /// The player says so of a pass, `secondsIntoPass` seconds after the last one that the engine
    /// has played. Sent before the run follows it.
    void judged(lyrabox::PassVerdict verdict, double secondsIntoPass);

private:
    /// What a run must be told of, and whether that has happened.
    void followSong();
    void followLoop();
    void followCalledUp();
    void followRecord();
    void followSpeed();
    bool songHasChanged() const;

    const SpeedTrainer &trainer() const { return m_rotation ? m_rotation->trainer() : m_trainer; }
    std::optional<PracticeId> nextLoop() const;
    bool endsAtNextPass() const;
    void judge(PassVerdict verdict);
    void passEnded();
    void obey(const TrainerOrder &order);
    void carryOut(const TrainerOrder &order);
    void carryOut(const LoopRotation::Order &order);
    void goOnWithNextLoop();
    bool goToLoop(PracticeId loop);
    void begin(PracticeId loop);
    void playFirstPass();
    void prepareNextPass(BeforePass next);
    void finish(const TrainerOrder &last, bool pauses);
    void setSpeed(double percent);
    double secondsIntoPass() const;
    bool knowsAllPasses() const;

    LB_AudioController *m_audio;
    SongPractice *m_practice;
    BeforePassHandler m_beforePass;
    QTimer m_timer;

    SpeedTrainer m_trainer;
    std::optional<LoopRotation> m_rotation;
    std::optional<PracticeId> m_loop;
    LoopRange m_range{.start = 0, .end = 0}; ///< the player's, as it was last seen
    TrackRecordRef m_track;
    std::weak_ptr<const DecodedSong> m_song;
    std::vector<int> m_firstLadder; ///< as it was at the start
    std::uint64_t m_counted = 0;    ///< passes of the engine that the trainer knows
    QElapsedTimer m_sinceLastLook;
    double m_turnSeconds = 0.0; ///< that the loop of a rotation has been playing
    TrainerStrip m_strip;
    bool m_isActing = false; ///< a change of the player comes from here
};

} // namespace lyrabox
