#pragma once

#include <QTimer>

#include <functional>

namespace lyrabox {

/// Calls back after a first delay and then at a fixed period, until it is stopped. A test replaces
/// it by one that is driven by hand.
class PeriodicEvents {
public:
    virtual ~PeriodicEvents() = default;
    virtual void start(double delaySeconds, double periodSeconds, std::function<void()> event) = 0;
    virtual void stop() = 0;
};

/// The same by the event loop's timers. Main thread.
class TimerPeriodicEvents : public PeriodicEvents {
public:
    TimerPeriodicEvents();
    void start(double delaySeconds, double periodSeconds, std::function<void()> event) override;
    void stop() override;

private:
    QTimer m_timer;
    int m_period = 0;
    std::function<void()> m_event;
};

} // namespace lyrabox
