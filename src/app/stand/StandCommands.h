#pragma once

#include "app/practice/CommandSet.h"

namespace lyrabox {

/// Carries out the command that shows the stand view. Main thread.
class StandCommands : public CommandSet {
    Q_OBJECT

public:
    using CommandSet::CommandSet;

    bool canPerform(PracticeCommand command, int argument = 0) const override;
    void perform(PracticeCommand command, int argument = 0) override;
    bool isChecked(PracticeCommand command, int argument = 0) const override;

    /// Whether the stand view is shown now.
    void setShown(bool shown);

Q_SIGNALS:
    /// The user wants to see the stand view, or no longer.
    void standViewWanted(bool shown);

private:
    bool m_isShown = false;
};

} // namespace lyrabox
