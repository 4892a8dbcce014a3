#pragma once

#include <QObject>

#include <functional>

class QSocketNotifier;

namespace lyrabox {

/// Turns the signals SIGTERM, SIGINT and SIGHUP into a call of a function on the main thread, so
/// that the program can end properly. At most one object at a time, on the main thread.
class TerminationSignals : public QObject {
    Q_OBJECT

public:
    /// `terminate` is called from the event loop, once for each batch of signals.
    explicit TerminationSignals(std::function<void()> terminate, QObject *parent = nullptr);
    ~TerminationSignals() override;

    /// Whether such a signal has arrived since the object was made. For work that blocks the event
    /// loop of the main thread. Any thread.
    static bool haveCome();

private:
    std::function<void()> m_terminate;
    QSocketNotifier *m_notifier;
};

} // namespace lyrabox
