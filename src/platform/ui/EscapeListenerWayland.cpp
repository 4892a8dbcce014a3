// A compositor sends keys only to the connection whose window has the keyboard, which is the
// toolkit's. But it sends them to every keyboard object of that connection. So the listener makes
// its own keyboard objects there, and their events wait in a queue of its own.

#include "platform/ui/EscapeListener.h"

#include <QGuiApplication>
#include <QLibraryInfo>
#include <QVersionNumber>

#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

#include <poll.h>
#include <sys/mman.h>
#include <unistd.h>

#include <wayland-client.h>
#include <xkbcommon/xkbcommon.h>

#if QT_VERSION < QT_VERSION_CHECK(6, 5, 0)
#include <qpa/qplatformnativeinterface.h>
#endif

using namespace Qt::Literals::StringLiterals;

namespace lyrabox {

namespace {

/// The toolkit's connection; null if the toolkit does not provide it.
wl_display *toolkitDisplay()
{
    if (qGuiApp == nullptr || !QGuiApplication::platformName().startsWith("wayland"_L1))
        return nullptr;
#if QT_VERSION < QT_VERSION_CHECK(6, 5, 0)
    // This interface is private to the toolkit. Only in the version that the program was built with
    // is it certain to be the same.
    const QVersionNumber running = QLibraryInfo::version();
    if (running.majorVersion() != QT_VERSION_MAJOR || running.minorVersion() != QT_VERSION_MINOR)
        return nullptr;
    QPlatformNativeInterface *native = QGuiApplication::platformNativeInterface();
    return native == nullptr
               ? nullptr
               : static_cast<wl_display *>(native->nativeResourceForIntegration("wl_display"));
#elif QT_CONFIG(wayland)
    const auto *native = qGuiApp->nativeInterface<QNativeInterface::QWaylandApplication>();
    return native == nullptr ? nullptr : native->display();
#else
    return nullptr;
#endif
}

template <auto destroy>
struct Destroyer {
    template <typename T>
    void operator()(T *object) const
    {
        destroy(object);
    }
};
template <typename T, auto destroy>
using Owned = std::unique_ptr<T, Destroyer<destroy>>;

/// The keyboard of one seat.
class Keyboard {
public:
    /// Takes ownership of the seat. Its version must support wl_seat_release.
    explicit Keyboard(wl_seat *seat) : m_seat(seat)
    {
        static const wl_seat_listener listener{.capabilities = &Keyboard::setCapabilities,
                                               .name = [](auto...) {}};
        wl_seat_add_listener(seat, &listener, this);
    }
    Keyboard(const Keyboard &) = delete;
    Keyboard &operator=(const Keyboard &) = delete;

    bool takeEscape() { return std::exchange(m_escape, false); }

private:
    static void setCapabilities(void *data, wl_seat *seat, std::uint32_t capabilities)
    {
        static const wl_keyboard_listener listener{.keymap = &Keyboard::setKeymap,
                                                   .enter = [](auto...) {},
                                                   .leave = [](auto...) {},
                                                   .key = &Keyboard::handleKey,
                                                   .modifiers = &Keyboard::setModifiers,
                                                   .repeat_info = [](auto...) {}};
        auto *self = static_cast<Keyboard *>(data);
        const bool has = (capabilities & WL_SEAT_CAPABILITY_KEYBOARD) != 0;
        if (has && !self->m_keyboard) {
            self->m_keyboard.reset(wl_seat_get_keyboard(seat));
            wl_keyboard_add_listener(self->m_keyboard.get(), &listener, self);
        } else if (!has) {
            self->m_keyboard.reset();
        }
    }

    static void setKeymap(void *data, wl_keyboard *, std::uint32_t format, int file,
                          std::uint32_t size)
    {
        auto *self = static_cast<Keyboard *>(data);
        void *text = mmap(nullptr, size, PROT_READ, MAP_PRIVATE, file, 0);
        close(file);
        if (text == MAP_FAILED)
            return;
        if (format == WL_KEYBOARD_KEYMAP_FORMAT_XKB_V1 && size > 0) {
            self->m_state.reset();
            self->m_keymap.reset(xkb_keymap_new_from_buffer(
                self->m_context.get(), static_cast<const char *>(text), size - 1,
                XKB_KEYMAP_FORMAT_TEXT_V1, XKB_KEYMAP_COMPILE_NO_FLAGS));
            if (self->m_keymap)
                self->m_state.reset(xkb_state_new(self->m_keymap.get()));
        }
        munmap(text, size);
    }

