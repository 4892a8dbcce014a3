#include "platform/foundation/ProgressPacer.h"

#include "platform/foundation/MonotonicClock.h"

#include <utility>

namespace lyrabox {

using namespace std::chrono_literals;

namespace {

constexpr auto quietStart = 250ms;
constexpr auto interval = 50ms;

} // namespace

ProgressPacer::ProgressPacer(ProgressHook hook, ProgressClock clock, qint64 total)
    : m_hook(std::move(hook)), m_clock(clock ? std::move(clock) : &monotonicTime), m_total(total)
{
    if (m_hook)
        m_due = m_clock() + quietStart;
}

void ProgressPacer::advance(qint64 done)
{
    if (!m_hook)
        return;
    const std::chrono::milliseconds now = m_clock();
    if (now < m_due)
        return;
    m_due = now + interval;
    if (m_makeStopProbe)
        m_stopProbe = std::exchange(m_makeStopProbe, {})();
    m_hook(done, m_total);
    m_isStopped = m_isStopped || (m_stopProbe && m_stopProbe());
}

} // namespace lyrabox
