#include "platform/output/CubebOutput.h"

#include "platform/audio/OutputRenderer.h"
#include "platform/audio/StreamFormat.h"
#include "platform/output/CubebSession.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <thread>
#include <utility>

namespace lyrabox {
namespace {

/// The latency set by the environment, in frames. Returns the preferred latency if none is set, or
/// if the value is smaller than that or above CubebOutput::longestLatencyMilliseconds.
std::uint32_t wantedLatencyFrames()
{
    const char *text = std::getenv(CubebOutput::latencyVariable);
    if (text == nullptr)
        return CubebOutput::preferredLatencyFrames;
    const char *end = text + std::strlen(text);
    std::uint32_t milliseconds = 0;
    const auto [rest, error] = std::from_chars(text, end, milliseconds);
    if (error != std::errc() || rest != end ||
        milliseconds > CubebOutput::longestLatencyMilliseconds)
        return CubebOutput::preferredLatencyFrames;
    const double frames = canonicalStreamFormat().mSampleRate * milliseconds / 1000.0;
    return std::max(CubebOutput::preferredLatencyFrames, static_cast<std::uint32_t>(frames));
}

} // namespace

CubebOutput::~CubebOutput()
{
    stop();
    close();
}

void CubebOutput::setLossListener(std::function<void()> listener)
{
    m_lossListener = std::move(listener);
}

Status CubebOutput::deviceStatus() const noexcept
{
    if (!m_session)
        return status::noAudioDevice;
    if (const Status status = m_session->status())
        return status;
    const auto now = std::chrono::steady_clock::now();
    const bool plays = m_deviceStarted && m_session->renderer().isRunning();
    if (!plays || m_session->callbacks() != m_seenCallbacks) {
        m_seenCallbacks = m_session->callbacks();
        m_seenAt = now;
    }
    return now - m_seenAt < serverPatience ? status::noError : status::soundServerHangs;
}

Status CubebOutput::initialize()
{
    stop();
    close();
    m_session = CubebSession::make(m_lossListener);
    if (!m_session)
        return status::noAudioDevice;
    m_session->renderer().setVolume(m_volume);
    m_session->renderer().connect(m_source);
    const Status status = m_session->open(wantedLatencyFrames());
    if (status == status::soundServerHangs) {
        giveUp();
        return status::noError;
    }
    if (status != status::noError)
        close();
    return status;
}

float CubebOutput::parameter(std::uint32_t id) const
{
    return id == parameter::outputVolume ? m_volume : 0.0F;
}

Status CubebOutput::setParameter(std::uint32_t id, float value)
{
    if (id != parameter::outputVolume || !std::isfinite(value))
        return status::invalidParameter;
    m_volume = value;
    if (m_session)
        m_session->renderer().setVolume(value);
    return status::noError;
}

void CubebOutput::reset()
{
    if (m_session)
        m_session->renderer().requestReset();
}

Status CubebOutput::connect(RenderingUnit *source)
{
    if (source == nullptr)
        return status::noConnection;
    m_source = source;
    if (isReachable())
        m_session->renderer().connect(source);
    return status::noError;
}

Status CubebOutput::start()
{
    if (m_source == nullptr)
        return status::noConnection;
    m_runsWithoutDevice.store(true);
    if (!isReachable())
        return deviceStatus();
    m_session->renderer().start();
    if (const Status lost = m_session->status())
        return lost;
    // After a stop from within the callback the device still runs.
    if (m_deviceStarted)
        return status::noError;
    const Status status = m_session->start();
    if (status == status::soundServerHangs)
        return giveUp();
    m_deviceStarted = status == status::noError;
    m_seenCallbacks = m_session->callbacks();
    m_seenAt = std::chrono::steady_clock::now();
    return status;
}

Status CubebOutput::stop() noexcept
{
    m_runsWithoutDevice.store(false);
    if (!isReachable())
        return status::noError;
    OutputRenderer &renderer = m_session->renderer();
    renderer.stop();
    if (renderer.isRenderingHere() || !m_deviceStarted)
        return status::noError;
    waitForSilence();
    if (m_session->halt() == status::soundServerHangs) {
        giveUp();
        return status::noError;
    }
    renderer.waitUntilIdle();
    renderer.clear();
    m_deviceStarted = false;
    return status::noError;
}

bool CubebOutput::isRunning() const noexcept
{
    return isReachable() ? m_session->renderer().isRunning() : m_runsWithoutDevice.load();
}

bool CubebOutput::isPlayingOut() const noexcept
{
    return isReachable() && m_session->renderer().isPlayingOut();
}

std::uint32_t CubebOutput::heldFrames() const noexcept
{
    return isReachable() ? m_session->renderer().heldFrames(m_session->latencyFrames()) : 0;
}

bool CubebOutput::isReachable() const noexcept
{
    return m_session && !m_session->isCutOff();
}

/// Records that the session was cut off, and reports the loss.
Status CubebOutput::giveUp() noexcept
{
    m_deviceStarted = false;
    if (m_lossListener)
        m_lossListener();
    return status::soundServerHangs;
}

/// Halting the device drops the frames that it holds, which could click. So this function waits
/// until the device has played the fade-out and holds only silence. It stops waiting if the device
/// no longer pulls frames.
void CubebOutput::waitForSilence() const noexcept
{
    using namespace std::chrono;
    const double rate = canonicalStreamFormat().mSampleRate;
    const std::uint32_t held = m_session->latencyFrames();
    const auto latency = duration_cast<milliseconds>(duration<double>(held / rate));
    const auto deadline = steady_clock::now() + 2 * latency + milliseconds(60);
    while (m_session->status() == status::noError && m_session->renderer().silentFrames() < held &&
           steady_clock::now() < deadline)
        std::this_thread::sleep_for(milliseconds(1));
}

void CubebOutput::close() noexcept
{
    if (m_session)
        m_session->close();
    m_session.reset();
    m_deviceStarted = false;
    m_runsWithoutDevice.store(false);
}

} // namespace lyrabox
