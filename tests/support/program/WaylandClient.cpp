#include "support/program/WaylandClient.h"

#include "support/program/KeyboardLayout.h"

#include <gtest/gtest.h>

#include <linux/input-event-codes.h>
#include <sys/mman.h>
#include <unistd.h>

#include <chrono>
#include <cstring>
#include <string_view>

#include "virtual-keyboard-unstable-v1-client.h"
#include "wlr-screencopy-unstable-v1-client.h"
#include "wlr-virtual-pointer-unstable-v1-client.h"
#include "xdg-activation-v1-client.h"
#include <wayland-client.h>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox::test {
namespace {

constexpr double notch = 15.0; // the axis value that compositors send per notch

/// Deletes an object of the protocol with its own function.
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

quint32 timeNow()
{
    using namespace std::chrono;
    return static_cast<quint32>(
        duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count());
}

/// Memory that is shared with the compositor.
class SharedMemory {
public:
    explicit SharedMemory(std::size_t size) : m_file(memfd_create("lyrabox-test", 0)), m_size(size)
    {
        if (ftruncate(m_file, static_cast<off_t>(size)) == 0)
            m_bytes = mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_SHARED, m_file, 0);
        EXPECT_NE(m_bytes, MAP_FAILED) << "no shared memory";
    }
    ~SharedMemory()
    {
        munmap(m_bytes, m_size);
        close(m_file);
    }
    SharedMemory(const SharedMemory &) = delete;
    SharedMemory &operator=(const SharedMemory &) = delete;

    int file() const { return m_file; }
    std::size_t size() const { return m_size; }
    uchar *bytes() const { return static_cast<uchar *>(m_bytes); }

private:
    int m_file;
    std::size_t m_size;
    void *m_bytes = MAP_FAILED;
};

} // namespace

class WaylandClient::Connection {
public:
    Connection(const QString &socket, QSize screen)
        : m_display(wl_display_connect(socket.toLocal8Bit().constData())), m_size(screen)
    {
        if (m_display == nullptr) {
            ADD_FAILURE() << "no Wayland compositor at " << socket.toStdString();
            return;
        }
        static const wl_registry_listener listener{.global = &Connection::bind,
                                                   .global_remove = [](auto...) {}};
        m_registry.reset(wl_display_get_registry(m_display.get()));
        wl_registry_add_listener(m_registry.get(), &listener, this);
        wl_display_roundtrip(m_display.get());
        if (!m_seat || !m_output || !m_memory || !m_keyboards || !m_pointers || !m_pictures ||
            !m_activation) {
            ADD_FAILURE() << "the compositor has no virtual devices, no pictures or no activation";
            m_display.reset();
            return;
        }
        m_keyboard.reset(zwp_virtual_keyboard_manager_v1_create_virtual_keyboard(m_keyboards.get(),
                                                                                 m_seat.get()));
        const QByteArray layout = m_layout.text();
        const SharedMemory keymap(static_cast<std::size_t>(layout.size()) + 1);
        std::memcpy(keymap.bytes(), layout.constData(), keymap.size());
        zwp_virtual_keyboard_v1_keymap(m_keyboard.get(), WL_KEYBOARD_KEYMAP_FORMAT_XKB_V1,
                                       keymap.file(), static_cast<quint32>(keymap.size()));
        m_pointer.reset(
            zwlr_virtual_pointer_manager_v1_create_virtual_pointer(m_pointers.get(), m_seat.get()));
        wl_display_roundtrip(m_display.get());
    }

    bool isThere() const
    {
        return m_display != nullptr && wl_display_get_error(m_display.get()) == 0;
    }

    void moveTo(QPoint point)
    {
        zwlr_virtual_pointer_v1_motion_absolute(
            m_pointer.get(), timeNow(), static_cast<quint32>(point.x()),
            static_cast<quint32>(point.y()), static_cast<quint32>(m_size.width()),
            static_cast<quint32>(m_size.height()));
        endPointerFrame();
    }

    void setButton(bool down)
    {
        zwlr_virtual_pointer_v1_button(m_pointer.get(), timeNow(), BTN_LEFT,
                                       down ? WL_POINTER_BUTTON_STATE_PRESSED
                                            : WL_POINTER_BUTTON_STATE_RELEASED);
        endPointerFrame();
    }

