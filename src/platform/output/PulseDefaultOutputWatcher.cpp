#include "platform/output/PulseDefaultOutputWatcher.h"

#include <pulse/context.h>
#include <pulse/def.h>
#include <pulse/introspect.h>
#include <pulse/mainloop.h>
#include <pulse/subscribe.h>
#include <pulse/timeval.h>

#include <pthread.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <csignal>
#include <cstdint>
#include <mutex>
#include <optional>
#include <string>
#include <system_error>
#include <thread>
#include <utility>

namespace lyrabox {
namespace {

using namespace std::chrono_literals;

constexpr auto firstRetry = 100ms;
constexpr auto longestRetry = 1000ms;

// How long to wait before a listener that requested a call is called again, and before a
// connection that knows no device is replaced.
constexpr std::chrono::microseconds firstPause = 250ms;
constexpr std::chrono::microseconds longestPause = 4000ms;

/// Identifies a device. One that was removed and came back has its old name but a new index.
struct Device {
    std::string name;
    std::uint32_t index = 0;
    bool operator==(const Device &) const = default;
};

/// One connection to the server, until it is lost. Used by the watching thread only.
class Connection {
public:
    /// Calls `found` with the default device (or none) whenever the server has reported it.
    Connection(pa_mainloop *loop, std::function<void(std::optional<Device>)> found)
        : m_found(std::move(found))
    {
        m_context = pa_context_new(pa_mainloop_get_api(loop), "Lyrabox");
        if (m_context == nullptr)
            return;
        pa_context_set_state_callback(m_context, stateChanged, this);
        pa_context_set_subscribe_callback(m_context, subscriptionEvent, this);
        m_alive = pa_context_connect(m_context, nullptr, PA_CONTEXT_NOAUTOSPAWN, nullptr) >= 0;
    }

    ~Connection()
    {
        if (m_context == nullptr)
            return;
        pa_context_set_state_callback(m_context, nullptr, nullptr);
        pa_context_set_subscribe_callback(m_context, nullptr, nullptr);
        pa_context_disconnect(m_context);
        pa_context_unref(m_context);
    }

    Connection(const Connection &) = delete;
    Connection &operator=(const Connection &) = delete;

    bool isAlive() const { return m_alive; }
    bool isAsking() const { return m_querying; }

    /// Whether the connection ended because the server did not answer.
    bool hasTimedOut() const
    {
        return m_context != nullptr && pa_context_errno(m_context) == PA_ERR_TIMEOUT;
    }

    /// Queries the default device if connected. A new connection queries it without being asked.
    void ask()
    {
        if (m_context != nullptr && pa_context_get_state(m_context) == PA_CONTEXT_READY)
            query();
    }

private:
    static void stateChanged(pa_context *context, void *user)
    {
        auto *const self = static_cast<Connection *>(user);
        const pa_context_state_t state = pa_context_get_state(context);
        if (state == PA_CONTEXT_READY) {
            constexpr int mask = PA_SUBSCRIPTION_MASK_SERVER | PA_SUBSCRIPTION_MASK_SINK;
            forget(pa_context_subscribe(context, static_cast<pa_subscription_mask_t>(mask), nullptr,
                                        nullptr));
            self->query();
        } else if (!PA_CONTEXT_IS_GOOD(state)) {
            self->m_alive = false;
        }
    }

    static void subscriptionEvent(pa_context *, pa_subscription_event_type_t event, std::uint32_t,
                                  void *user)
    {
        const bool aboutSink =
            (event & PA_SUBSCRIPTION_EVENT_FACILITY_MASK) == PA_SUBSCRIPTION_EVENT_SINK;
        const bool isChange =
            (event & PA_SUBSCRIPTION_EVENT_TYPE_MASK) == PA_SUBSCRIPTION_EVENT_CHANGE;
        // A sink reports a change whenever its volume moves. Only new and removed sinks matter.
        if (!(aboutSink && isChange))
            static_cast<Connection *>(user)->query();
    }

    void query()
    {
        if (m_querying) {
            m_queryAgain = true;
            return;
        }
        m_querying = true;
        m_queryAgain = false;
        m_device.reset();
        pa_operation *const operation = pa_context_get_server_info(m_context, serverInfo, this);
        m_querying = operation != nullptr; // without an operation the connection has ended
        forget(operation);
    }

