#include "platform/output/CubebSession.h"

#include "platform/audio/AudioUnit.h"
#include "platform/audio/StreamFormat.h"

#include <cubeb/cubeb.h>

#include <pthread.h>
#include <sched.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <ctime>
#include <string_view>
#include <system_error>
#include <utility>

namespace lyrabox {
namespace {

/// How long a call waits while the server still owes another session an answer. It is short, so
/// that several calls in a row do not wait several times the usual patience.
constexpr std::chrono::milliseconds shortPatience{250};

/// The number of sessions that were cut off and whose thread still waits for the server.
std::atomic<int> waitingSessions{0};

/// Gives child processes the normal priority. PulseAudio's library may start a server, which must
/// not inherit the real-time priority of the calling thread.
void startProcessesAsUsual()
{
    [[maybe_unused]] static const int registered = pthread_atfork(nullptr, nullptr, [] {
        constexpr sched_param usual{};
        if (sched_getscheduler(0) == SCHED_RR)
            sched_setscheduler(0, SCHED_OTHER, &usual);
    });
}

/// Raises the calling thread to real-time priority while it lives; threads that it starts in that
/// time inherit the priority. Does nothing if the user may not set it (RLIMIT_RTPRIO).
class RealtimePriority {
public:
    RealtimePriority()
    {
        startProcessesAsUsual();
        constexpr sched_param modest{.sched_priority = 4}; // lower than that of sound servers
        m_isRaised = pthread_getschedparam(pthread_self(), &m_policy, &m_before) == 0 &&
                     pthread_setschedparam(pthread_self(), SCHED_RR, &modest) == 0;
    }
    ~RealtimePriority()
    {
        if (m_isRaised)
            pthread_setschedparam(pthread_self(), m_policy, &m_before);
    }
    RealtimePriority(const RealtimePriority &) = delete;
    RealtimePriority &operator=(const RealtimePriority &) = delete;

private:
    int m_policy = SCHED_OTHER;
    sched_param m_before{};
    bool m_isRaised = false;
};

std::chrono::milliseconds timeOf(std::uint32_t frames)
{
    const std::chrono::duration<double> seconds(frames / canonicalStreamFormat().mSampleRate);
    return std::chrono::duration_cast<std::chrono::milliseconds>(seconds);
}

cubeb *makeContext()
{
    const RealtimePriority priority; // cubeb starts its thread here, which inherits it
    cubeb *context = nullptr;
    return cubeb_init(&context, "Lyrabox", nullptr) == CUBEB_OK ? context : nullptr;
}

} // namespace

std::shared_ptr<CubebSession> CubebSession::make(std::function<void()> lossListener)
{
    std::shared_ptr<CubebSession> session(new CubebSession(std::move(lossListener)));
    // The thread inherits the mask, so that signals go to the main thread.
    sigset_t all;
    sigset_t before;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &before);
    try {
        session->m_thread = std::thread([session] { session->run(); });
    } catch (const std::system_error &) {
        session.reset();
    }
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
    return session;
}

CubebSession::CubebSession(std::function<void()> lossListener)
    : m_lossListener(std::move(lossListener))
{
    sem_init(&m_wake, 0, 0);
}

CubebSession::~CubebSession()
{
    sem_destroy(&m_wake);
}

Status CubebSession::open(std::uint32_t wantedLatency)
{
    m_wantedLatency = wantedLatency;
    return ask(Command::Open);
}

Status CubebSession::start() noexcept
{
    return ask(Command::Start);
}

Status CubebSession::halt() noexcept
{
    return ask(Command::Halt);
}

Status CubebSession::haltWhenIdle() noexcept
{
    return ask(Command::HaltWhenIdle);
}

void CubebSession::runWithSilence() noexcept
{
    const std::lock_guard lock(m_mutex);
    if (m_command == Command::None && !m_isCutOff.load())
        give(Command::RunWithSilence);
}

Status CubebSession::keepRunning() noexcept
{
    return ask(Command::KeepRunning);
}

void CubebSession::close() noexcept
{
    forgetListener();
    if (ask(Command::Close) == status::soundServerHangs)
        m_thread.detach();
    else
        m_thread.join();
}

