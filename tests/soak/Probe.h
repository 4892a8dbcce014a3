#pragma once

#include <QByteArray>
#include <QObject>
#include <QStringList>

class QSocketNotifier;

namespace lyrabox::soak {

/// Answers questions on the standard input, a line each, with a line of JSON on the standard output
/// (after whatever else the event loop has in hand):
///
///     state          broken invariants, what is on the screen and where, what is loaded, memory
///     settings       writes the settings files, then as state
///     normal         tries the way back to 100 % and pitch 0; what it has found wrong
///     own order      chooses the list's own order; what is wrong then
///     command TEXT   chooses a command of the menu bar
///
/// Works in modal dialogs and open menus as well, since it lives on the event loop. Main thread.
class Probe : public QObject {
    Q_OBJECT

public:
    explicit Probe(QObject *parent);

private:
    void read();
    void obey(const QByteArray &question);
    void answer();

    QByteArray m_pending;
    QStringList m_broken; ///< what the trial has found, told with its answer
    QSocketNotifier *m_notifier;
};

} // namespace lyrabox::soak