    static void setModifiers(void *data, wl_keyboard *, std::uint32_t, std::uint32_t depressed,
                             std::uint32_t latched, std::uint32_t locked, std::uint32_t layout)
    {
        auto *self = static_cast<Keyboard *>(data);
        if (self->m_state)
            xkb_state_update_mask(self->m_state.get(), depressed, latched, locked, 0, 0, layout);
    }

    static void handleKey(void *data, wl_keyboard *, std::uint32_t, std::uint32_t,
                          std::uint32_t key, std::uint32_t state)
    {
        constexpr xkb_keycode_t firstCode = 8; // XKB's key codes start at 8
        auto *self = static_cast<Keyboard *>(data);
        if (state == WL_KEYBOARD_KEY_STATE_PRESSED && self->m_state &&
            xkb_state_key_get_one_sym(self->m_state.get(), key + firstCode) == XKB_KEY_Escape)
            self->m_escape = true;
    }

    Owned<xkb_context, &xkb_context_unref> m_context{xkb_context_new(XKB_CONTEXT_NO_FLAGS)};
    Owned<xkb_keymap, &xkb_keymap_unref> m_keymap;
    Owned<xkb_state, &xkb_state_unref> m_state;
    Owned<wl_seat, &wl_seat_release> m_seat;
    Owned<wl_keyboard, &wl_keyboard_release> m_keyboard;
    bool m_escape = false;
};

class WaylandListener : public EscapeListener {
public:
    explicit WaylandListener(wl_display *display)
        : m_display(display), m_queue(wl_display_create_queue(display))
    {
        static const wl_registry_listener listener{.global = &WaylandListener::bind,
                                                   .global_remove = [](auto...) {}};
        // Objects made from the wrapper send all their events to the queue, including the first.
        auto *wrapper = static_cast<wl_display *>(wl_proxy_create_wrapper(display));
        wl_proxy_set_queue(reinterpret_cast<wl_proxy *>(wrapper), m_queue.get());
        m_registry.reset(wl_display_get_registry(wrapper));
        wl_proxy_wrapper_destroy(wrapper);
        wl_registry_add_listener(m_registry.get(), &listener, this);
        wl_display_roundtrip_queue(display, m_queue.get()); // the seats
        wl_display_roundtrip_queue(display, m_queue.get()); // their keyboards
        wl_display_roundtrip_queue(display, m_queue.get()); // the layouts
    }

    ~WaylandListener() override
    {
        m_keyboards.clear();
        m_registry.reset();
        wl_display_flush(m_display);
    }

    bool hasEscape() override
    {
        readWhatIsThere();
        wl_display_dispatch_queue_pending(m_display, m_queue.get());
        bool found = false;
        for (const auto &keyboard : m_keyboards)
            found = keyboard->takeEscape() || found;
        return found;
    }

private:
    static void bind(void *data, wl_registry *registry, std::uint32_t name, const char *interface,
                     std::uint32_t version)
    {
        constexpr std::uint32_t wanted = WL_SEAT_RELEASE_SINCE_VERSION;
        if (std::string_view(interface) != wl_seat_interface.name || version < wanted)
            return;
        auto *seat =
            static_cast<wl_seat *>(wl_registry_bind(registry, name, &wl_seat_interface, wanted));
        static_cast<WaylandListener *>(data)->m_keyboards.push_back(
            std::make_unique<Keyboard>(seat));
    }

    /// The toolkit's own thread also reads, but not always while the main thread works.
    void readWhatIsThere()
    {
        if (wl_display_prepare_read_queue(m_display, m_queue.get()) != 0)
            return; // something has been read already
        wl_display_flush(m_display);
        pollfd connection{.fd = wl_display_get_fd(m_display), .events = POLLIN, .revents = 0};
        if (poll(&connection, 1, 0) > 0)
            wl_display_read_events(m_display);
        else
            wl_display_cancel_read(m_display);
    }

    wl_display *m_display; ///< the toolkit's
    Owned<wl_event_queue, &wl_event_queue_destroy> m_queue;
    Owned<wl_registry, &wl_registry_destroy> m_registry;
    std::vector<std::unique_ptr<Keyboard>> m_keyboards;
};

} // namespace

bool canListenForEscapeOnWayland()
{
    return toolkitDisplay() != nullptr;
}

std::unique_ptr<EscapeListener> listenForEscapeOnWayland()
{
    return std::make_unique<WaylandListener>(toolkitDisplay());
}

} // namespace lyrabox
