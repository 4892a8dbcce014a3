#include "app/practice/PracticeKeys.h"

#include "platform/ui/KeyPosition.h"
#include "platform/ui/KeyRepeat.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>

#include <utility>

namespace lyrabox {

namespace {

QKeySequence sequenceOf(const QKeyEvent &key)
{
    return QKeySequence(
        QKeyCombination(key.modifiers() & ~Qt::KeypadModifier, static_cast<Qt::Key>(key.key())));
}

bool needsControl(const QKeySequence &keys)
{
    return (keys[0].keyboardModifiers() & Qt::ControlModifier) != 0;
}

} // namespace

PracticeKeys::PracticeKeys(std::function<void(int)> playLoop, QObject *parent)
    : QObject(parent), m_playLoop(std::move(playLoop))
{
    setEntries(practiceCommands());
}

void PracticeKeys::setEntries(const QList<PracticeCommandEntry> &entries)
{
    m_all.clear();
    m_everywhere.clear();
    m_digits.clear();
    for (const PracticeCommandEntry &entry : entries) {
        for (const QKeySequence &keys : entry.keys) {
            if (entry.command == PracticeCommand::PlayLoop &&
                keys == QKeySequence(Qt::Key_0 + entry.argument))
                m_digits.append(entry.argument);
            if (needsControl(keys))
                continue;
            m_all.append(keys);
            if (entry.reach == PracticeCommandEntry::Reach::Windows)
                m_everywhere.append(keys);
        }
    }
}

void PracticeKeys::setActive(bool active)
{
    if (std::exchange(m_isActive, active) == active)
        return;
    if (active)
        qApp->installEventFilter(this);
    else
        qApp->removeEventFilter(this);
}

bool PracticeKeys::eventFilter(QObject *watched, QEvent *event)
{
    const bool isOverride = event->type() == QEvent::ShortcutOverride;
    if ((!isOverride && event->type() != QEvent::KeyPress) || !watched->isWidgetType())
        return false;
    const auto *widget = static_cast<const QWidget *>(watched);
    if (!m_windows.contains(widget->window()) || QApplication::activePopupWidget() != nullptr)
        return false;
    auto &key = static_cast<QKeyEvent &>(*event);
    // A key that the focused widget does not use goes on to its parents.
    const QWidget *focus = QApplication::focusWidget();
    if (takesText(focus != nullptr ? focus : widget)) {
        if (!m_all.contains(sequenceOf(key)))
            return false;
        if (isOverride) {
            key.accept();
            return true;
        }
        return key.modifiers().testFlag(Qt::AltModifier);
    }
    if (isOverride)
        return false;
    // What arrives here was no shortcut.
    if (const int digit = digitOfKey(key); m_digits.contains(digit)) {
        if (!key.isAutoRepeat())
            m_playLoop(digit);
        return true;
    }
    return m_everywhere.contains(sequenceOf(key));
}

} // namespace lyrabox
