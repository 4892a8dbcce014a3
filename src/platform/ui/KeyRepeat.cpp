#include "platform/ui/KeyRepeat.h"

#include <QAbstractSpinBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextEdit>

#include <utility>

namespace lyrabox {

namespace {

std::unique_ptr<QKeyEvent> copyOf(const QKeyEvent &event)
{
    return std::unique_ptr<QKeyEvent>(event.clone());
}

/// A number that identifies the key: its native scan code, or its Qt key if it has no scan code.
quint64 identityOf(const QKeyEvent &event)
{
    constexpr quint64 noCode = quint64{1} << 32;
    const quint64 code = event.nativeScanCode();
    return code != 0 ? code : noCode | static_cast<quint32>(event.key());
}

bool isSameKey(const KeyRepeat::Release &release, const QKeyEvent &event)
{
    return release.event && identityOf(*release.event) == identityOf(event);
}

} // namespace

bool takesText(const QWidget *widget)
{
    if (const auto *edit = qobject_cast<const QLineEdit *>(widget))
        return !edit->isReadOnly();
    if (const auto *edit = qobject_cast<const QTextEdit *>(widget))
        return !edit->isReadOnly();
    if (const auto *edit = qobject_cast<const QPlainTextEdit *>(widget))
        return !edit->isReadOnly();
    return qobject_cast<const QAbstractSpinBox *>(widget) != nullptr;
}

bool keyActsWhileHeld(int key, const QWidget *focus)
{
    switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Escape:
        return false;
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_Home:
    case Qt::Key_End:
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        return true;
    default:
        return takesText(focus);
    }
}

KeyRepeat::KeyRepeat(KeyQuery isDown) : m_isDown(std::move(isDown)) {}

KeyRepeat::~KeyRepeat() = default;

bool KeyRepeat::isReleaseOfRepeat(QObject *receiver, const QKeyEvent &event)
{
    m_releasedKey = identityOf(event);
    m_releasedTime = event.timestamp();
    if (isSameKey(m_pending, event))
        m_pending = {};
    if (event.isAutoRepeat())
        return true;
    if (event.timestamp() == 0 || !m_isDown(event.nativeScanCode()))
        return false;
    m_pending = {receiver, copyOf(event)};
    return true;
}

bool KeyRepeat::isRepeat(QObject *receiver, const QKeyEvent &event)
{
    if (event.type() == QEvent::KeyRelease)
        return isReleaseOfRepeat(receiver, event);
    const bool followsItsRelease = event.timestamp() != 0 && event.timestamp() == m_releasedTime &&
                                   identityOf(event) == m_releasedKey;
    const bool repeats = event.isAutoRepeat() || followsItsRelease;
    if (isSameKey(m_pending, event)) {
        Release pending = std::exchange(m_pending, {});
        if (!repeats)
            m_missed = std::move(pending);
    }
    return repeats;
}

KeyRepeat::Release KeyRepeat::takeMissedRelease()
{
    return std::exchange(m_missed, {});
}

} // namespace lyrabox
