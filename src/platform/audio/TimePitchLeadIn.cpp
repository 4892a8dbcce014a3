#include "platform/audio/TimePitchLeadIn.h"

#include "platform/audio/TimePitchHistory.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace lyrabox {

namespace {

constexpr std::uint32_t searched = 1024; // lags tried: a period of every tone from 43 Hz on
constexpr std::uint32_t compared = 768;
constexpr std::uint32_t longestBlend = 256;
constexpr std::uint32_t thinning = 3;
constexpr std::uint32_t longestLeadIn = 2400;

/// The lag, at least `shortest`, at which the song is most like its start.
std::uint32_t bestLag(const TimePitchHistory &history, std::uint32_t shortest) noexcept
{
    std::array<float, longestLeadIn + searched + compared> mid;
    const std::uint32_t length = shortest + searched + compared;
    for (std::uint32_t i = 0; i < length; ++i)
        mid[i] = history.left(i) + history.right(i);
    std::uint32_t best = shortest;
    float highest = 0.0F;
    for (std::uint32_t lag = shortest; lag < shortest + searched; ++lag) {
        float product = 0.0F;
        float energy = 1e-12F;
        for (std::uint32_t i = 0; i < compared; i += thinning) {
            product += mid[i] * mid[lag + i];
            energy += mid[lag + i] * mid[lag + i];
        }
        const float likeness = product / std::sqrt(energy);
        if (likeness > highest) {
            highest = likeness;
            best = lag;
        }
    }
    return best;
}

} // namespace

std::uint32_t leadInSourceFrames(std::uint32_t frames) noexcept
{
    return std::min(frames, longestLeadIn) + searched + compared;
}

void makeLeadIn(TimePitchHistory &history, std::uint32_t frames) noexcept
{
    const std::uint32_t length = std::min(frames, longestLeadIn);
    const std::int64_t lag = bestLag(history, length);
    for (std::int64_t frame = -static_cast<std::int64_t>(length); frame < 0; ++frame)
        history.set(frame, history.left(frame + lag), history.right(frame + lag));
    // The last of it goes over into the song's mirror image about frame 0, which runs on smoothly.
    const auto blended = static_cast<std::int64_t>(std::min(length, longestBlend));
    for (std::int64_t back = 1; back <= blended; ++back) {
        const double phase =
            std::numbers::pi * (static_cast<double>(back) - 0.5) / static_cast<double>(blended);
        const auto share = static_cast<float>(0.5 + 0.5 * std::cos(phase));
        const auto blend = [share](float other, float first, float mirrored) {
            return other + share * (2.0F * first - mirrored - other);
        };
        history.set(-back, blend(history.left(-back), history.left(0), history.left(back)),
                    blend(history.right(-back), history.right(0), history.right(back)));
    }
}

} // namespace lyrabox
