#include "navigation/PeriodicEvents.h"

#include <QtMath>

namespace lyrabox {

namespace {
int milliseconds(double seconds)
{
    return qRound(seconds * 1000.0);
}
} // namespace

TimerPeriodicEvents::TimerPeriodicEvents()
{
    m_timer.setTimerType(Qt::PreciseTimer);
    QObject::connect(&m_timer, &QTimer::timeout, [this] {
        m_timer.setInterval(m_period);
        const auto event = m_event; // A copy, because the event may stop the timer.
        event();
    });
}

void TimerPeriodicEvents::start(double delaySeconds, double periodSeconds,
                                std::function<void()> event)
{
    m_event = std::move(event);
    m_period = milliseconds(periodSeconds);
    m_timer.start(milliseconds(delaySeconds));
}

void TimerPeriodicEvents::stop()
{
    m_timer.stop();
}

} // namespace lyrabox
