#include "platform/ui/KeyPosition.h"

#include <QKeyEvent>

namespace lyrabox {

int digitOfKey(const QKeyEvent &event)
{
    // X and Wayland number the keys of a keyboard alike.
    constexpr quint32 positionOfOne = 10;
    constexpr quint32 positionOfNine = 18;
    const Qt::KeyboardModifiers modifiers = event.modifiers() & ~Qt::KeypadModifier;
    const quint32 position = event.nativeScanCode();
    if (modifiers == Qt::NoModifier && position >= positionOfOne && position <= positionOfNine)
        return static_cast<int>(position - positionOfOne) + 1;
    if ((modifiers & ~Qt::ShiftModifier) == Qt::NoModifier && event.key() >= Qt::Key_1 &&
        event.key() <= Qt::Key_9)
        return event.key() - Qt::Key_0;
    return 0;
}

} // namespace lyrabox
