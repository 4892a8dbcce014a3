#include "platform/ui/DevicePixels.h"

#include <QPainter>

#include <cmath>

namespace lyrabox {

void alignToDevicePixels(QPainter &painter)
{
    // Not the device's pixel ratio: a widget rendered into an image has a ratio of its own.
    const QTransform transform = painter.deviceTransform();
    const QPointF exact = transform.map(QPointF());
    // Halves go up, as in the toolkit's clipping.
    const QPointF whole(std::floor(exact.x() + 0.5), std::floor(exact.y() + 0.5));
    if (whole != exact)
        painter.translate(transform.inverted().map(whole));
}

} // namespace lyrabox
