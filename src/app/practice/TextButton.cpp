#include "app/practice/TextButton.h"

#include "platform/ui/DevicePixels.h"
#include "platform/ui/Theme.h"

#include <QPainter>

#include <algorithm>

namespace lyrabox {

namespace {
constexpr int sideMargin = 12;
constexpr int leastWidth = 32;
} // namespace

TextButton::TextButton(const QString &text, QWidget *parent) : QPushButton(text, parent)
{
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize TextButton::sizeHint() const
{
    const int width = fontMetrics().horizontalAdvance(text()) + 2 * sideMargin;
    return {std::max(leastWidth, width), Theme::controlHeight};
}

QColor TextButton::drawBox(QPainter &painter) const
{
    alignToDevicePixels(painter);
    painter.setRenderHint(QPainter::Antialiasing);
    if (isChecked()) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(isDown() ? Theme::accentPressed : Theme::accent);
        painter.drawRoundedRect(rect(), Theme::radius, Theme::radius);
    } else {
        drawControlBox(painter, rect(), Theme::radius, isDown());
    }
    const QColor ink = !isEnabled()  ? Theme::disabledText
                       : isChecked() ? Theme::surface
                                     : Theme::text;
    painter.setPen(ink);
    return ink;
}

void TextButton::drawFocus(QPainter &painter) const
{
    if (hasFocus())
        drawFocusRing(painter, rect(), Theme::radius);
}

void TextButton::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    drawBox(painter);
    painter.drawText(rect(), Qt::AlignCenter | Qt::TextSingleLine, text());
    drawFocus(painter);
}

} // namespace lyrabox
