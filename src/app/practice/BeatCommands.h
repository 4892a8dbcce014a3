#pragma once

#include "app/practice/CommandSet.h"

namespace lyrabox {

class SongBeats;
class WaveView;

/// Carries out the commands on the beats of the song. Main thread.
class BeatCommands : public CommandSet {
    Q_OBJECT

public:
    /// Both must outlive this object. `wave` tells where the line is.
    BeatCommands(SongBeats *beats, const WaveView *wave, QObject *parent = nullptr);

    bool canPerform(PracticeCommand command, int argument = 0) const override;
    void perform(PracticeCommand command, int argument = 0) override;

private:
    SongBeats *m_beats;
    const WaveView *m_wave;
};

} // namespace lyrabox
