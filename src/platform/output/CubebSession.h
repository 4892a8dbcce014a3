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
#include <thread>

struct cubeb;
struct cubeb_stream;

namespace lyrabox {

/// One stream to the sound server, with the renderer that fills it and the thread that makes every
/// call that may wait for the server.
///
/// The caller waits for that thread, but no longer than OutputUnit::serverPatience. A session that
/// did not answer in time is cut off: its renderer never pulls the source again, and no further
/// call reaches the server on the caller's behalf. The thread keeps the session alive until the
/// server answers, or the connection breaks, and then closes the stream.
///
/// Control side unless a member says otherwise.
class CubebSession {
public:
    /// `lossListener` runs on the session's thread, when the server drops the stream. Null where no
    /// thread can be started.
    static std::shared_ptr<CubebSession> make(std::function<void()> lossListener);

    CubebSession(const CubebSession &) = delete;
    CubebSession &operator=(const CubebSession &) = delete;
    ~CubebSession();

    OutputRenderer &renderer() noexcept { return m_renderer; }
    const OutputRenderer &renderer() const noexcept { return m_renderer; }

    /// Each returns soundServerHangs when the session has been cut off, noAudioDevice when the
    /// server refuses. open() once, before the others; `wantedLatency` in frames.
    Status open(std::uint32_t wantedLatency);
    Status start() noexcept;
    Status halt() noexcept;

    /// Closes the stream and ends the thread, or leaves that to the thread when the server hangs.
    /// The listener is not called any more. Once, and last.
    void close() noexcept;

    /// Any thread. noError, noAudioDevice once the stream is lost, soundServerHangs once cut off.
    Status status() const noexcept;
    bool isCutOff() const noexcept { return m_isCutOff.load(); }

    /// Any thread. How often the device has asked for frames.
    std::uint64_t callbacks() const noexcept { return m_callbacks.load(std::memory_order_relaxed); }

    /// What the device holds between a pull and the ear; known after open().
    std::uint32_t latencyFrames() const noexcept { return m_latencyFrames; }

private:
    enum class Command { None, Open, Start, Halt, Close };

    explicit CubebSession(std::function<void()> lossListener);

    Status ask(Command command) noexcept;
    void cutOff() noexcept;
    void forgetListener() noexcept;

    void run() noexcept;
    Status carryOut(Command command);
    Status openStream();
    Status startStream();
    void closeStream();
    void tellLoss();

    static long dataCallback(cubeb_stream *stream, void *user, const void *input, void *output,
                             long frames) noexcept;

    OutputRenderer m_renderer;
    std::atomic<bool> m_isLost{false}; ///< written by the device's own thread
    std::atomic<bool> m_isCutOff{false};
    std::atomic<std::uint64_t> m_callbacks{0};
    sem_t m_wake{}; ///< a command, or a loss: what the device's own thread can tell without a lock

    std::mutex m_mutex; ///< of what follows
    std::condition_variable m_done;
    Command m_command = Command::None;
    Status m_result = status::noError;
    std::function<void()> m_lossListener;

    // Of the session's thread. The control side reads the latency after open().
    cubeb *m_context = nullptr;
    cubeb_stream *m_stream = nullptr;
    std::uint32_t m_wantedLatency = 0;
    std::uint32_t m_latencyFrames = 0;

    std::thread m_thread;
};

} // namespace lyrabox
