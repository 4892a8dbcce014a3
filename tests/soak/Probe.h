#pragma once

#include <QByteArray>
#include <QObject>
#include <QStringList>

class QSocketNotifier;

namespace lyrabox::soak {

/// Reads questions from the standard input, one per line, and answers each with a line of JSON on
/// the standard output, after the events that are already queued:
///
///     state          broken invariants, visible widgets and their places, the loaded song, memory
///     settings       writes the settings files, then answers like state
///     normal         tries to return to 100 % and pitch 0; answers with the faults found
///     own order      chooses the list's own order; answers with the faults found
///     command TEXT   chooses a command of the menu bar
///
/// It uses the event loop, so it also works during modal dialogs and open menus. Main thread.
class Probe : public QObject {
    Q_OBJECT

public:
    explicit Probe(QObject *parent);

private:
    void read();
    void obey(const QByteArray &question);
    void answer();

    QByteArray m_pending;
    QStringList m_broken; ///< Faults found by the last trial, for its answer.
    QSocketNotifier *m_notifier;
};

} // namespace lyrabox::soak
