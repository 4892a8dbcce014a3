#pragma once

class QPainter;

namespace lyrabox {

/// For the start of a paint event: moves the painter by less than a device pixel, so that the
/// widget's origin lies on a corner of a device pixel. At a fractional scale such as 1.5 every
/// second point lies between device pixels. The toolkit clips widgets at whole ones, and would cut
/// off a part of a shape that touches the widget's edge. Does nothing at whole scales.
void alignToDevicePixels(QPainter &painter);

} // namespace lyrabox
