#include "platform/foundation/ProgressPacer.h"

#include "platform/foundation/MonotonicClock.h"

#include <utility>

namespace lyrabox {

using namespace std::chrono_literals;

namespace {

constexpr auto interval = 50ms;

} // namespace

ProgressPacer::ProgressPacer(ProgressHook hook, ProgressClock clock, qint64 total)
    : m_hook(std::move(hook)), m_clock(clock ? std::move(clock) : &monotonicTime), m_total(total)
{
    if (m_hook)
        m_due = m_clock() + quietStart;
}

void ProgressPacer::setFirstGlance(std::function<void()> glance, std::chrono::milliseconds delay)
{
    if (!m_hook)
        return;
    m_glance = std::move(glance);
    m_glanceDue = m_due - quietStart + delay;
}

void ProgressPacer::advance(qint64 done)
{
    if (!m_hook)
        return;
    const std::chrono::milliseconds now = m_clock();
    if (m_glance && now >= m_glanceDue)
        std::exchange(m_glance, {})();
    if (now < m_due)
        return;
    m_due = now + interval;
    if (m_makeStopProbe)
        m_stopProbe = std::exchange(m_makeStopProbe, {})();
    m_hook(done, m_total);
    m_isStopped = m_isStopped || (m_stopProbe && m_stopProbe());
}

} // namespace lyrabox
