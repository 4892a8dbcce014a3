#include "platform/ui/DisplayKeys.h"

#include <QGuiApplication>

#include <xcb/xcb.h>

#include <cstdlib>
#include <iterator>
#include <memory>

namespace lyrabox {

bool isKeyDownOnDisplay(quint32 nativeScanCode)
{
    auto *x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    xcb_connection_t *connection = x11 != nullptr ? x11->connection() : nullptr;
    if (connection == nullptr)
        return false;
    constexpr quint32 keysPerByte = 8;
    const std::unique_ptr<xcb_query_keymap_reply_t, decltype(&std::free)> reply(
        xcb_query_keymap_reply(connection, xcb_query_keymap(connection), nullptr), &std::free);
    const quint32 byte = nativeScanCode / keysPerByte;
    return reply != nullptr && byte < std::size(reply->keys) &&
           (reply->keys[byte] >> (nativeScanCode % keysPerByte) & 1) != 0;
}

} // namespace lyrabox
