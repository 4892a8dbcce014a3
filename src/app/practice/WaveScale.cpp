#include "app/practice/WaveScale.h"

#include <algorithm>

namespace lyrabox {

namespace {
constexpr double roomBesideLoop = 0.08; // of the width, on each side
} // namespace

WaveArea::WaveArea(std::uint64_t frames, double width)
    : m_frames(static_cast<double>(frames)), m_width(std::max(1.0, width))
{}

WaveScale WaveArea::wholeSong() const
{
    return {0.0, std::max(leastFramesPerPoint, m_frames / m_width)};
}

WaveScale WaveArea::seconds(double seconds, double rate, double line) const
{
    return following({0.0, seconds * rate / m_width}, line);
}

WaveScale WaveArea::loop(LoopRange range) const
{
    const auto start = static_cast<double>(range.start);
    const double length = std::max(1.0, static_cast<double>(range.end) - start);
    const double framesPerPoint = length / (m_width * (1.0 - 2.0 * roomBesideLoop));
    return inside({start - roomBesideLoop * m_width * framesPerPoint, framesPerPoint});
}

WaveScale WaveArea::zoomed(WaveScale scale, double factor, double x) const
{
    const double frame = scale.frameAt(x);
    const double framesPerPoint =
        std::clamp(scale.framesPerPoint * factor, leastFramesPerPoint, wholeSong().framesPerPoint);
    return inside({frame - x * framesPerPoint, framesPerPoint});
}

WaveScale WaveArea::scrolled(WaveScale scale, double points) const
{
    return inside({scale.first + points * scale.framesPerPoint, scale.framesPerPoint});
}

WaveScale WaveArea::following(WaveScale scale, double frame) const
{
    return inside({frame - linePart * m_width * scale.framesPerPoint, scale.framesPerPoint});
}

WaveScale WaveArea::inside(WaveScale scale) const
{
    const WaveScale whole = wholeSong();
    if (scale.framesPerPoint >= whole.framesPerPoint)
        return whole;
    scale.framesPerPoint = std::max(leastFramesPerPoint, scale.framesPerPoint);
    const double lead = linePart * m_width * scale.framesPerPoint;
    scale.first = std::clamp(scale.first, -lead, m_frames - lead);
    return scale;
}

} // namespace lyrabox
