#pragma once

#include "platform/audio/OutputRenderer.h"
#include "platform/foundation/Status.h"

#include <semaphore.h>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>

struct cubeb;
struct cubeb_stream;

namespace lyrabox {

/// One stream to the sound server. It owns the renderer that fills the stream and a thread that
/// makes every call that may wait for the server.
///
/// Callers wait for that thread, but no longer than OutputUnit::serverPatience. If the server does
/// not answer in time, the session is cut off: its renderer never pulls the source again, and later
/// calls fail at once. The thread keeps the session alive until the server answers or the
/// connection breaks; then it closes the stream.
///
/// All members belong to the control side (see AudioUnit.h) unless they say otherwise.
class CubebSession {
public:
    /// How long a stopped device plays silence before it is halted.
    static constexpr std::chrono::milliseconds idleTime{500};
    /// How long it does so if a start is expected: loading a long song takes seconds.
    static constexpr std::chrono::milliseconds expectationTime{5000};

    /// `lossListener` is called on the session's thread when the server drops the stream. Null if
    /// no thread can be started.
    static std::shared_ptr<CubebSession> make(std::function<void()> lossListener);

    CubebSession(const CubebSession &) = delete;
    CubebSession &operator=(const CubebSession &) = delete;
    ~CubebSession();

    OutputRenderer &renderer() noexcept { return m_renderer; }
    const OutputRenderer &renderer() const noexcept { return m_renderer; }

    /// Each returns soundServerHangs if the session is cut off, and noAudioDevice if the server
    /// refuses. open() is called once, before the others; `wantedLatency` is in frames.
    Status open(std::uint32_t wantedLatency);
    Status start() noexcept;

    /// Halts the device, which drops the frames that it holds. The renderer must have been stopped.
    Status halt() noexcept;

    /// Halts the device once it has played what it holds and then silence for idleTime. Until then
    /// the next song can be heard sooner, because the device need not be filled again. Does not
    /// wait for that; the renderer must have been stopped.
    Status haltWhenIdle() noexcept;

    /// Starts the device, unless it runs, and lets it play silence for expectationTime. Does not
    /// wait for the server. Only while the renderer is stopped.
    void runWithSilence() noexcept;

    /// Takes haltWhenIdle() and runWithSilence() back. noError if the device still runs, otherwise
    /// noAudioDevice.
    Status keepRunning() noexcept;

    /// Closes the stream and ends the thread; if the server hangs, the thread does so later. The
    /// listener is not called any more. Must be called once, as the last call.
    void close() noexcept;

    /// noError, noAudioDevice after the stream was lost, or soundServerHangs after the session was
    /// cut off. Any thread.
    Status status() const noexcept;
    bool isCutOff() const noexcept { return m_isCutOff.load(); }

    /// How many times the device has pulled frames. Any thread.
    std::uint64_t callbacks() const noexcept { return m_callbacks.load(std::memory_order_relaxed); }

    /// The latency of the device: the number of frames from a pull until they are heard. Known
    /// after open().
    std::uint32_t latencyFrames() const noexcept { return m_latencyFrames; }

    /// Frames that the device has played since it last took some, as far as time tells. Never more
    /// than it took then. Any thread.
    std::uint32_t framesSincePull() const noexcept;

private:
    enum class Command {
        None,
        Open,
        Start,
        RunWithSilence,
        Halt,
        HaltWhenIdle,
        KeepRunning,
        Close
    };

    explicit CubebSession(std::function<void()> lossListener);

    Status ask(Command command) noexcept;
    void give(Command command) noexcept;
    void cutOff() noexcept;
    void forgetListener() noexcept;

    void run() noexcept;
    Status execute(Command command);
    Status openStream();
    Status startStream();
    bool waitForWork() noexcept;
    void setHaltAfter(std::chrono::milliseconds silence) noexcept;
    void haltStream() noexcept;
    void haltIfIdle() noexcept;
    void closeStream();
    void reportLoss();

    static long dataCallback(cubeb_stream *stream, void *user, const void *input, void *output,
                             long frames) noexcept;

    OutputRenderer m_renderer;
    std::atomic<bool> m_isLost{false}; ///< written by the device's own thread
    std::atomic<bool> m_isCutOff{false};
    std::atomic<std::uint64_t> m_callbacks{0};
    std::atomic<std::chrono::steady_clock::time_point> m_pulledAt{};
    std::atomic<std::uint32_t> m_pulledFrames{0}; ///< by the last callback
    sem_t m_wake{}; ///< posted for a command and for a loss; the device's thread may not lock

    std::mutex m_mutex; ///< guards the next four members
    std::condition_variable m_done;
    Command m_command = Command::None;
    Status m_result = status::noError;
    std::function<void()> m_lossListener;

    // Used by the session's thread only, except that the control side reads the latency.
    cubeb *m_context = nullptr;
    cubeb_stream *m_stream = nullptr;
    std::uint32_t m_wantedLatency = 0;
    std::uint32_t m_latencyFrames = 0;
    bool m_streamRuns = false;
    /// From when on the device is halted if it holds only silence; none: it is not to halt.
    std::optional<std::chrono::steady_clock::time_point> m_haltFrom;

    std::thread m_thread;
};

} // namespace lyrabox
