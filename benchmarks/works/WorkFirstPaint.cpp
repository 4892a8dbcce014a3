// Starts a program and measures the time until something is drawn in its window: PROGRAM ARGUMENT
// ... It needs a private X server on which no other windows open.

#include "Work.h"

#include <xcb/damage.h>
#include <xcb/xcb.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <memory>

#include <sys/wait.h>
#include <unistd.h>

namespace {

using Clock = std::chrono::steady_clock;

/// Smaller windows belong to the session.
constexpr int minWidth = 300;

struct Free {
    void operator()(void *object) const noexcept { std::free(object); }
};

class Screen {
public:
    Screen() : m_connection(xcb_connect(nullptr, nullptr))
    {
        if (xcb_connection_has_error(m_connection))
            lyrabox::work::fail("there is no X server");
        const auto *damage = xcb_get_extension_data(m_connection, &xcb_damage_id);
        if (!damage || !damage->present)
            lyrabox::work::fail("the X server does not report what is drawn");
        m_damageEvent = damage->first_event + XCB_DAMAGE_NOTIFY;
        free(xcb_damage_query_version_reply(m_connection,
                                            xcb_damage_query_version(m_connection, 1, 1), nullptr));
        const std::uint32_t mask = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
        const auto root = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data->root;
        xcb_change_window_attributes(m_connection, root, XCB_CW_EVENT_MASK, &mask);
        sync();
    }
    ~Screen() { xcb_disconnect(m_connection); }
    Screen(const Screen &) = delete;
    Screen &operator=(const Screen &) = delete;

    /// Waits until something is drawn in a window of the session.
    void waitForPaint()
    {
        for (;;) {
            const std::unique_ptr<xcb_generic_event_t, Free> event(
                xcb_wait_for_event(m_connection));
            if (!event)
                lyrabox::work::fail("the X server is gone");
            const int type = event->response_type & 0x7f;
            if (type == XCB_CREATE_NOTIFY) {
                const auto &created = reinterpret_cast<const xcb_create_notify_event_t &>(*event);
                xcb_damage_create(m_connection, xcb_generate_id(m_connection), created.window,
                                  XCB_DAMAGE_REPORT_LEVEL_RAW_RECTANGLES);
                xcb_flush(m_connection);
            } else if (type == m_damageEvent) {
                const auto &damage = reinterpret_cast<const xcb_damage_notify_event_t &>(*event);
                if (damage.area.width >= minWidth)
                    return;
            }
        }
    }

private:
    void sync()
    {
        free(xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr));
    }

    xcb_connection_t *m_connection;
    int m_damageEvent = 0;
};

} // namespace

int main(int argc, char **argv)
{
    if (argc < 2)
        lyrabox::work::fail("usage: PROGRAM ARGUMENT ...");
    Screen screen;
    alarm(30); // Ends this process if nothing is drawn by then.
    const auto begin = Clock::now();
    const pid_t child = fork();
    if (child == 0) {
        execv(argv[1], argv + 1);
        _exit(127);
    }
    screen.waitForPaint();
    const double seconds = std::chrono::duration<double>(Clock::now() - begin).count();
    kill(child, SIGTERM);
    waitpid(child, nullptr, 0);
    lyrabox::work::report({.seconds = seconds, .megabytes = 0.0}, 1.0);
    return EXIT_SUCCESS;
}
