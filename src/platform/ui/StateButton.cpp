#include "platform/ui/StateButton.h"

#include "platform/ui/Accessibility.h"
#include "platform/ui/DevicePixels.h"
#include "platform/ui/Theme.h"

#include <QAccessible>
#include <QPainter>

namespace lyrabox {

namespace {
constexpr double dimmedOpacity = 0.4;
constexpr int boxMargin = 7;
constexpr int discMargin = 10;
} // namespace

StateButton::StateButton(QWidget *parent) : QAbstractButton(parent)
{
    installAccessibleControls();
    // Tab gives the button the keyboard focus, a click does not.
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(this, &QAbstractButton::pressed, this, qOverload<>(&QWidget::update));
    connect(this, &QAbstractButton::released, this, qOverload<>(&QWidget::update));
}

void StateButton::setState(int state)
{
    if (m_state == state)
        return;
    m_state = state;
    showStateText();
    update();
    Q_EMIT stateChanged(state);
    QAccessible::State changed;
    changed.checked = true;
    changed.checkStateMixed = true;
    QAccessibleStateChangeEvent event(this, changed);
    QAccessible::updateAccessibility(&event);
}

void StateButton::setImage(const NamedImage &image)
{
    m_image = image;
    updateGeometry();
    update();
}

void StateButton::setAlternateImage(const NamedImage &image)
{
    m_alternateImage = image;
    update();
}

void StateButton::setHighlightMode(Highlight mode)
{
    m_highlightMode = mode;
    update();
}

void StateButton::setImageDimsWhenDisabled(bool dims)
{
    m_imageDimsWhenDisabled = dims;
    update();
}

void StateButton::setBackground(Background background)
{
    m_background = background;
    updateGeometry();
    update();
}

void StateButton::setStateTexts(const QString &off, const QString &mixed, const QString &on)
{
    m_stateTexts = {off, mixed, on};
    showStateText();
}

void StateButton::showStateText()
{
    if (m_stateTexts.isEmpty())
        return;
    const QString &text = m_stateTexts.at(m_state == 0 ? 0 : m_state == -1 ? 1 : 2);
    setToolTip(text);
    setAccessibleName(text);
}

void StateButton::setHighlighted(bool highlighted)
{
    m_highlighted = highlighted;
    update();
}

QSize StateButton::sizeHint() const
{
    const QSize image = m_image.size().isEmpty() ? QSize(16, 16) : m_image.size();
    switch (m_background) {
    case Background::None:
        return image;
    case Background::Box:
        return {image.width() + 2 * boxMargin, Theme::controlHeight};
    case Background::Round:
    case Background::RoundAccent:
        break;
    }
    const int diameter = qMax(image.width(), image.height()) + 2 * discMargin;
    return {diameter, diameter};
}

void StateButton::nextCheckState()
{
    if (isMomentary())
        return;
    if (m_state == 0)
        setState(m_allowsMixedState ? -1 : 1);
    else
        setState(m_state == -1 ? 1 : 0);
}

bool StateButton::hitButton(const QPoint &position) const
{
    return rect().contains(position);
}

QRectF StateButton::backgroundRect() const
{
    if (m_background == Background::None || m_background == Background::Box)
        return rect();
    const int diameter = qMin(width(), height());
    return QRectF((width() - diameter) / 2, (height() - diameter) / 2, diameter, diameter);
}

void StateButton::drawBackground(QPainter &painter) const
{
    const bool pushedIn = isHighlighted() && m_highlightMode == Highlight::PushIn;
    const QRectF area = backgroundRect();
    switch (m_background) {
    case Background::None:
        break;
    case Background::Box:
        drawControlBox(painter, area, Theme::radius, pushedIn);
        break;
    case Background::Round:
        drawControlBox(painter, area, area.width() / 2.0 - 0.5, pushedIn);
        break;
    case Background::RoundAccent:
        painter.setPen(Qt::NoPen);
        painter.setBrush(pushedIn ? Theme::accentPressed : Theme::accent);
        painter.drawEllipse(area);
        break;
    }
}

void StateButton::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    alignToDevicePixels(painter);
    painter.setRenderHint(QPainter::Antialiasing);
    drawBackground(painter);
    if (!isEnabled() && m_imageDimsWhenDisabled)
        painter.setOpacity(dimmedOpacity);
    drawImage(painter, rect());
    painter.setOpacity(1.0);
    if (hasFocus()) {
        const bool round =
            m_background == Background::Round || m_background == Background::RoundAccent;
        drawFocusRing(painter, backgroundRect(),
                      round ? backgroundRect().width() / 2.0 - 1.0 : Theme::radius);
    }
}

void StateButton::drawImage(QPainter &painter, const QRect &rect)
{
    const bool alternate =
        isHighlighted() && m_highlightMode == Highlight::PushIn && !m_alternateImage.isNull();
    drawCentered(painter, alternate ? m_alternateImage : m_image, rect);
}

void StateButton::drawCentered(QPainter &painter, const NamedImage &image, const QRect &rect) const
{
    if (image.isNull())
        return;
    const QPoint position(qRound(rect.width() * 0.5 - image.size().width() * 0.5),
                          qRound(rect.height() * 0.5 - image.size().height() * 0.5));
    image.draw(painter, position);
}

} // namespace lyrabox
