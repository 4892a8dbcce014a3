// Uses a second connection to the X server, because the toolkit reads its own only in its event
// loop.

#include "platform/ui/EscapeListener.h"

#include <QGuiApplication>
#include <QWindow>

#include <bitset>
#include <cstdint>
#include <cstdlib>

#include <xcb/xcb.h>

namespace lyrabox {

namespace {

constexpr xcb_keysym_t escapeSymbol = 0xFF1B;

template <typename T>
using Reply = std::unique_ptr<T, decltype(&std::free)>;

template <typename T>
Reply<T> owned(T *reply)
{
    return {reply, &std::free};
}

class XListener : public EscapeListener {
public:
    XListener() : m_server(xcb_connect(nullptr, nullptr), &xcb_disconnect)
    {
        if (xcb_connection_has_error(m_server.get()) != 0)
            return;
        findEscape();
        // A key press goes to every client that has selected key presses of the window.
        const std::uint32_t mask = XCB_EVENT_MASK_KEY_PRESS;
        for (const QWindow *window : QGuiApplication::topLevelWindows()) {
            if (window->handle() != nullptr && window->isVisible()) {
                xcb_change_window_attributes(m_server.get(),
                                             static_cast<xcb_window_t>(window->winId()),
                                             XCB_CW_EVENT_MASK, &mask);
            }
        }
        xcb_flush(m_server.get());
    }

    bool hasEscape() override
    {
        bool found = false;
        while (const auto event = owned(xcb_poll_for_event(m_server.get()))) {
            constexpr std::uint8_t sentByAClient = 0x80;
            if ((event->response_type & ~sentByAClient) != XCB_KEY_PRESS)
                continue;
            const auto *key = reinterpret_cast<const xcb_key_press_event_t *>(event.get());
            found = found || m_escape.test(key->detail);
        }
        return found;
    }

private:
    /// Which keys are Escape in the user's layout.
    void findEscape()
    {
        const xcb_setup_t *setup = xcb_get_setup(m_server.get());
        const auto count = static_cast<std::uint8_t>(setup->max_keycode - setup->min_keycode + 1);
        const auto mapping = owned(xcb_get_keyboard_mapping_reply(
            m_server.get(), xcb_get_keyboard_mapping(m_server.get(), setup->min_keycode, count),
            nullptr));
        if (!mapping || mapping->keysyms_per_keycode == 0)
            return;
        const xcb_keysym_t *symbols = xcb_get_keyboard_mapping_keysyms(mapping.get());
        const int length = xcb_get_keyboard_mapping_keysyms_length(mapping.get());
        for (int i = 0; i < length; ++i) {
            const int key = setup->min_keycode + i / mapping->keysyms_per_keycode;
            if (symbols[i] == escapeSymbol)
                m_escape.set(static_cast<std::size_t>(key));
        }
    }

    std::unique_ptr<xcb_connection_t, decltype(&xcb_disconnect)> m_server;
    std::bitset<256> m_escape;
};

} // namespace

std::unique_ptr<EscapeListener> listenForEscapeOnX()
{
    return std::make_unique<XListener>();
}

} // namespace lyrabox
