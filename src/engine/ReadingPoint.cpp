#include "engine/ReadingPoint.h"

#include <algorithm>

namespace lyrabox::engine {

void ReadingPoint::seek(std::uint64_t position, std::uint64_t count) noexcept
{
    *this = {.frame = position, .seekCount = count, .passes = passes, .passedLoop = passedLoop};
}

void ReadingPoint::jump(std::uint64_t from, std::uint64_t to, std::uint64_t silentFrames) noexcept
{
    const bool isSame =
        jumps > 0 && from == jumpedFrom && to == jumpedTo && silentFrames == silence;
    jumps = isSame ? jumps + 1 : 1;
    jumpedFrom = from;
    jumpedTo = to;
    silence = silentFrames;
    silenceRead = 0;
    framesSinceJump = 0;
}

std::uint64_t ReadingPoint::positionBefore(std::uint64_t distance) const noexcept
{
    std::uint64_t place = frame;
    if (jumps > 0 && distance > framesSinceJump) {
        distance -= framesSinceJump;
        if (distance <= silenceRead)
            return jumpedTo;
        distance -= silenceRead;
        place = jumpedFrom;
        // Earlier rounds of the loop played the same frames. Only the first may have begun
        // elsewhere.
        const std::uint64_t whole = round() > 0 ? round() + silence : 0;
        const std::uint64_t repeated = whole * (jumps - 1);
        if (distance > repeated) {
            distance -= repeated;
        } else if (whole > 0) {
            distance = (distance - 1) % whole + 1;
            if (distance > round())
                return jumpedTo; // in the silence before that round
        }
    }
    return place > distance ? place - distance : 0;
}

std::uint64_t ReadingPoint::jumpsWithin(std::uint64_t distance) const noexcept
{
    const std::uint64_t sinceJump = framesSinceJump + silenceRead;
    if (jumps == 0 || distance <= sinceJump)
        return 0;
    const std::uint64_t whole = round() + silence;
    return whole == 0 ? 1 : std::min(jumps, 1 + (distance - sinceJump - 1) / whole);
}

} // namespace lyrabox::engine
