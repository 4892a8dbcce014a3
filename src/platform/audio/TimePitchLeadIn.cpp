#include "platform/audio/TimePitchLeadIn.h"

#include "platform/audio/FadeShape.h"
#include "platform/audio/TimePitchHistory.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace lyrabox {

namespace {

constexpr std::uint32_t searched = 1024; // lags that are tried: a period of tones from 43 Hz on
constexpr std::uint32_t compared = 768;
constexpr std::uint32_t longestBlend = 256;
constexpr std::uint32_t thinning = 3;
constexpr std::uint32_t longestLeadIn = 2400;

static_assert(leadOutFrames >= longestLeadIn);

struct Forwards {
    const TimePitchHistory &history;

    float left(std::int64_t frame) const noexcept { return history.left(frame); }
    float right(std::int64_t frame) const noexcept { return history.right(frame); }
};

/// The song played backwards: frame 0 is the last one before `end`.
struct Backwards {
    const TimePitchHistory &history;
    std::int64_t end;

    float left(std::int64_t frame) const noexcept { return history.left(end - 1 - frame); }
    float right(std::int64_t frame) const noexcept { return history.right(end - 1 - frame); }
};

/// The lag of at least `shortest` frames at which the song correlates best with its start.
template <typename Song>
std::uint32_t bestLag(const Song &song, std::uint32_t shortest) noexcept
{
    std::array<float, longestLeadIn + searched + compared> mid;
    const std::uint32_t length = shortest + searched + compared;
    for (std::uint32_t i = 0; i < length; ++i)
        mid[i] = song.left(i) + song.right(i);
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
    const std::int64_t lag = bestLag(Forwards{history}, length);
    for (std::int64_t frame = -static_cast<std::int64_t>(length); frame < 0; ++frame)
        history.set(frame, history.left(frame + lag), history.right(frame + lag));
    // The end of the lead-in is blended into the song's mirror image around frame 0, which
    // continues smoothly into the song.
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

void makeLeadOut(TimePitchHistory &history, std::int64_t end) noexcept
{
    constexpr std::int64_t length = longestLeadIn;
    constexpr std::int64_t fading = length / 2;
    const Backwards song{history, end};
    const std::int64_t lag = bestLag(song, length);
    // The copy may differ from the song's last frame. The difference is added and fades away, so
    // that there is no step.
    const float offLeft = song.left(0) - song.left(lag);
    const float offRight = song.right(0) - song.right(lag);
    for (std::int64_t i = 0; i < leadOutFrames; ++i) {
        const double copied = std::clamp(static_cast<double>(length - i) / fading, 0.0, 1.0);
        const double added = std::max(0.0, 1.0 - static_cast<double>(i) / longestBlend);
        const auto gain = static_cast<float>(fadeShape(copied));
        const auto share = static_cast<float>(fadeShape(added));
        history.set(end + i, gain * history.left(end + i - lag) + share * offLeft,
                    gain * history.right(end + i - lag) + share * offRight);
    }
}

} // namespace lyrabox
