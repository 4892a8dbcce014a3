#pragma once

#include "app/practice/LoopHands.h"
#include "app/practice/PracticeCommands.h"
#include "practice/PracticeEdits.h"

#include <QObject>

#include <optional>

class LB_AudioController;

namespace lyrabox {

class SongPeaks;
class SongPractice;

/// Carries out the commands on loops and markers. Main thread.
class LoopCommands : public QObject {
    Q_OBJECT

public:
    /// All must outlive this object. `peaks` has the samples of the song.
    LoopCommands(LB_AudioController *audio, SongPractice *practice, const SongPeaks *peaks,
                 QObject *parent = nullptr);

    /// Whether the command would do something now. False for a command that is not on loops or
    /// markers.
    bool canPerform(PracticeCommand command, int argument = 0) const;

    /// Carries out a command; does nothing if it cannot be carried out.
    void perform(PracticeCommand command, int argument = 0);

Q_SIGNALS:
    /// canPerform() of some command may have changed.
    void changed();

private:
    void performOnList(PracticeCommand command, int argument);
    void playLoop(PracticeId loop);
    std::optional<PracticeId> neighbourLoop(bool isNext) const;
    std::optional<PracticeId> neighbourMarker(bool isNext) const;
    void changeLoop(loopHands::Grip grip, LoopRange range, PracticeStep step = PracticeStep::New);
    void move(PracticeCommand command, int milliseconds);
    void keepSpeed(std::optional<int> speed, std::optional<int> pitch);
    void playSelected();
    std::optional<PracticeId> named() const;

    /// Moves of the loop in a row, which are one step of undo.
    struct Run {
        PracticeCommand command;
        int argument;
        bool operator==(const Run &) const = default;
    };

    LB_AudioController *m_audio;
    SongPractice *m_practice;
    const SongPeaks *m_peaks;
    std::optional<Run> m_run;
    bool m_isMoving = false;
};

} // namespace lyrabox