    static void serverInfo(pa_context *context, const pa_server_info *info, void *user)
    {
        auto *const self = static_cast<Connection *>(user);
        // The library stops waiting for an answer after half a minute. Then the query is repeated.
        if (info == nullptr && self->hasTimedOut()) {
            self->m_querying = false;
            self->query();
            return;
        }
        pa_operation *operation = nullptr;
        if (info != nullptr && info->default_sink_name != nullptr)
            operation =
                pa_context_get_sink_info_by_name(context, info->default_sink_name, sinkInfo, self);
        if (operation == nullptr)
            self->finishQuery();
        forget(operation);
    }

    static void sinkInfo(pa_context *, const pa_sink_info *info, int last, void *user)
    {
        auto *const self = static_cast<Connection *>(user);
        if (info != nullptr)
            self->m_device = Device{info->name, info->index};
        if (last != 0)
            self->finishQuery();
    }

    void finishQuery()
    {
        m_querying = false;
        m_found(m_device);
        if (m_queryAgain)
            query();
    }

    static void forget(pa_operation *operation)
    {
        if (operation != nullptr)
            pa_operation_unref(operation);
    }

    std::function<void(std::optional<Device>)> m_found;
    pa_context *m_context = nullptr;
    std::optional<Device> m_device;
    bool m_alive = false;
    bool m_querying = false;
    bool m_queryAgain = false;
};

} // namespace

/// The state shared by the watcher and its thread. It outlives a watcher that is destroyed by its
/// own listener.
struct PulseDefaultOutputWatcher::Watch {
    std::mutex mutex;
    std::condition_variable quitRequested;
    std::shared_ptr<const std::function<void()>> listener;
    std::atomic<bool> quit{false};
    std::atomic<bool> callRequested{false};
    /// Becomes readable to end a wait for the server, when the watch has to end or a call is
    /// requested. (pa_mainloop_wakeup() has no effect just before the loop waits.)
    const int wakeEvent = eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);

    // Used by the watching thread only.
    std::optional<Device> known;
    bool firstLook = true; ///< the first device found is not a change
    bool changed = false;
    bool isCallDue = false; ///< a call was requested and not made yet
    bool isCalling = false;
    bool retryIsWanted = false; ///< the listener requested a call, or there is no device
    bool retryIsDue = false;    ///< the pause is over
    bool awaitsDevice = false;  ///< a retry waits for the server to report a device
    std::chrono::microseconds pause = firstPause;

    std::atomic<std::thread::id> thread; ///< the watching thread

    Watch() = default;
    ~Watch()
    {
        if (wakeEvent >= 0)
            close(wakeEvent);
    }
    Watch(const Watch &) = delete;
    Watch &operator=(const Watch &) = delete;

    void run();
    bool watchOneConnection();
    void found(const std::optional<Device> &device);
    void callListener();
    void requestQuit();
    void requestCall() noexcept;
};

void PulseDefaultOutputWatcher::Watch::run()
{
    pthread_setname_np(pthread_self(), "device-watch");
    thread = std::this_thread::get_id();
    {
        const std::lock_guard started(mutex);
    }
    auto retry = firstRetry;
    while (!quit) {
        if (watchOneConnection())
            retry = firstRetry;
        known.reset();
        firstLook = false;
        std::unique_lock lock(mutex);
        quitRequested.wait_for(lock, retry, [this] { return quit.load(); });
        retry = std::min(2 * retry, std::chrono::milliseconds(longestRetry));
    }
}

