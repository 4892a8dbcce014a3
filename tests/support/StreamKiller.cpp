#include "support/StreamKiller.h"

#include <pulse/context.h>
#include <pulse/introspect.h>
#include <pulse/mainloop.h>
#include <pulse/subscribe.h>

#include <QElapsedTimer>

#include <functional>
#include <memory>

namespace lyrabox::test {
namespace {

// How long the server may take. A successful test takes much less.
constexpr int patienceMilliseconds = 20'000;

/// A connection to the server, with a loop that runs until a condition is true.
class Connection {
public:
    Connection()
        : m_loop(pa_mainloop_new(), pa_mainloop_free),
          m_context(pa_context_new(pa_mainloop_get_api(m_loop.get()), "test"), pa_context_unref)
    {
        m_timer.start();
        pa_context_connect(get(), nullptr, PA_CONTEXT_NOAUTOSPAWN, nullptr);
    }
    ~Connection() { pa_context_disconnect(get()); }
    Connection(const Connection &) = delete;
    Connection &operator=(const Connection &) = delete;

    pa_context *get() const { return m_context.get(); }

    bool runUntil(const std::function<bool()> &condition)
    {
        while (!condition()) {
            if (!PA_CONTEXT_IS_GOOD(pa_context_get_state(get())) ||
                m_timer.hasExpired(patienceMilliseconds) ||
                pa_mainloop_prepare(m_loop.get(), 1000 * patienceMilliseconds) < 0 ||
                pa_mainloop_poll(m_loop.get()) < 0 || pa_mainloop_dispatch(m_loop.get()) < 0)
                return false;
        }
        return true;
    }

    /// Waits for the answer to an operation.
    bool finish(pa_operation *operation)
    {
        if (operation == nullptr)
            return false;
        const bool isAnswered =
            runUntil([&] { return pa_operation_get_state(operation) != PA_OPERATION_RUNNING; });
        pa_operation_unref(operation);
        return isAnswered;
    }

private:
    QElapsedTimer m_timer;
    std::unique_ptr<pa_mainloop, decltype(&pa_mainloop_free)> m_loop;
    std::unique_ptr<pa_context, decltype(&pa_context_unref)> m_context;
};

void event(pa_context *, pa_subscription_event_type_t type, std::uint32_t stream, void *left)
{
    if ((type & PA_SUBSCRIPTION_EVENT_TYPE_MASK) == PA_SUBSCRIPTION_EVENT_REMOVE)
        static_cast<QList<std::uint32_t> *>(left)->removeAll(stream);
}

} // namespace

bool killStreams(const QList<std::uint32_t> &streams)
{
    QList<std::uint32_t> left = streams;
    Connection server;
    if (!server.runUntil([&] { return pa_context_get_state(server.get()) == PA_CONTEXT_READY; }))
        return false;
    pa_context_set_subscribe_callback(server.get(), event, &left);
    if (!server.finish(
            pa_context_subscribe(server.get(), PA_SUBSCRIPTION_MASK_SINK_INPUT, nullptr, nullptr)))
        return false;
    for (const std::uint32_t stream : streams) {
        if (!server.finish(pa_context_kill_sink_input(server.get(), stream, nullptr, nullptr)))
            return false;
    }
    // PipeWire answers before it has killed the stream, and gives up if the client leaves.
    return server.runUntil([&] { return left.isEmpty(); });
}

} // namespace lyrabox::test
