#pragma once

#include "app/practice/CommandSet.h"

namespace lyrabox {

class RotationBox;
class TrainerRun;

/// Carries out the commands of the trainer. Main thread.
class TrainerCommands : public CommandSet {
    Q_OBJECT

public:
    /// Both must outlive this object.
    TrainerCommands(TrainerRun *run, const RotationBox *rotation, QObject *parent = nullptr);

    bool canPerform(PracticeCommand command, int argument = 0) const override;
    void perform(PracticeCommand command, int argument = 0) override;
    bool isChecked(PracticeCommand command, int argument = 0) const override;

private:
    TrainerRun *m_run;
    const RotationBox *m_rotation;
};

} // namespace lyrabox
