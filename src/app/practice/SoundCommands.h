#pragma once

#include "app/practice/CommandSet.h"

namespace lyrabox {

class SongSound;
class SongTones;

/// The commands of channels and tuning. Main thread.
class SoundCommands : public CommandSet {
    Q_OBJECT

public:
    /// Both must outlive the use of this object.
    SoundCommands(SongSound *sound, SongTones *tones, QObject *parent = nullptr);

    bool canPerform(PracticeCommand command, int argument = 0) const override;
    void perform(PracticeCommand command, int argument = 0) override;
    bool isChecked(PracticeCommand command, int argument = 0) const override;

private:
    SongSound *m_sound;
    SongTones *m_tones;
};

} // namespace lyrabox
