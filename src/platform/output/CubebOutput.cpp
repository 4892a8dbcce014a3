#include "platform/output/CubebOutput.h"

#include "platform/audio/StreamFormat.h"

#include <cubeb/cubeb.h>

#include <pthread.h>
#include <sched.h>

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <thread>

namespace lyrabox {
namespace {

/// What the environment asks for, in frames; the preferred latency when it asks for none, for less
/// or for more than CubebOutput::longestLatencyMilliseconds.
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

/// Threads inherit the priority, and processes must not: PulseAudio's library may start a server.
void startProcessesAsUsual()
{
    [[maybe_unused]] static const int registered = pthread_atfork(nullptr, nullptr, [] {
        constexpr sched_param usual{};
        if (sched_getscheduler(0) == SCHED_RR)
            sched_setscheduler(0, SCHED_OTHER, &usual);
    });
}

/// While it lives, a thread that the calling thread begins is one of real-time priority, as who
/// begins it is for so long. Changes nothing for a user who is not allowed to (RLIMIT_RTPRIO).
class BeginsRealtimeThreads {
public:
    BeginsRealtimeThreads()
    {
        startProcessesAsUsual();
        constexpr sched_param modest{.sched_priority = 4}; // below a sound server's own
        m_isRaised = pthread_getschedparam(pthread_self(), &m_policy, &m_before) == 0 &&
                     pthread_setschedparam(pthread_self(), SCHED_RR, &modest) == 0;
    }
    ~BeginsRealtimeThreads()
    {
        if (m_isRaised)
            pthread_setschedparam(pthread_self(), m_policy, &m_before);
    }
    BeginsRealtimeThreads(const BeginsRealtimeThreads &) = delete;
    BeginsRealtimeThreads &operator=(const BeginsRealtimeThreads &) = delete;

private:
    int m_policy = SCHED_OTHER;
    sched_param m_before{};
    bool m_isRaised = false;
};

cubeb *makeContext()
{
    const BeginsRealtimeThreads callback; // cubeb begins its thread here
    cubeb *context = nullptr;
    return cubeb_init(&context, "Lyrabox", nullptr) == CUBEB_OK ? context : nullptr;
}

} // namespace

CubebOutput::~CubebOutput()
{
    stop();
    close();
}

Status CubebOutput::initialize()
{
    stop();
    close();
    m_context = makeContext();
    if (m_context == nullptr)
        return status::noAudioDevice;

    constexpr AudioStreamBasicDescription format = canonicalStreamFormat();
    cubeb_stream_params params{};
    params.format = CUBEB_SAMPLE_FLOAT32NE;
    params.rate = static_cast<std::uint32_t>(format.mSampleRate);
    params.channels = OutputRenderer::channels;
    params.layout = CUBEB_LAYOUT_STEREO;
    params.prefs = CUBEB_STREAM_PREF_NONE;

    std::uint32_t minimum = 0;
    if (cubeb_get_min_latency(m_context, &params, &minimum) != CUBEB_OK)
        minimum = 0;
    m_latencyFrames = std::max(minimum, wantedLatencyFrames());

    const auto stateChanged = [](cubeb_stream *, void *user, cubeb_state state) {
        if (state == CUBEB_STATE_ERROR)
            static_cast<CubebOutput *>(user)->m_lost.store(true);
    };
    m_lost.store(false);
    const int result =
        cubeb_stream_init(m_context, &m_stream, "Music", nullptr, nullptr, nullptr, &params,
                          m_latencyFrames, &CubebOutput::dataCallback, stateChanged, this);
    if (result != CUBEB_OK) {
        m_stream = nullptr;
        close();
        return status::noAudioDevice;
    }
    // A sound server that rewinds its device to let a new stream in at once has already given the
    // beginning of it away to whoever records the device: 10 to 25 ms, and the fade-in with them.
    // So a fresh stream begins with as much silence as one that was stopped still holds.
    m_renderer.leadWithSilence(m_latencyFrames);
    return status::noError;
}

float CubebOutput::parameter(std::uint32_t id) const
{
    return id == parameter::outputVolume ? m_renderer.volume() : 0.0F;
}

Status CubebOutput::setParameter(std::uint32_t id, float value)
{
    if (id != parameter::outputVolume || !std::isfinite(value))
        return status::invalidParameter;
    m_renderer.setVolume(value);
    return status::noError;
}

void CubebOutput::reset()
{
    m_renderer.requestReset();
}

Status CubebOutput::connect(RenderingUnit *source)
{
    if (source == nullptr)
        return status::noConnection;
    m_renderer.connect(source);
    return status::noError;
}

Status CubebOutput::start()
{
    if (!m_renderer.isConnected())
        return status::noConnection;
    m_renderer.start();
    if (m_stream == nullptr || m_lost.load())
        return status::noAudioDevice;
    // Stopped from inside the callback: the device never halted.
    if (m_deviceStarted)
        return status::noError;
    // A lost stream must not be started: cubeb's PulseAudio backend asserts that the server
    // answers. A server that died a moment ago is found out by asking it something.
    cubeb_device_collection devices{};
    if (cubeb_enumerate_devices(m_context, CUBEB_DEVICE_TYPE_OUTPUT, &devices) == CUBEB_OK)
        cubeb_device_collection_destroy(m_context, &devices);
    if (m_lost.load())
        return status::noAudioDevice;
    if (cubeb_stream_start(m_stream) != CUBEB_OK)
        return status::noAudioDevice;
    m_deviceStarted = true;
    return status::noError;
}

Status CubebOutput::stop() noexcept
{
    m_renderer.stop();
    if (m_renderer.isRenderingHere() || !m_deviceStarted)
        return status::noError;
    waitForSilence();
    cubeb_stream_stop(m_stream);
    m_renderer.waitUntilIdle();
    m_renderer.clear();
    m_deviceStarted = false;
    return status::noError;
}

/// Halting the device cuts off what it still holds, which would click. So it first plays the
/// fade-out, and as much silence as it holds at most. Given up on a device that no longer asks for
/// frames.
void CubebOutput::waitForSilence() const noexcept
{
    using namespace std::chrono;
    const double rate = canonicalStreamFormat().mSampleRate;
    const auto latency = duration_cast<milliseconds>(duration<double>(m_latencyFrames / rate));
    const auto deadline = steady_clock::now() + 2 * latency + milliseconds(60);
    while (!m_lost.load() && m_renderer.silentFrames() < m_latencyFrames &&
           steady_clock::now() < deadline)
        std::this_thread::sleep_for(milliseconds(1));
}

void CubebOutput::close() noexcept
{
    if (m_stream != nullptr)
        cubeb_stream_destroy(m_stream);
    if (m_context != nullptr)
        cubeb_destroy(m_context);
    m_stream = nullptr;
    m_context = nullptr;
}

long CubebOutput::dataCallback(cubeb_stream *, void *user, const void *, void *output,
                               long frames) noexcept
{
    static_cast<CubebOutput *>(user)->m_renderer.render(static_cast<float *>(output),
                                                        static_cast<std::uint32_t>(frames));
    return frames;
}

} // namespace lyrabox
