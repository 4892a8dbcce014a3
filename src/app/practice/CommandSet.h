#pragma once

#include "app/practice/PracticeCommands.h"

#include <QObject>

namespace lyrabox {

/// Carries out some of the commands of the menu "Practice". The pane asks all its sets, so a set
/// leaves the commands of the others alone. Main thread.
class CommandSet : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    /// Whether the command would do something now. False for a command of another set.
    virtual bool canPerform(PracticeCommand command, int argument = 0) const = 0;

    /// Carries out a command; does nothing if it cannot be carried out.
    virtual void perform(PracticeCommand command, int argument = 0) = 0;

    /// Whether the check mark of a command is set. False for a command of another set.
    virtual bool isChecked([[maybe_unused]] PracticeCommand command,
                           [[maybe_unused]] int argument = 0) const
    {
        return false;
    }

Q_SIGNALS:
    /// canPerform() or isChecked() of some command may have changed.
    void changed();
};

} // namespace lyrabox