Status CubebSession::status() const noexcept
{
    if (m_isCutOff.load())
        return status::soundServerHangs;
    return m_isLost.load() ? status::noAudioDevice : status::noError;
}

Status CubebSession::ask(Command command) noexcept
{
    if (m_isCutOff.load())
        return status::soundServerHangs;
    const auto patience = waitingSessions.load() > 0 ? shortPatience : OutputUnit::serverPatience;
    std::unique_lock lock(m_mutex);
    const auto isFree = [this] { return m_command == Command::None; };
    // The thread may still carry out a command that nobody has waited for.
    if (m_done.wait_for(lock, patience, isFree)) {
        give(command);
        if (m_done.wait_for(lock, patience, isFree))
            return m_result;
    }
    // The mutex is still held, so the thread sees the cut as soon as the server answers.
    ++waitingSessions;
    m_isCutOff.store(true);
    lock.unlock();
    // The stream may still run or even be started late. It then plays silence.
    m_renderer.stop();
    m_renderer.waitUntilIdle();
    return status::soundServerHangs;
}

/// Hands a command to the thread. The mutex must be held, and no other command may be pending.
void CubebSession::give(Command command) noexcept
{
    m_command = command;
    sem_post(&m_wake);
}

void CubebSession::forgetListener() noexcept
{
    const std::lock_guard lock(m_mutex);
    m_lossListener = nullptr;
}

void CubebSession::run() noexcept
{
    pthread_setname_np(pthread_self(), "sound-server");
    bool isOver = false;
    bool isLossTold = false;
    while (!isOver) {
        if (!waitForWork()) {
            haltIfIdle();
            continue;
        }
        if (m_isLost.load() && !std::exchange(isLossTold, true))
            reportLoss();
        Command command = Command::None;
        {
            const std::lock_guard lock(m_mutex);
            command = m_command;
        }
        if (command == Command::None)
            continue;
        const Status result = execute(command);
        const std::lock_guard lock(m_mutex);
        m_command = Command::None;
        m_result = result;
        m_done.notify_all();
        isOver = command == Command::Close || m_isCutOff.load();
    }
    closeStream();
    if (m_isCutOff.load())
        --waitingSessions;
}

/// Waits for a command or a loss. Returns false now and then while the device is to be halted.
bool CubebSession::waitForWork() noexcept
{
    constexpr long pause = 10'000'000; // nanoseconds
    constexpr long second = 1'000'000'000;
    timespec until{};
    if (m_haltFrom) {
        clock_gettime(CLOCK_REALTIME, &until);
        until.tv_nsec += pause;
        until.tv_sec += until.tv_nsec / second;
        until.tv_nsec %= second;
    }
    for (;;) {
        if ((m_haltFrom ? sem_timedwait(&m_wake, &until) : sem_wait(&m_wake)) == 0)
            return true;
        if (errno != EINTR)
            return false;
    }
}

void CubebSession::setHaltAfter(std::chrono::milliseconds silence) noexcept
{
    m_haltFrom = std::chrono::steady_clock::now() + silence;
}

void CubebSession::haltIfIdle() noexcept
{
    const auto now = std::chrono::steady_clock::now();
    // A device that does not take the silence is halted nevertheless.
    const auto latest = m_haltFrom.value_or(now) + 2 * timeOf(m_latencyFrames);
    if (!m_haltFrom || now < *m_haltFrom ||
        (m_renderer.silentFrames() < m_latencyFrames && now < latest))
        return;
    m_haltFrom.reset();
    if (!m_isLost.load())
        haltStream();
}

void CubebSession::haltStream() noexcept
{
    cubeb_stream_stop(m_stream);
    m_streamRuns = false;
    m_renderer.waitUntilIdle();
    m_renderer.clear();
}

