#pragma once

#include "app/practice/CommandSet.h"
#include "app/practice/LoopHands.h"
#include "practice/PracticeEdits.h"

#include <optional>

class LB_AudioController;

namespace lyrabox {

class SongPeaks;
class SongPractice;

/// Carries out the commands on loops and markers. Main thread.
class LoopCommands : public CommandSet {
    Q_OBJECT

public:
    /// All must outlive this object. `peaks` has the samples of the song.
    LoopCommands(LB_AudioController *audio, SongPractice *practice, const SongPeaks *peaks,
                 QObject *parent = nullptr);

    bool canPerform(PracticeCommand command, int argument = 0) const override;
    void perform(PracticeCommand command, int argument = 0) override;

Q_SIGNALS:
    /// The user wants to delete what is selected in the list.
    void removeWanted();

private:
    void performOnList(PracticeCommand command, int argument);
    void playLoop(PracticeId loop);
    std::optional<PracticeId> neighbourLoop(bool isNext) const;
    std::optional<PracticeId> neighbourMarker(bool isNext) const;
    void changeLoop(loopHands::Grip grip, LoopRange range, PracticeStep step = PracticeStep::New);
    void move(PracticeCommand command, int milliseconds);
    LoopRange moved(loopHands::Grip grip, int milliseconds) const;
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
