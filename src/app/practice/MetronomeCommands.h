#pragma once

#include "app/practice/CommandSet.h"

namespace lyrabox {

class Metronome;

/// The commands of the click and the count-in. Main thread.
class MetronomeCommands : public CommandSet {
    Q_OBJECT

public:
    /// `metronome` must outlive the use of this object.
    explicit MetronomeCommands(Metronome *metronome, QObject *parent = nullptr);

    bool canPerform(PracticeCommand command, int argument = 0) const override;
    void perform(PracticeCommand command, int argument = 0) override;
    bool isChecked(PracticeCommand command, int argument = 0) const override;

Q_SIGNALS:
    /// The user wants to change the settings of the click, or of the count-in.
    void clickSettingsWanted();
    void countInSettingsWanted();

private:
    Metronome *m_metronome;
};

} // namespace lyrabox
