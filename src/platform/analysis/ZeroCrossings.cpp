#include "platform/analysis/ZeroCrossings.h"

#include "platform/analysis/SampleShape.h"

#include <algorithm>
#include <cmath>

namespace lyrabox {

namespace {

/// The samples of one channel before and behind a cut.
struct Cut {
    float before;
    float behind;

    bool isCrossing() const
    {
        return before == 0.0F || behind == 0.0F || (before < 0.0F) != (behind < 0.0F);
    }
    float magnitude() const { return std::abs(before) + std::abs(behind); }
};

Cut cutAt(std::span<const float> channel, std::uint64_t place)
{
    return {place > 0 ? undamaged(channel[place - 1]) : 0.0F,
            place < channel.size() ? undamaged(channel[place]) : 0.0F};
}

} // namespace

std::uint64_t nearestZeroCrossing(const SongSamples &song, std::uint64_t frame, std::uint64_t range)
{
    const std::uint64_t end = song.frames();
    const std::uint64_t middle = std::min(frame, end);
    std::uint64_t quietest = middle;
    float smallest = INFINITY;
    // Whether the place is a crossing. If not, remembers it if it is the quietest so far.
    const auto isCrossing = [&](std::uint64_t place) {
        const Cut left = cutAt(song.left, place);
        const Cut right = cutAt(song.right, place);
        if (left.isCrossing() && right.isCrossing())
            return true;
        if (const float sum = left.magnitude() + right.magnitude(); sum < smallest) {
            smallest = sum;
            quietest = place;
        }
        return false;
    };
    for (std::uint64_t distance = 0; distance <= range; ++distance) {
        const bool hasEarlier = distance <= middle;
        const bool hasLater = distance <= end - middle;
        if (!hasEarlier && !hasLater)
            break;
        if (hasEarlier && isCrossing(middle - distance))
            return middle - distance;
        if (hasLater && isCrossing(middle + distance))
            return middle + distance;
    }
    return quietest;
}

} // namespace lyrabox
