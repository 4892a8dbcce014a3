#pragma once

#include <QByteArray>
#include <QObject>

class QSocketNotifier;

namespace lyrabox::soak {

/// Answers questions on the standard input, a line each, with a line of JSON on the standard output
/// (after whatever else the event loop has in hand):
///
///     state    broken invariants, what is on the screen and where, what is loaded, memory
///     settings writes the settings files, then as state
///
/// Works in modal dialogs and open menus as well, since it lives on the event loop. Main thread.
class Probe : public QObject {
    Q_OBJECT

public:
    explicit Probe(QObject *parent);

private:
    void read();
    void answer();

    QByteArray m_pending;
    QSocketNotifier *m_notifier;
};

} // namespace lyrabox::soak
