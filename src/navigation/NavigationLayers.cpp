#include "navigation/NavigationLayers.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>

namespace lyrabox {

namespace {

constexpr double cornerRadius = 8.0;
const QColor backgroundColor = QColor::fromRgbF(0.7412F, 0.7647F, 0.7804F, 1.0F);
const QColor playedColor = QColor::fromRgbF(0.2039F, 0.5961F, 0.8588F, 1.0F);
const QColor playedBeforeLoopColor = QColor::fromRgbF(0.2039F, 0.5961F, 0.8588F, 0.5F);

/// Intersects `rect` with the rounded rectangle `bounds`. It is filled as a path, because clipping
/// would leave the corners jagged.
QPainterPath rounded(const QRectF &bounds, const QRectF &rect)
{
    QPainterPath mask;
    mask.addRoundedRect(bounds, cornerRadius, cornerRadius);
    if (rect == bounds)
        return mask;
    QPainterPath part;
    part.addRect(rect);
    return mask.intersected(part);
}

void fill(QPainter &context, const QRectF &bounds, const QRectF &rect, const QColor &color)
{
    if (rect.width() > 0.0)
        context.fillPath(rounded(bounds, rect), color);
}

} // namespace

void BackLayerDelegate::drawLayerInContext(const QRectF &bounds, QPainter &context) const
{
    context.save();
    context.setRenderHint(QPainter::Antialiasing);
    fill(context, bounds, bounds, backgroundColor);
    context.restore();
}

void PlayLayerDelegate::drawLayerInContext(const QRectF &bounds, QPainter &context) const
{
    if (!std::isfinite(m_playProgress))
        return;
    context.save();
    context.setRenderHint(QPainter::Antialiasing);
    QRectF played = bounds;
    played.setWidth(bounds.width() * std::clamp(m_playProgress, 0.0, 1.0));
    if (m_loopStartIsSet && std::isfinite(m_loopStart)) {
        const double cut = std::clamp(m_loopStart * bounds.width(), 0.0, played.width());
        QRectF slice = played;
        slice.setWidth(cut);
        QRectF remainder = played;
        remainder.setLeft(played.left() + cut);
        fill(context, bounds, slice, playedBeforeLoopColor);
        fill(context, bounds, remainder, playedColor);
    } else {
        fill(context, bounds, played, playedColor);
    }
    context.restore();
}

} // namespace lyrabox