Status CubebSession::execute(Command command)
{
    if (m_isCutOff.load()) // cut off before the thread took the command
        return status::soundServerHangs;
    switch (command) {
    case Command::Open:
        return openStream();
    case Command::Start:
        return startStream();
    case Command::Halt:
        haltStream();
        return status::noError;
    case Command::RunWithSilence:
        setHaltAfter(expectationTime);
        return m_streamRuns ? status::noError : startStream();
    case Command::HaltWhenIdle:
        setHaltAfter(idleTime);
        return status::noError;
    case Command::KeepRunning:
        m_haltFrom.reset();
        return m_streamRuns ? status::noError : status::noAudioDevice;
    case Command::Close:
        closeStream();
        return status::noError;
    case Command::None:
        break;
    }
    return status::noError;
}

Status CubebSession::openStream()
{
    m_context = makeContext();
    if (m_context == nullptr || m_isCutOff.load())
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
    m_latencyFrames = std::max(minimum, m_wantedLatency);

    const auto stateChanged = [](cubeb_stream *, void *user, cubeb_state state) {
        if (state != CUBEB_STATE_ERROR)
            return;
        auto *const session = static_cast<CubebSession *>(user);
        session->m_isLost.store(true);
        sem_post(&session->m_wake);
    };
    if (cubeb_stream_init(m_context, &m_stream, "Music", nullptr, nullptr, nullptr, &params,
                          m_latencyFrames, &CubebSession::dataCallback, stateChanged,
                          this) != CUBEB_OK) {
        m_stream = nullptr;
        return status::noAudioDevice;
    }
    // Some sound servers rewind the device so that a new stream is heard at once. Programs that
    // record the device then miss its first 10 to 25 ms, and the fade-in with them. So a new stream
    // begins with silence, as much as a stopped stream holds.
    m_renderer.leadWithSilence(m_latencyFrames);
    return status::noError;
}

Status CubebSession::startStream()
{
    // A lost stream must not be started, because cubeb's PulseAudio backend asserts that the server
    // answers. The enumeration of devices shows whether the server has just died.
    cubeb_device_collection devices{};
    if (cubeb_enumerate_devices(m_context, CUBEB_DEVICE_TYPE_OUTPUT, &devices) == CUBEB_OK)
        cubeb_device_collection_destroy(m_context, &devices);
    if (m_isLost.load() || m_isCutOff.load())
        return status::noAudioDevice;
    m_streamRuns = cubeb_stream_start(m_stream) == CUBEB_OK;
    return m_streamRuns ? status::noError : status::noAudioDevice;
}

void CubebSession::closeStream()
{
    m_haltFrom.reset();
    // cubeb's ALSA backend asserts that a stream was stopped. That of PulseAudio does not, and a
    // stop would wait for the server.
    if (m_stream != nullptr && cubeb_get_backend_id(m_context) == std::string_view("alsa"))
        cubeb_stream_stop(m_stream);
    m_streamRuns = false;
    if (m_stream != nullptr)
        cubeb_stream_destroy(std::exchange(m_stream, nullptr));
    if (m_context != nullptr)
        cubeb_destroy(std::exchange(m_context, nullptr));
}

void CubebSession::reportLoss()
{
    const std::lock_guard lock(m_mutex);
    if (m_lossListener)
        m_lossListener();
}

long CubebSession::dataCallback(cubeb_stream *, void *user, const void *, void *output,
                                long frames) noexcept
{
    auto *const session = static_cast<CubebSession *>(user);
    session->m_renderer.render(static_cast<float *>(output), static_cast<std::uint32_t>(frames));
    session->m_pulledFrames.store(static_cast<std::uint32_t>(frames), std::memory_order_relaxed);
    session->m_pulledAt.store(std::chrono::steady_clock::now(), std::memory_order_relaxed);
    session->m_callbacks.fetch_add(1, std::memory_order_relaxed);
    return frames;
}

std::uint32_t CubebSession::framesSincePull() const noexcept
{
    const std::chrono::duration<double> since =
        std::chrono::steady_clock::now() - m_pulledAt.load(std::memory_order_relaxed);
    const double frames = since.count() * canonicalStreamFormat().mSampleRate;
    const double most = m_pulledFrames.load(std::memory_order_relaxed);
    return static_cast<std::uint32_t>(std::clamp(frames, 0.0, most));
}

} // namespace lyrabox
