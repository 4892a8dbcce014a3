// The mouse, the wheel and the keys of the wave.

#include "app/practice/SongBeats.h"
#include "app/practice/SongPractice.h"
#include "app/practice/WaveView.h"
#include "engine/LB_AudioController.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QNativeGestureEvent>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace lyrabox {

using loopHands::Grip;

namespace {
constexpr double dragDistance = 3.0; // points; less is a click
constexpr double pointsPerNotch = 60.0;
constexpr double factorPerNotch = 0.8;
constexpr double unitsPerNotch = 120.0;
constexpr double pagePart = 0.75; // of the width
} // namespace

bool WaveView::event(QEvent *event)
{
    if (event->type() == QEvent::NativeGesture) {
        const auto *gesture = static_cast<QNativeGestureEvent *>(event);
        if (gesture->gestureType() == Qt::ZoomNativeGesture) {
            const double factor = 1.0 / std::max(0.1, 1.0 + gesture->value());
            setScale(area().zoomed(m_scale, factor, gesture->position().x()));
            return true;
        }
    }
    return QWidget::event(event);
}

void WaveView::wheelEvent(QWheelEvent *event)
{
    const QPoint turned = event->angleDelta();
    const bool isSideways = std::abs(turned.x()) > std::abs(turned.y());
    const double notches = (isSideways ? turned.x() : turned.y()) / unitsPerNotch;
    event->accept();
    if (notches == 0.0)
        return;
    if (event->modifiers().testFlag(Qt::ControlModifier))
        setScale(area().zoomed(m_scale, std::pow(factorPerNotch, notches), event->position().x()));
    else
        scrollByHand(-notches * pointsPerNotch);
}

void WaveView::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_PageUp:
        scrollByHand(-pagePart * width());
        break;
    case Qt::Key_PageDown:
        scrollByHand(pagePart * width());
        break;
    case Qt::Key_Home:
        seekTo(0.0);
        break;
    default:
        QWidget::keyPressEvent(event);
    }
}

Grip WaveView::gripAt(QPointF point) const
{
    const std::optional<LoopRange> loop = m_audio->loop();
    if (!loop)
        return Grip::Nothing;
    return loopHands::gripAt(point, m_scale.xOf(static_cast<double>(loop->start)),
                             m_scale.xOf(static_cast<double>(loop->end)), laneHeight);
}

void WaveView::showGrip(Grip grip)
{
    if (grip == Grip::Start || grip == Grip::End)
        setCursor(Qt::SizeHorCursor);
    else if (grip == Grip::Whole)
        setCursor(Qt::OpenHandCursor);
    else
        unsetCursor();
}

void WaveView::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton || m_peaks->frames() == 0)
        return;
    Press press;
    press.point = event->position();
    press.beat = beatAt(press.point);
    press.drag.grip = gripAt(press.point);
    press.drag.from = m_scale.frameAt(press.point.x());
    press.drag.loop = m_audio->loop().value_or(LoopRange{0, 0});
    m_press = press;
}

void WaveView::mouseMoveEvent(QMouseEvent *event)
{
    if (!m_press) {
        showGrip(beatAt(event->position()) ? Grip::Start : gripAt(event->position()));
        return;
    }
    const double x = event->position().x();
    if (!m_press->isDrag && std::abs(x - m_press->point.x()) < dragDistance)
        return;
    m_press->isDrag = true;
    dragTo(x, event->modifiers());
}

void WaveView::dragTo(double x, Qt::KeyboardModifiers modifiers)
{
    if (m_press->beat)
        dragBeat(m_scale.frameAt(x), modifiers);
    else
        m_press->loop = loopHands::dragged(m_press->drag, m_scale.frameAt(x), snap(modifiers),
                                           m_peaks->samples());
    update();
}

void WaveView::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton || !m_press)
        return;
    if (m_press->isDrag) {
        finishDrag();
    } else {
        const double x = m_press->point.x();
        m_press.reset();
        seekTo(m_scale.frameAt(x));
    }
    showGrip(gripAt(event->position()));
}

/// Makes the loop that the drag has shown, and plays what has changed.
void WaveView::finishDrag()
{
    const Press press = *m_press;
    m_press.reset();
    if (press.beat)
        m_beats->moveBeat(*press.beat, press.target);
    else if (press.loop)
        m_practice->changeLoop(*press.loop, press.drag.grip);
    update();
}

} // namespace lyrabox
