#pragma once

#include <QKeySequence>
#include <QList>
#include <QString>

namespace lyrabox {

/// The commands of the menu "Practice".
enum class PracticeCommand { ZoomIn, ZoomOut, ZoomToLoop, WholeSong, Follow };

/// A command with its text and its keys. The menu, the help and the tool tips are made of these,
/// and a test compares the guide with them.
struct PracticeCommandEntry {
    PracticeCommand command;
    QString text; ///< translated, with a mnemonic
    QList<QKeySequence> keys;
    bool isCheckable = false;
    bool beginsGroup = false; ///< in the menu

    /// The text without its mnemonic.
    QString name() const;
    /// The first key as the desktop writes it; empty if there is none.
    QString keyText() const;
};

/// All commands, in the order of the menu. Main thread.
QList<PracticeCommandEntry> practiceCommands();

/// The entry of one command.
PracticeCommandEntry practiceCommand(PracticeCommand command);

/// The key that shows and hides the pane.
inline const QKeySequence practicePaneKey{Qt::CTRL | Qt::Key_3};

} // namespace lyrabox
