// The control side of the time/pitch stage.

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
    m_cover.allocate();
    m_scratch.assign(2 * std::size_t{blockFrames}, 0.0F);
    m_resetRequested.store(Reset::atOnce, std::memory_order_release);
    m_isCold = m_warmUp == WarmUp::Beside;
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
        warmUp(); // no thread to be had
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
        m_rate.store(value, std::memory_order_relaxed);
        return status::noError;
    case parameter::pitch:
        m_pitch.store(value, std::memory_order_relaxed);
        return status::noError;
    default:
        return status::invalidParameter;
    }
}

void TimePitch::reset()
{
    m_resetRequested.store(Reset::atOnce, std::memory_order_release);
}

void TimePitch::resetAfterPlayOut()
{
    Reset none = Reset::none; // a reset at once that is pending stays one
    m_resetRequested.compare_exchange_strong(none, Reset::afterPlayOut, std::memory_order_acq_rel);
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
