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

/// A device that takes no frames for so long may hang.
std::chrono::milliseconds pullPatience(std::uint32_t latencyFrames)
{
    using namespace std::chrono;
    const duration<double> latency(latencyFrames / canonicalStreamFormat().mSampleRate);
    return 2 * duration_cast<milliseconds>(latency) + milliseconds(60);
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

void CubebOutput::expectStart() noexcept
{
    if (!isReachable() || m_deviceStarted || m_session->status() != status::noError)
        return;
    m_session->runWithSilence();
    m_deviceMayRun = true;
}

Status CubebOutput::start()
{
    if (m_source == nullptr)
        return status::noConnection;
    m_runsWithoutDevice.store(true);
    if (!isReachable())
        return deviceStatus();
    if (std::exchange(m_deviceMayRun, false)) {
        const Status kept = m_session->keepRunning();
        if (kept == status::soundServerHangs)
            return giveUp();
        m_deviceStarted = kept == status::noError;
    }
    m_session->renderer().start();
    if (const Status lost = m_session->status())
        return lost;
    // After a stop from within the callback, and shortly after every other one, the device runs.
    if (!m_deviceStarted) {
        const Status status = m_session->start();
        if (status == status::soundServerHangs)
            return giveUp();
        m_deviceStarted = status == status::noError;
    }
    m_seenCallbacks = m_session->callbacks();
    m_seenAt = std::chrono::steady_clock::now();
    return m_deviceStarted ? status::noError : status::noAudioDevice;
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
    renderer.waitUntilIdle();
    m_deviceStarted = false;
    m_deviceMayRun = waitForPull();
    const Status status = m_deviceMayRun ? m_session->haltWhenIdle() : m_session->halt();
    if (status == status::soundServerHangs) {
        m_deviceMayRun = false;
        giveUp();
    }
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
    if (!isReachable())
        return 0;
    // The device is full right after a callback, and holds less and less until the next one.
    const std::uint32_t latency = m_session->latencyFrames();
    return m_session->renderer().heldFrames(latency -
                                            std::min(latency, m_session->framesSincePull()));
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

/// Waits until the device takes frames again, which shows that the server does not hang. Devices do
/// so every 9 to 18 ms with the preferred latency. Returns false if it took too long.
bool CubebOutput::waitForPull() const noexcept
{
    const std::uint64_t before = m_session->callbacks();
    const auto deadline =
        std::chrono::steady_clock::now() + pullPatience(m_session->latencyFrames());
    while (m_session->callbacks() == before) {
        if (m_session->status() != status::noError || std::chrono::steady_clock::now() >= deadline)
            return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return true;
}

/// Closing the stream drops the frames that it holds, which could click. So this function waits
/// until the device has played the fade-out and holds only silence. It stops waiting if the device
/// no longer pulls frames.
void CubebOutput::waitForSilence() const noexcept
{
    using namespace std::chrono;
    const std::uint32_t held = m_session->latencyFrames();
    const auto deadline = steady_clock::now() + pullPatience(held);
    while (m_session->status() == status::noError && m_session->renderer().silentFrames() < held &&
           steady_clock::now() < deadline)
        std::this_thread::sleep_for(milliseconds(1));
}

void CubebOutput::close() noexcept
{
    if (m_deviceMayRun && isReachable())
        waitForSilence();
    if (m_session)
        m_session->close();
    m_session.reset();
    m_deviceStarted = false;
    m_deviceMayRun = false;
    m_runsWithoutDevice.store(false);
}

} // namespace lyrabox
