#include "platform/output/PulseDefaultOutputWatcher.h"

#include <pulse/context.h>
#include <pulse/def.h>
#include <pulse/introspect.h>
#include <pulse/mainloop.h>
#include <pulse/subscribe.h>

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

namespace lyrabox {
namespace {

using namespace std::chrono_literals;

constexpr auto firstRetry = 100ms;
constexpr auto longestRetry = 1000ms;

/// A device that was removed and came back has its old name and a new index.
struct Device {
    std::string name;
    std::uint32_t index = 0;
    bool operator==(const Device &) const = default;
};

/// One connection to the server, from connecting to its loss. Lives on the watching thread.
class Connection {
public:
    /// `found` is told the default device whenever the server has said which it is.
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

    /// Whether it is the server's silence that ended the connection.
    bool hasTimedOut() const
    {
        return m_context != nullptr && pa_context_errno(m_context) == PA_ERR_TIMEOUT;
    }

    /// Asks which the default device is; once connected that is done anyway.
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
        // A sink changes with every move of its volume; only its coming and going matters.
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
        m_querying = operation != nullptr; // otherwise the connection is at its end
        forget(operation);
    }

    static void serverInfo(pa_context *context, const pa_server_info *info, void *user)
    {
        auto *const self = static_cast<Connection *>(user);
        // The library itself gives an answer up after half a minute.
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

/// What the watcher and its thread share; it outlives a watcher that its own listener destroys.
struct PulseDefaultOutputWatcher::Watch {
    std::mutex mutex;
    std::condition_variable quitRequested;
    std::shared_ptr<const std::function<void()>> listener;
    std::atomic<bool> quit{false};
    std::atomic<bool> callRequested{false};
    /// Readable once the watch is to end or a call is requested: ends a wait for the server.
    /// (pa_mainloop_wakeup is lost on a loop that is about to wait.)
    const int wakeEvent = eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);

    // Of the watching thread alone.
    std::optional<Device> known;
    bool firstLook = true; ///< what is there at first is not a change
    bool changed = false;
    bool owesCall = false; ///< one was requested

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

/// Returns when the connection is lost or could not be made; whether a device was found over it.
bool PulseDefaultOutputWatcher::Watch::watchOneConnection()
{
    pa_mainloop *const connectionLoop = pa_mainloop_new();
    if (connectionLoop == nullptr)
        return false;
    pa_mainloop_api *const api = pa_mainloop_get_api(connectionLoop);
    const auto woken = [](pa_mainloop_api *, pa_io_event *, int event, pa_io_event_flags_t,
                          void *) {
        eventfd_t count = 0; // what matters is that the wait has ended
        eventfd_read(event, &count);
    };
    pa_io_event *const wakeWatch = api->io_new(api, wakeEvent, PA_IO_EVENT_INPUT, woken, nullptr);
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
                owesCall = true;
                connection.ask();
            }
            if (changed)
                callListener();
        }
        hasTimedOut = connection.hasTimedOut();
    }
    api->io_free(wakeWatch);
    pa_mainloop_free(connectionLoop);
    // Where there is no server, the listener is to find that out.
    owesCall = callRequested.exchange(false) || owesCall;
    if (owesCall && !hasTimedOut && !quit)
        callListener();
    return anyFound;
}

/// Outside the lock and outside the server's callbacks: it takes its time and may call listen().
void PulseDefaultOutputWatcher::Watch::callListener()
{
    changed = false;
    owesCall = false;
    std::shared_ptr<const std::function<void()>> called;
    {
        const std::lock_guard lock(mutex);
        called = listener;
    }
    if (called && *called)
        (*called)();
}

void PulseDefaultOutputWatcher::Watch::found(const std::optional<Device> &device)
{
    if (owesCall || (device && device != known && !firstLook))
        changed = true;
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
    // The thread begins by taking the lock, so that a listener finds the thread set.
    const std::lock_guard lock(m_watch->mutex);
    m_watch->listener.swap(shared);
    if (m_thread.joinable())
        return status::noError;
    if (m_watch->wakeEvent < 0)
        return status::noAudioDevice;
    // Signals to the process are for the main thread.
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