    void turnWheel(bool up)
    {
        const int step = up ? -1 : 1;
        zwlr_virtual_pointer_v1_axis_source(m_pointer.get(), WL_POINTER_AXIS_SOURCE_WHEEL);
        zwlr_virtual_pointer_v1_axis_discrete(m_pointer.get(), timeNow(),
                                              WL_POINTER_AXIS_VERTICAL_SCROLL,
                                              wl_fixed_from_double(notch * step), step);
        endPointerFrame();
    }

    const KeyboardLayout &layout() const { return m_layout; }

    void setKey(quint32 code, bool down)
    {
        zwp_virtual_keyboard_v1_key(m_keyboard.get(), timeNow(), code,
                                    down ? WL_KEYBOARD_KEY_STATE_PRESSED
                                         : WL_KEYBOARD_KEY_STATE_RELEASED);
        m_layout.setKey(code, down);
        zwp_virtual_keyboard_v1_modifiers(m_keyboard.get(), m_layout.depressedModifiers(), 0,
                                          m_layout.lockedModifiers(), 0);
        wl_display_roundtrip(m_display.get());
    }

    QImage picture()
    {
        static const zwlr_screencopy_frame_v1_listener listener{
            .buffer =
                [](void *data, auto *, quint32 format, quint32 width, quint32 height,
                   quint32 stride) {
                    *static_cast<Frame *>(data) = {format, static_cast<int>(width),
                                                   static_cast<int>(height),
                                                   static_cast<int>(stride)};
                },
            .flags = [](void *data, auto *,
                        quint32 flags) { static_cast<Frame *>(data)->isUpsideDown = flags == 1; },
            .ready = [](void *data, auto...) { static_cast<Frame *>(data)->isReady = true; },
            .failed = [](void *data, auto *) { static_cast<Frame *>(data)->hasFailed = true; }};
        Frame frame;
        const Owned<zwlr_screencopy_frame_v1, &zwlr_screencopy_frame_v1_destroy> request(
            zwlr_screencopy_manager_v1_capture_output(m_pictures.get(), 0, m_output.get()));
        zwlr_screencopy_frame_v1_add_listener(request.get(), &listener, &frame);
        wl_display_roundtrip(m_display.get());
        if (frame.format != WL_SHM_FORMAT_XRGB8888 && frame.format != WL_SHM_FORMAT_ARGB8888)
            return {};

        const SharedMemory pixels(static_cast<std::size_t>(frame.stride) *
                                  static_cast<std::size_t>(frame.height));
        const Owned<wl_shm_pool, &wl_shm_pool_destroy> pool(
            wl_shm_create_pool(m_memory.get(), pixels.file(), static_cast<int>(pixels.size())));
        const Owned<wl_buffer, &wl_buffer_destroy> buffer(wl_shm_pool_create_buffer(
            pool.get(), 0, frame.width, frame.height, frame.stride, frame.format));
        zwlr_screencopy_frame_v1_copy(request.get(), buffer.get());
        while (!frame.isReady && !frame.hasFailed) {
            if (wl_display_dispatch(m_display.get()) < 0)
                return {};
        }
        const QImage image(pixels.bytes(), frame.width, frame.height, frame.stride,
                           QImage::Format_RGB32);
        if (frame.hasFailed)
            return {};
        return frame.isUpsideDown ? image.mirrored() : image.copy();
    }

    QString activationToken()
    {
        static const xdg_activation_token_v1_listener listener{
            .done = [](void *data, auto *, const char *text) {
                *static_cast<QString *>(data) = QString::fromUtf8(text);
            }};
        QString text;
        const Owned<xdg_activation_token_v1, &xdg_activation_token_v1_destroy> token(
            xdg_activation_v1_get_activation_token(m_activation.get()));
        xdg_activation_token_v1_add_listener(token.get(), &listener, &text);
        xdg_activation_token_v1_commit(token.get());
        wl_display_roundtrip(m_display.get());
        return text;
    }

private:
    struct Frame {
        quint32 format = UINT32_MAX;
        int width = 0;
        int height = 0;
        int stride = 0;
        bool isUpsideDown = false;
        bool isReady = false;
        bool hasFailed = false;
    };

