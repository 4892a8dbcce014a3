#include "app/controls/LB_Slider.h"

#include "app/controls/SliderAccessible.h"
#include "platform/foundation/MonotonicClock.h"
#include "platform/ui/DevicePixels.h"
#include "platform/ui/Theme.h"

#include <QEasingCurve>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

using lyrabox::sliderGlideProgress;
using lyrabox::sliderValueOnGrid;
namespace Theme = lyrabox::Theme;

namespace {

constexpr int thickness = 18;
constexpr int naturalLength = 110;
constexpr int minimumLength = 40;
constexpr double trackInsetAlong = 8.0;
constexpr double trackInsetAcross = 6.0;
constexpr double trackRadius = 3.0;
/// The size of the knob's box. The drawn knob is inset from it and fills the thickness of the
/// slider.
constexpr double knobBox = 20.0;
constexpr double knobInset = 2.0;
constexpr double knobShift = 0.5;
constexpr double glideSeconds = 0.5;
constexpr int frameMilliseconds = 16;
constexpr int wheelNotch = 120;

qint64 monotonicMilliseconds()
{
    return lyrabox::monotonicTime().count();
}

} // namespace

double lyrabox::sliderGlideProgress(double seconds)
{
    static const QEasingCurve curve = [] {
        QEasingCurve easeOut(QEasingCurve::BezierSpline);
        easeOut.addCubicBezierSegment({0.0, 0.0}, {0.58, 1.0}, {1.0, 1.0});
        return easeOut;
    }();
    return curve.valueForProgress(std::clamp(seconds / glideSeconds, 0.0, 1.0));
}

double lyrabox::sliderValueOnGrid(double value, double step, double minimum, double maximum)
{
    const double onGrid = step > 0.0 ? std::round(value / step) * step : value;
    return std::clamp(onGrid, minimum, maximum);
}

LB_Slider::LB_Slider(QWidget *parent) : LB_Slider(Qt::Horizontal, parent) {}

LB_Slider::LB_Slider(Qt::Orientation orientation, QWidget *parent)
    : QWidget(parent), m_clock(monotonicMilliseconds)
{
    SliderAccessible::install();
    // Tab gives the slider the keyboard focus, a click does not.
    setFocusPolicy(Qt::TabFocus);
    setOrientation(orientation);
}

void LB_Slider::setOrientation(Qt::Orientation orientation)
{
    m_orientation = orientation;
    const bool horizontal = orientation == Qt::Horizontal;
    setSizePolicy(horizontal ? QSizePolicy::Expanding : QSizePolicy::Fixed,
                  horizontal ? QSizePolicy::Fixed : QSizePolicy::Expanding);
    updateGeometry();
    update();
}

void LB_Slider::setMinValue(double value)
{
    m_minValue = value;
    m_maxValue = std::max(m_maxValue, value);
    changeValue(m_value);
}

void LB_Slider::setMaxValue(double value)
{
    m_maxValue = value;
    m_minValue = std::min(m_minValue, value);
    changeValue(m_value);
}

void LB_Slider::setStep(double step)
{
    m_step = std::max(0.0, step);
}

void LB_Slider::setDefaultValue(double value)
{
    m_defaultValue = value;
}

double LB_Slider::bounded(double value) const
{
    return std::isnan(value) ? m_minValue : std::clamp(value, m_minValue, m_maxValue);
}

void LB_Slider::changeValue(double value)
{
    const auto bound = static_cast<float>(bounded(value));
    update();
    if (bound == m_value)
        return;
    m_value = bound;
    Q_EMIT valueChanged(static_cast<double>(bound));
    SliderAccessible::announce(this);
}

void LB_Slider::stopGlide()
{
    m_glideTimer.stop();
}

void LB_Slider::setFloatValue(double value)
{
    stopGlide();
    changeValue(value);
}

void LB_Slider::animateToFloatValue(double value)
{
    const double from = displayedValue();
    if (from == static_cast<double>(static_cast<float>(bounded(value)))) {
        setFloatValue(value);
        return;
    }
    m_glideFrom = from;
    m_glideStart = m_clock();
    m_glideTimer.start(frameMilliseconds, Qt::PreciseTimer, this);
    changeValue(value);
}

double LB_Slider::displayedValue() const
{
    const auto value = static_cast<double>(m_value);
    if (!m_glideTimer.isActive())
        return value;
    const double seconds = static_cast<double>(m_clock() - m_glideStart) / 1000.0;
    return m_glideFrom + (value - m_glideFrom) * sliderGlideProgress(seconds);
}

void LB_Slider::timerEvent(QTimerEvent *event)
{
    if (event->timerId() != m_glideTimer.timerId()) {
        QWidget::timerEvent(event);
        return;
    }
    if (static_cast<double>(m_clock() - m_glideStart) / 1000.0 >= glideSeconds)
        stopGlide();
    update();
}

void LB_Slider::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    stopGlide(); // the old position was never visible
}

QSize LB_Slider::sizeHint() const
{
    return m_orientation == Qt::Horizontal ? QSize(naturalLength, thickness)
                                           : QSize(thickness, naturalLength);
}

