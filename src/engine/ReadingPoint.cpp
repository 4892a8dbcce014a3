#include "engine/ReadingPoint.h"

namespace lyrabox::engine {

std::uint64_t ReadingPoint::positionBefore(std::uint64_t distance) const noexcept
{
    std::uint64_t place = frame;
    if (jumps > 0 && distance > framesSinceJump) {
        distance -= framesSinceJump;
        place = jumpedFrom;
        // Earlier rounds of the loop played the same frames. Only the first may have begun
        // elsewhere.
        const std::uint64_t round = jumpedFrom > jumpedTo ? jumpedFrom - jumpedTo : 0;
        const std::uint64_t repeated = round * (jumps - 1);
        if (distance > repeated)
            distance -= repeated;
        else if (round > 0)
            distance = (distance - 1) % round + 1;
    }
    return place > distance ? place - distance : 0;
}

} // namespace lyrabox::engine
