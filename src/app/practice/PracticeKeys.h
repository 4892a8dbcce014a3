#pragma once

#include "app/practice/PracticeCommands.h"

#include <QKeySequence>
#include <QList>
#include <QObject>

#include <functional>

class QWidget;

namespace lyrabox {

/// Gives the keys of the practice pane what their shortcuts cannot. The digits of the upper row
/// work by their position. Keys whose command is disabled do nothing at all, so that they don't
/// search in a list. Text fields get every key without Ctrl, and Alt with a letter types nothing
/// there. Main thread.
class PracticeKeys : public QObject {
    Q_OBJECT

public:
    /// `playLoop` is called with 1 to 9.
    explicit PracticeKeys(std::function<void(int)> playLoop, QObject *parent = nullptr);

    /// The commands with the keys that they have now, in place of the built-in ones.
    void setEntries(const QList<PracticeCommandEntry> &entries);

    /// Nothing happens while it is not active.
    void setActive(bool active);

    /// Keys of the windows added here are watched. They must outlive this object.
    void addWindow(const QWidget *window) { m_windows.append(window); }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    std::function<void(int)> m_playLoop;
    QList<const QWidget *> m_windows;
    QList<QKeySequence> m_everywhere; ///< keys without Ctrl that work in both windows
    QList<QKeySequence> m_all;        ///< those, and the ones that work in the pane
    QList<int> m_digits;              ///< that play a loop
    bool m_isActive = false;
};

} // namespace lyrabox
