// The control side of TimePitch.

#include "platform/audio/TimePitch.h"

#include <cmath>
#include <system_error>

namespace lyrabox {

Status TimePitch::initialize()
{
    const Status engineStatus = m_stretcher.initialize();
    if (engineStatus != status::noError)
        return engineStatus;
    m_history.allocate();
    m_quickStretcher.allocate();
    m_scratch.assign(2 * std::size_t{blockFrames}, 0.0F);
    m_resetRequested.store(Reset::atOnce, std::memory_order_release);
    m_isCold = m_warmUp == WarmUp::InBackground;
    if (!m_isCold)
        warmUp();
    return status::noError;
}

void TimePitch::warmUp()
{
    m_stretcher.warmUp();
    m_ready.store(true, std::memory_order_release);
}

void TimePitch::prepare()
{
    if (!m_isCold)
        return;
    m_isCold = false;
    try {
        m_warmingUp = std::async(std::launch::async, [this] { warmUp(); });
    } catch (const std::system_error &) {
        warmUp(); // The system cannot start a thread.
    }
}

void TimePitch::awaitReady()
{
    prepare();
    if (m_warmingUp.valid())
        m_warmingUp.wait();
}

float TimePitch::parameter(std::uint32_t id) const
{
    switch (id) {
    case parameter::rate:
        return m_rate.load(std::memory_order_relaxed);
    case parameter::pitch:
        return m_pitch.load(std::memory_order_relaxed);
    default:
        return 0.0F;
    }
}

Status TimePitch::setParameter(std::uint32_t id, float value)
{
    if (!std::isfinite(value))
        return status::invalidParameter;
    switch (id) {
    case parameter::rate:
        m_stretcher.refresh();
        m_rate.store(value, std::memory_order_relaxed);
        break;
    case parameter::pitch:
        m_stretcher.refresh();
        m_pitch.store(value, std::memory_order_relaxed);
        break;
    default:
        return status::invalidParameter;
    }
    m_stretcher.refresh(); // The callback thread may have restarted the stretcher since.
    return status::noError;
}

void TimePitch::reset()
{
    m_stretcher.refresh();
    m_resetRequested.store(Reset::atOnce, std::memory_order_release);
    m_stretcher.refresh();
}

void TimePitch::resetAfterPlayOut()
{
    m_stretcher.refresh();
    Reset none = Reset::none; // A pending reset of the other kind stays.
    m_resetRequested.compare_exchange_strong(none, Reset::afterPlayOut, std::memory_order_acq_rel);
    m_stretcher.refresh();
}

Status TimePitch::connect(RenderingUnit *source)
{
    if (source == nullptr)
        return status::noConnection;
    m_source = source;
    return status::noError;
}

double TimePitch::latencyFrames() const noexcept
{
    if (m_resetRequested.load(std::memory_order_acquire) == Reset::atOnce)
        return 0.0;
    return m_latency.load(std::memory_order_relaxed);
}

} // namespace lyrabox
