#pragma once

#include "app/practice/CommandSet.h"

namespace lyrabox {

/// Carries out the command that shows the history. Main thread.
class HistoryCommands : public CommandSet {
    Q_OBJECT

public:
    using CommandSet::CommandSet;

    bool canPerform(PracticeCommand command, int argument = 0) const override;
    void perform(PracticeCommand command, int argument = 0) override;

Q_SIGNALS:
    /// The user wants to see the history.
    void historyWanted();
};

} // namespace lyrabox
