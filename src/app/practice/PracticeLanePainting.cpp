// How the lane is drawn: on whole device pixels, as the wave below it.

#include "app/practice/PracticeLane.h"
#include "app/practice/WaveColors.h"
#include "platform/ui/DevicePixels.h"
#include "platform/ui/Theme.h"

#include <QFontMetricsF>
#include <QPaintEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace lyrabox {

namespace {

constexpr double nameSize = 11.0; // points
constexpr double bracketTop = 3.0;
constexpr double bracketHeight = 14.0;
constexpr double bracketRadius = 3.0;
constexpr double flagHalf = 5.0; // half its height
constexpr double middle = bracketTop + bracketHeight / 2.0;

QFont nameFont(double ratio)
{
    QFont font = uiFont(nameSize);
    font.setPixelSize(static_cast<int>(std::lround(nameSize * ratio)));
    return font;
}

/// Whether a flag lies on the bracket of the loop that sounds, which is dark.
bool isOnSounding(const laneLayout::Flag &flag, const laneLayout::Lane &lane)
{
    if (lane.brackets.empty() || !lane.brackets.back().sounds)
        return false;
    const laneLayout::Bracket &bracket = lane.brackets.back();
    return flag.x >= bracket.left && flag.x < bracket.right;
}

} // namespace

/// Measuring and laying out a text takes far longer than drawing it, so that is done once.
PracticeLane::Name &PracticeLane::named(PracticeId id) const
{
    Name &name = m_names[id];
    if (name.shownWidth < 0.0 && name.text.isNull()) {
        name.text = nameOf(id);
        if (name.text.isNull())
            name.text = QStringLiteral("");
        name.width = std::ceil(QFontMetricsF(nameFont(1.0)).horizontalAdvance(name.text)) + 1.0;
    }
    return name;
}

void PracticeLane::paintEvent(QPaintEvent *event)
{
    QPainter painter(this);
    alignToDevicePixels(painter);
    // A widget that is rendered into an image has the ratio of the image.
    const double ratio = painter.deviceTransform().m11();
    painter.scale(1.0 / ratio, 1.0 / ratio);
    painter.setRenderHint(QPainter::Antialiasing);
    const laneLayout::Lane lane = layAt(ratio);
    const double left = event->rect().left();
    const double right = event->rect().right() + 1.0;
    painter.setFont(nameFont(ratio));
    for (const laneLayout::Bracket &bracket : lane.brackets) {
        if (bracket.right >= left && bracket.left <= right)
            drawBracket(painter, bracket, ratio);
    }
    for (const laneLayout::Flag &flag : lane.flags) {
        const double end =
            std::max(flag.x + laneLayout::flagWidth, flag.name.left + flag.name.width);
        if (end >= left && flag.x <= right)
            drawFlag(painter, flag,
                     isOnSounding(flag, lane) ? waveColors::background : waveColors::marker, ratio);
    }
}

/// The loop that sounds is filled with its colour; the others are quiet.
void PracticeLane::drawBracket(QPainter &painter, const laneLayout::Bracket &bracket,
                               double ratio) const
{
    const QColor own = bracket.isWithin ? waveColors::loopColor(bracket.colour) : waveColors::gray;
    const QRectF shape(bracket.left * ratio, std::round(bracketTop * ratio),
                       std::max(1.0, (bracket.right - bracket.left) * ratio),
                       std::round(bracketHeight * ratio));
    if (bracket.sounds) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(own);
        painter.drawRoundedRect(shape, bracketRadius * ratio, bracketRadius * ratio);
        painter.setPen(waveColors::background);
    } else {
        const double line = std::max(1.0, std::round(ratio));
        painter.setPen(QPen(own, line));
        painter.setBrush(waveColors::quiet(own));
        painter.drawRoundedRect(shape.adjusted(line / 2.0, line / 2.0, -line / 2.0, -line / 2.0),
                                bracketRadius * ratio, bracketRadius * ratio);
        painter.setPen(bracket.isWithin ? Theme::text : Theme::secondaryText);
    }
    drawName(painter, bracket.id, bracket.name, ratio);
}

void PracticeLane::drawFlag(QPainter &painter, const laneLayout::Flag &flag, const QColor &color,
                            double ratio) const
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    const double x = flag.x * ratio;
    painter.drawPolygon(QPolygonF{{x, (middle - flagHalf) * ratio},
                                  {x + laneLayout::flagWidth * ratio, middle * ratio},
                                  {x, (middle + flagHalf) * ratio}});
    painter.setPen(color);
    drawName(painter, flag.id, flag.name, ratio);
}

void PracticeLane::drawName(QPainter &painter, PracticeId id, const laneLayout::NameRoom &room,
                            double ratio) const
{
    if (room.width <= 0.0)
        return;
    Name &name = named(id);
    const double shownWidth = std::min(room.width, name.width);
    if (name.shownWidth != shownWidth || name.ratio != ratio) {
        const QFontMetricsF metrics(painter.font());
        const bool fits = shownWidth >= name.width;
        name.shown.setTextFormat(Qt::PlainText);
        name.shown.setText(
            fits ? name.text : metrics.elidedText(name.text, Qt::ElideRight, shownWidth * ratio));
        name.shown.prepare({}, painter.font());
        name.shownWidth = shownWidth;
        name.ratio = ratio;
    }
    const double top = std::round(middle * ratio - name.shown.size().height() / 2.0);
    painter.drawStaticText(QPointF(std::round(room.left * ratio), top), name.shown);
}

} // namespace lyrabox
