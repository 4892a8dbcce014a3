#pragma once

#include <QTimer>

#include <functional>

namespace lyrabox {

/// Calls a function after a delay and then at a fixed period until stopped. Tests replace it with a
/// source that they trigger themselves.
class PeriodicEvents {
public:
    virtual ~PeriodicEvents() = default;

    /// Starts the events. Times are in seconds. Replaces events that are already running.
    virtual void start(double delaySeconds, double periodSeconds, std::function<void()> event) = 0;
    /// Stops the events; none comes afterwards. The event itself may call this.
    virtual void stop() = 0;
};

/// Periodic events from the event loop's timers. Main thread.
class TimerPeriodicEvents : public PeriodicEvents {
public:
    TimerPeriodicEvents();
    void start(double delaySeconds, double periodSeconds, std::function<void()> event) override;
    void stop() override;

private:
    QTimer m_timer;
    int m_period = 0; ///< in milliseconds
    std::function<void()> m_event;
};

} // namespace lyrabox