QSize LB_Slider::minimumSizeHint() const
{
    return m_orientation == Qt::Horizontal ? QSize(minimumLength, thickness)
                                           : QSize(thickness, minimumLength);
}

QRectF LB_Slider::trackRect() const
{
    const bool horizontal = m_orientation == Qt::Horizontal;
    const double across = horizontal ? trackInsetAcross : trackInsetAlong;
    const double along = horizontal ? trackInsetAlong : trackInsetAcross;
    return QRectF(rect()).adjusted(along, across, -along, -across);
}

double LB_Slider::travel() const
{
    // At either end of its travel, the drawn knob just touches the end of the slider.
    const double length = m_orientation == Qt::Horizontal ? width() : height();
    return std::max(0.0, length - (knobBox - 2.0 * knobInset) - 2.0 * knobShift);
}

QRectF LB_Slider::knobRect() const
{
    const double range = m_maxValue - m_minValue;
    const double fraction = range > 0.0 ? (displayedValue() - m_minValue) / range : 0.0;
    const double reach = (knobBox - 2.0 * knobInset) / 2.0;
    const QPointF middle =
        m_orientation == Qt::Horizontal
            ? QPointF(reach + fraction * travel(), height() / 2.0)
            : QPointF(width() / 2.0, height() - reach - knobShift - fraction * travel());
    const QRectF box(middle.x() - knobBox / 2.0, middle.y() - knobBox / 2.0, knobBox, knobBox);
    const QRectF knob = box.adjusted(knobInset, knobInset, -knobInset, -knobInset);
    return knob.translated(knobShift, 0.0);
}

double LB_Slider::valueAt(const QPointF &point) const
{
    const double reach = (knobBox - 2.0 * knobInset) / 2.0;
    const double distance = m_orientation == Qt::Horizontal
                                ? point.x() - reach - knobShift
                                : height() - reach - knobShift - point.y();
    const double fraction = travel() > 0.0 ? distance / travel() : 0.0;
    return m_minValue + std::clamp(fraction, 0.0, 1.0) * (m_maxValue - m_minValue);
}

void LB_Slider::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    lyrabox::alignToDevicePixels(painter);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Theme::lineGray);
    painter.drawRoundedRect(trackRect(), trackRadius, trackRadius);
    painter.setBrush(isEnabled() ? Theme::accent : Theme::disabledText);
    painter.drawEllipse(knobRect());
    if (hasFocus())
        lyrabox::drawFocusRing(painter, knobRect(), knobRect().width() / 2.0 - 1.0);
}

void LB_Slider::moveByUser(double value)
{
    stopGlide();
    const float before = m_value;
    changeValue(sliderValueOnGrid(value, m_step, m_minValue, m_maxValue));
    if (m_value != before)
        Q_EMIT moved(this);
}

void LB_Slider::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    m_dragging = true;
    const QRectF knob = knobRect();
    if (knob.contains(event->position())) {
        m_grabOffset = event->position() - knob.center();
        return;
    }
    m_grabOffset = {};
    moveByUser(valueAt(event->position()));
}

void LB_Slider::mouseMoveEvent(QMouseEvent *event)
{
    if (m_dragging)
        moveByUser(valueAt(event->position() - m_grabOffset));
}

void LB_Slider::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        m_dragging = false;
}

void LB_Slider::mouseDoubleClickEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton && m_defaultValue)
        moveByUser(*m_defaultValue);
    else
        mousePressEvent(event);
}

void LB_Slider::wheelEvent(QWheelEvent *event)
{
    const QPoint delta = event->angleDelta();
    m_wheelRemainder += delta.y() != 0 ? delta.y() : -delta.x();
    const int notches = m_wheelRemainder / wheelNotch;
    m_wheelRemainder -= notches * wheelNotch;
    if (notches != 0)
        moveByUser(static_cast<double>(m_value) + notches * stepOrHundredth());
    event->accept();
}

double LB_Slider::stepOrHundredth() const
{
    return m_step > 0.0 ? m_step : (m_maxValue - m_minValue) / 100.0;
}

double LB_Slider::keyStep() const
{
    return m_keyStep > 0.0 ? m_keyStep : stepOrHundredth();
}

double LB_Slider::pageStep() const
{
    return m_pageStep > 0.0 ? m_pageStep : 10.0 * keyStep();
}

void LB_Slider::setKeySteps(double arrow, double page)
{
    m_keyStep = arrow;
    m_pageStep = page;
}

void LB_Slider::keyPressEvent(QKeyEvent *event)
{
    const auto value = static_cast<double>(m_value);
    switch (event->key()) {
    case Qt::Key_Left:
    case Qt::Key_Down:
        moveByUser(value - keyStep());
        break;
    case Qt::Key_Right:
    case Qt::Key_Up:
        moveByUser(value + keyStep());
        break;
    case Qt::Key_PageDown:
        moveByUser(value - pageStep());
        break;
    case Qt::Key_PageUp:
        moveByUser(value + pageStep());
        break;
    case Qt::Key_Home:
        moveByUser(m_minValue);
        break;
    case Qt::Key_End:
        moveByUser(m_maxValue);
        break;
    default:
        QWidget::keyPressEvent(event);
    }
}
