// Watches a window of another program for some seconds: PATTERN SECONDS, where PATTERN is the start
// of the window's title. Reports the longest time between two pictures as seconds, and how many
// pictures there were as the amount. Only pictures that are at least as wide as half the window
// count. It needs an X server.

#include "Work.h"

#include <xcb/damage.h>
#include <xcb/xcb.h>

#include <poll.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>

namespace {

using Clock = std::chrono::steady_clock;

/// One picture may arrive in several parts, which follow each other at once.
constexpr std::chrono::milliseconds onePicture{4};

struct Free {
    void operator()(void *object) const noexcept { std::free(object); }
};
template <typename Reply>
using Owned = std::unique_ptr<Reply, Free>;

class Watch {
public:
    Watch() : m_connection(xcb_connect(nullptr, nullptr))
    {
        if (xcb_connection_has_error(m_connection))
            lyrabox::work::fail("there is no X server");
        const auto *damage = xcb_get_extension_data(m_connection, &xcb_damage_id);
        if (!damage || !damage->present)
            lyrabox::work::fail("the X server does not report what is drawn");
        m_damageEvent = damage->first_event + XCB_DAMAGE_NOTIFY;
        free(xcb_damage_query_version_reply(m_connection,
                                            xcb_damage_query_version(m_connection, 1, 1), nullptr));
    }
    ~Watch() { xcb_disconnect(m_connection); }
    Watch(const Watch &) = delete;
    Watch &operator=(const Watch &) = delete;

    void begin(std::string_view title)
    {
        const auto root = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data->root;
        const xcb_window_t window = find(root, title);
        if (window == XCB_NONE)
            lyrabox::work::fail("there is no such window");
        const Owned<xcb_get_geometry_reply_t> geometry(
            xcb_get_geometry_reply(m_connection, xcb_get_geometry(m_connection, window), nullptr));
        m_leastWidth = geometry->width / 2;
        xcb_damage_create(m_connection, xcb_generate_id(m_connection), window,
                          XCB_DAMAGE_REPORT_LEVEL_RAW_RECTANGLES);
        xcb_flush(m_connection);
    }

    /// Waits for what is drawn until `end`. False if nothing is.
    bool waitForPicture(Clock::time_point end)
    {
        for (;;) {
            while (const Owned<xcb_generic_event_t> event{xcb_poll_for_event(m_connection)}) {
                const auto &damage = reinterpret_cast<const xcb_damage_notify_event_t &>(*event);
                if ((event->response_type & 0x7f) == m_damageEvent &&
                    damage.area.width >= m_leastWidth)
                    return true;
            }
            const auto rest = std::chrono::ceil<std::chrono::milliseconds>(end - Clock::now());
            if (rest.count() <= 0)
                return false;
            pollfd ready{xcb_get_file_descriptor(m_connection), POLLIN, 0};
            poll(&ready, 1, static_cast<int>(rest.count()));
        }
    }

private:
    bool hasTitle(xcb_window_t window, std::string_view title)
    {
        const Owned<xcb_get_property_reply_t> reply(
            xcb_get_property_reply(m_connection,
                                   xcb_get_property(m_connection, 0, window, XCB_ATOM_WM_NAME,
                                                    XCB_GET_PROPERTY_TYPE_ANY, 0, 64),
                                   nullptr));
        if (!reply)
            return false;
        const std::string_view name(
            static_cast<const char *>(xcb_get_property_value(reply.get())),
            static_cast<std::size_t>(xcb_get_property_value_length(reply.get())));
        return name.starts_with(title);
    }

    bool isVisible(xcb_window_t window)
    {
        const Owned<xcb_get_window_attributes_reply_t> reply(xcb_get_window_attributes_reply(
            m_connection, xcb_get_window_attributes(m_connection, window), nullptr));
        return reply && reply->map_state == XCB_MAP_STATE_VIEWABLE;
    }

    xcb_window_t find(xcb_window_t parent, std::string_view title)
    {
        const Owned<xcb_query_tree_reply_t> tree(
            xcb_query_tree_reply(m_connection, xcb_query_tree(m_connection, parent), nullptr));
        if (!tree)
            return XCB_NONE;
        const xcb_window_t *children = xcb_query_tree_children(tree.get());
        for (int i = 0; i < xcb_query_tree_children_length(tree.get()); ++i) {
            if (isVisible(children[i]) && hasTitle(children[i], title))
                return children[i];
            if (const xcb_window_t found = find(children[i], title); found != XCB_NONE)
                return found;
        }
        return XCB_NONE;
    }

    xcb_connection_t *m_connection;
    int m_damageEvent = 0;
    int m_leastWidth = 0;
};

} // namespace

int main(int argc, char **argv)
{
    if (argc != 3)
        lyrabox::work::fail("usage: PATTERN SECONDS");
    Watch watch;
    watch.begin(argv[1]);
    const auto end = Clock::now() + std::chrono::duration_cast<Clock::duration>(
                                        std::chrono::duration<double>(std::stod(argv[2])));
    Clock::duration longest{0};
    int pictures = 0;
    Clock::time_point before;
    while (watch.waitForPicture(end)) {
        const Clock::time_point now = Clock::now();
        if (pictures > 0 && now - before < onePicture)
            continue;
        if (pictures > 0)
            longest = std::max(longest, now - before);
        before = now;
        ++pictures;
    }
    lyrabox::work::report({.seconds = std::chrono::duration<double>(longest).count()}, pictures);
    return EXIT_SUCCESS;
}