/// Returns when the connection is lost or could not be made. True if a device was found.
bool PulseDefaultOutputWatcher::Watch::watchOneConnection()
{
    pa_mainloop *const connectionLoop = pa_mainloop_new();
    if (connectionLoop == nullptr)
        return false;
    pa_mainloop_api *const api = pa_mainloop_get_api(connectionLoop);
    const auto woken = [](pa_mainloop_api *, pa_io_event *, int event, pa_io_event_flags_t,
                          void *) {
        eventfd_t count = 0; // only the end of the wait matters, not the value
        eventfd_read(event, &count);
    };
    pa_io_event *const wakeWatch = api->io_new(api, wakeEvent, PA_IO_EVENT_INPUT, woken, nullptr);
    const auto pauseIsOver = [](pa_mainloop_api *, pa_time_event *, const timeval *, void *user) {
        static_cast<Watch *>(user)->retryIsDue = true;
    };
    pa_time_event *const pauseEnd = api->time_new(api, nullptr, pauseIsOver, this); // not yet set
    bool anyFound = false;
    bool hasTimedOut = false;
    {
        Connection connection(connectionLoop, [&](const std::optional<Device> &device) {
            anyFound = anyFound || device.has_value();
            found(device);
        });
        while (!quit && connection.isAlive() &&
               pa_mainloop_iterate(connectionLoop, 1, nullptr) >= 0) {
            if (callRequested.exchange(false)) {
                isCallDue = true;
                connection.ask();
            }
            if (std::exchange(retryIsDue, false)) {
                // A connection made while PipeWire starts may never hear of the default device.
                if (!known && !connection.isAsking())
                    break;
                awaitsDevice = true;
                connection.ask();
            }
            if (changed) {
                api->time_restart(pauseEnd, nullptr);
                callListener();
            }
            if (std::exchange(retryIsWanted, false)) {
                timeval end{};
                pa_timeval_add(pa_gettimeofday(&end), static_cast<pa_usec_t>(pause.count()));
                api->time_restart(pauseEnd, &end);
                pause = std::min(2 * pause, longestPause);
            }
        }
        hasTimedOut = connection.hasTimedOut();
    }
    api->time_free(pauseEnd);
    api->io_free(wakeWatch);
    pa_mainloop_free(connectionLoop);
    // Without a server the listener is called anyway. It finds out itself that there is none.
    isCallDue = callRequested.exchange(false) || isCallDue;
    if (isCallDue && !hasTimedOut && !quit)
        callListener();
    // When the server returns, the listener is called anyway.
    retryIsWanted = retryIsDue = awaitsDevice = false;
    return anyFound;
}

/// Must be called without the mutex and outside the callbacks of the library, because the listener
/// may take long and may call listen().
void PulseDefaultOutputWatcher::Watch::callListener()
{
    changed = false;
    isCallDue = false;
    awaitsDevice = false;
    std::shared_ptr<const std::function<void()>> called;
    {
        const std::lock_guard lock(mutex);
        called = listener;
    }
    isCalling = true;
    if (called && *called)
        (*called)();
    isCalling = false;
}

void PulseDefaultOutputWatcher::Watch::found(const std::optional<Device> &device)
{
    const bool isOther = device && device != known && !firstLook;
    if (isOther)
        pause = firstPause;
    if (isCallDue || isOther || (device && awaitsDevice))
        changed = true;
    awaitsDevice = false;
    retryIsWanted = !device;
    known = device;
    firstLook = false;
}

void PulseDefaultOutputWatcher::Watch::requestQuit()
{
    const std::lock_guard lock(mutex);
    quit = true;
    quitRequested.notify_all();
    eventfd_write(wakeEvent, 1);
}

void PulseDefaultOutputWatcher::Watch::requestCall() noexcept
{
    // An immediate call would fail again, because the server may still be starting.
    if (thread.load() == std::this_thread::get_id() && isCalling) {
        retryIsWanted = true;
        return;
    }
    callRequested = true;
    eventfd_write(wakeEvent, 1);
}

PulseDefaultOutputWatcher::PulseDefaultOutputWatcher() : m_watch(std::make_shared<Watch>()) {}

PulseDefaultOutputWatcher::~PulseDefaultOutputWatcher()
{
    if (!m_thread.joinable())
        return;
    m_watch->requestQuit();
    if (m_thread.get_id() == std::this_thread::get_id())
        m_thread.detach();
    else
        m_thread.join();
}

Status PulseDefaultOutputWatcher::listen(std::function<void()> listener)
{
    auto shared = std::make_shared<const std::function<void()>>(std::move(listener));
    // The thread first takes the mutex, so m_thread is set before any listener call.
    const std::lock_guard lock(m_watch->mutex);
    m_watch->listener.swap(shared);
    if (m_thread.joinable())
        return status::noError;
    if (m_watch->wakeEvent < 0)
        return status::noAudioDevice;
    // The thread inherits the mask, so that signals go to the main thread.
    sigset_t all;
    sigset_t before;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &before);
    try {
        m_thread = std::thread([watch = m_watch] { watch->run(); });
    } catch (const std::system_error &) {
    }
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
    return m_thread.joinable() ? status::noError : status::noAudioDevice;
}

void PulseDefaultOutputWatcher::requestCall() noexcept
{
    m_watch->requestCall();
}

} // namespace lyrabox
