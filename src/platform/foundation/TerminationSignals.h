#pragma once

#include <QObject>

#include <functional>

class QSocketNotifier;

namespace lyrabox {

/// Turns SIGTERM, SIGINT and SIGHUP into a call on the main thread, so that the program ends in
/// order. One object per process.
class TerminationSignals : public QObject {
    Q_OBJECT

public:
    explicit TerminationSignals(std::function<void()> terminate, QObject *parent = nullptr);
    ~TerminationSignals() override;

    /// Whether such a signal has come. For work that keeps the main thread from handling events.
    static bool haveCome();

private:
    std::function<void()> m_terminate;
    QSocketNotifier *m_notifier;
};

} // namespace lyrabox
