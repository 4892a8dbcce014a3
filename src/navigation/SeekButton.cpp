#include "navigation/SeekButton.h"

#include "engine/LB_AudioController.h"
#include "navigation/LB_NavigationView.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>

namespace lyrabox {

SeekButton::SeekButton(QWidget *parent)
    : StateButton(parent), m_events(std::make_unique<TimerPeriodicEvents>())
{
    setFocusPolicy(Qt::TabFocus);
    // Mouse and keys are handled below. This signal comes from assistive technologies.
    connect(this, &QAbstractButton::clicked, this, [this] { clickAction(); });
}

SeekButton::~SeekButton()
{
    m_events->stop();
}

void SeekButton::awakeFromNib()
{
    m_theDelay = static_cast<float>(m_periodicDelay);
    m_theInterval = static_cast<float>(m_periodicInterval);
}

bool SeekButton::performKeyEquivalent(QKeyEvent *event)
{
    if (event->key() != m_keyEquivalent)
        return false;
    // Auto-repeat means that the key is held.
    if (isEnabled() && !event->isAutoRepeat() && m_press == Press::None)
        beginPress(Press::Key);
    return true;
}

quint64 SeekButton::stepFrames() const
{
    return static_cast<quint64>(m_navView->audio()->audioBufferFormat().mSampleRate);
}

void SeekButton::beginPress(Press press)
{
    m_press = press;
    m_keyWindow = press == Press::Key ? QApplication::activeWindow() : nullptr;
    m_clickCount = 0;
    setHighlighted(true);
    m_events->start(m_theDelay, repeatPeriod, [this] { periodicEvent(); });
    qApp->installEventFilter(this);
}

void SeekButton::periodicEvent()
{
    ++m_clickCount;
    if (step(m_press) == AfterStep::EndPress)
        endPress(End::Interrupted);
}

void SeekButton::endPress(End end)
{
    if (m_press == Press::None)
        return;
    m_press = Press::None;
    m_events->stop();
    qApp->removeEventFilter(this);
    setHighlighted(false);
    if (end == End::Released && m_clickCount == 0)
        clickAction();
}

void SeekButton::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton && m_press == Press::None)
        beginPress(Press::Mouse);
}

void SeekButton::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton && m_press == Press::Mouse)
        endPress(End::Released);
}

void SeekButton::mouseMoveEvent(QMouseEvent *)
{
    // Ignored, so that the press lasts wherever the pointer goes.
}

void SeekButton::keyPressEvent(QKeyEvent *event)
{
    const bool isPressKey = event->key() == Qt::Key_Space || event->key() == Qt::Key_Return ||
                            event->key() == Qt::Key_Enter;
    if (!isPressKey) {
        event->ignore();
        return;
    }
    if (isEnabled() && !event->isAutoRepeat() && m_press == Press::None)
        beginPress(Press::Key);
}

void SeekButton::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::EnabledChange && !isEnabled())
        endPress(End::Interrupted);
    StateButton::changeEvent(event);
}

void SeekButton::hideEvent(QHideEvent *event)
{
    endPress(End::Interrupted);
    StateButton::hideEvent(event);
}

bool SeekButton::event(QEvent *event)
{
    if (event->type() == QEvent::WindowDeactivate)
        endPress(End::Interrupted);
    return StateButton::event(event);
}

bool SeekButton::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::Close:
    case QEvent::Quit:
        endPress(End::Interrupted);
        return false;
    case QEvent::KeyRelease:
        if (m_press == Press::Key && !static_cast<QKeyEvent *>(event)->isAutoRepeat())
            endPress(End::Released);
        return true;
    case QEvent::WindowDeactivate:
        // The release will go to another window.
        if (watched == m_keyWindow.data())
            endPress(End::Interrupted);
        return false;
    case QEvent::KeyPress:
    case QEvent::ShortcutOverride:
    case QEvent::Shortcut:
    case QEvent::Wheel:
    case QEvent::MouseButtonDblClick:
        event->accept();
        return true;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseMove:
        // The window object gets every event first. The button's own events must pass through it.
        return watched->isWidgetType() && watched != this;
    default:
        return false;
    }
}

} // namespace lyrabox