    void endPointerFrame()
    {
        zwlr_virtual_pointer_v1_frame(m_pointer.get());
        wl_display_roundtrip(m_display.get());
    }

    static void bind(void *data, wl_registry *registry, quint32 name, const char *interface,
                     quint32)
    {
        auto *self = static_cast<Connection *>(data);
        const auto bindTo = [&](auto &object, const wl_interface &wanted) {
            using Object = typename std::remove_reference_t<decltype(object)>::element_type;
            if (!object && std::string_view(interface) == wanted.name)
                object.reset(static_cast<Object *>(wl_registry_bind(registry, name, &wanted, 1)));
        };
        bindTo(self->m_seat, wl_seat_interface);
        bindTo(self->m_output, wl_output_interface);
        bindTo(self->m_memory, wl_shm_interface);
        bindTo(self->m_keyboards, zwp_virtual_keyboard_manager_v1_interface);
        bindTo(self->m_pointers, zwlr_virtual_pointer_manager_v1_interface);
        bindTo(self->m_pictures, zwlr_screencopy_manager_v1_interface);
        bindTo(self->m_activation, xdg_activation_v1_interface);
    }

    Owned<wl_display, &wl_display_disconnect> m_display;
    QSize m_size;
    KeyboardLayout m_layout;
    Owned<wl_registry, &wl_registry_destroy> m_registry;
    Owned<wl_seat, &wl_seat_destroy> m_seat;
    Owned<wl_output, &wl_output_destroy> m_output;
    Owned<wl_shm, &wl_shm_destroy> m_memory;
    Owned<zwp_virtual_keyboard_manager_v1, &zwp_virtual_keyboard_manager_v1_destroy> m_keyboards;
    Owned<zwlr_virtual_pointer_manager_v1, &zwlr_virtual_pointer_manager_v1_destroy> m_pointers;
    Owned<zwlr_screencopy_manager_v1, &zwlr_screencopy_manager_v1_destroy> m_pictures;
    Owned<xdg_activation_v1, &xdg_activation_v1_destroy> m_activation;
    Owned<zwp_virtual_keyboard_v1, &zwp_virtual_keyboard_v1_destroy> m_keyboard;
    Owned<zwlr_virtual_pointer_v1, &zwlr_virtual_pointer_v1_destroy> m_pointer;
};

WaylandClient::WaylandClient(const QString &socket, QSize screen)
    : m_connection(std::make_unique<Connection>(socket, screen))
{}

WaylandClient::~WaylandClient() = default;

void WaylandClient::moveTo(QPoint point)
{
    if (m_connection->isThere())
        m_connection->moveTo(point);
}

void WaylandClient::setButton(bool down)
{
    if (m_connection->isThere())
        m_connection->setButton(down);
}

void WaylandClient::turnWheel(bool up)
{
    if (m_connection->isThere())
        m_connection->turnWheel(up);
}

void WaylandClient::setKey(const QString &name, bool down)
{
    const QString symbol = name == u"ctrl"_s    ? u"Control_L"_s
                           : name == u"shift"_s ? u"Shift_L"_s
                           : name == u"alt"_s   ? u"Alt_L"_s
                                                : name;
    const auto key = m_connection->layout().keyOfSymbol(symbol);
    EXPECT_TRUE(key) << "no key is " << name.toStdString();
    if (key && m_connection->isThere())
        m_connection->setKey(key->code, down);
}

void WaylandClient::typeCharacter(QChar character)
{
    const auto key = m_connection->layout().keyOfCharacter(character);
    EXPECT_TRUE(key) << "no key is " << QString(character).toStdString();
    if (!key || !m_connection->isThere())
        return;
    if (key->needsShift)
        m_connection->setKey(KEY_LEFTSHIFT, true);
    m_connection->setKey(key->code, true);
    m_connection->setKey(key->code, false);
    if (key->needsShift)
        m_connection->setKey(KEY_LEFTSHIFT, false);
}

QImage WaylandClient::picture()
{
    const QImage image = m_connection->isThere() ? m_connection->picture() : QImage();
    EXPECT_FALSE(image.isNull()) << "the screen cannot be read";
    return image;
}

QString WaylandClient::activationToken()
{
    return m_connection->isThere() ? m_connection->activationToken() : QString();
}

} // namespace lyrabox::test
