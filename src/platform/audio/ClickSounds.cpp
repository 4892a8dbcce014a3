#include "platform/audio/ClickSounds.h"

#include "platform/audio/FadeShape.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace lyrabox {

namespace {

constexpr double sampleRate = 44100.0;

/// A sine that decays.
struct Partial {
    double hertz;
    double level;
    double decay; ///< seconds until it has fallen to 1/e
};

struct Recipe {
    std::array<Partial, 2> partials;
    double attack;  ///< seconds until the sound is at its full level
    double seconds; ///< of the whole sound
};

/// The recipes sound one octave, or less, higher at an accent.
Recipe recipeOf(ClickTimbre timbre, double height)
{
    switch (timbre) {
    case ClickTimbre::Wood:
        return {.partials = {{{820.0 * height, 1.0, 0.012}, {2210.0 * height, 0.6, 0.004}}},
                .attack = 0.0002,
                .seconds = 0.060};
    case ClickTimbre::Beep:
        return {.partials = {{{880.0 * height, 1.0, 0.040}, {1760.0 * height, 0.2, 0.020}}},
                .attack = 0.0005,
                .seconds = 0.080};
    case ClickTimbre::Tick:
        break;
    }
    return {.partials = {{{1900.0 * height, 1.0, 0.004}, {4700.0 * height, 0.5, 0.0015}}},
            .attack = 0.0001,
            .seconds = 0.030};
}

std::vector<float> soundOf(const Recipe &recipe, double peak)
{
    const auto frames = static_cast<std::size_t>(recipe.seconds * sampleRate);
    std::vector<double> sound(frames);
    double highest = 0.0;
    for (std::size_t i = 0; i < frames; ++i) {
        const double time = static_cast<double>(i) / sampleRate;
        // Cosines: the attack is at the first frame. The end fades to nothing.
        const double rise = std::min(1.0, (time + 0.5 / sampleRate) / recipe.attack);
        const double fall = fadeShape(
            std::min(1.0, 4.0 * static_cast<double>(frames - i) / static_cast<double>(frames)));
        for (const Partial &partial : recipe.partials)
            sound[i] += rise * fall * partial.level * std::exp(-time / partial.decay) *
                        std::cos(2.0 * std::numbers::pi * partial.hertz * time);
        highest = std::max(highest, std::abs(sound[i]));
    }
    std::vector<float> result(frames);
    for (std::size_t i = 0; i < frames; ++i)
        result[i] = static_cast<float>(peak * sound[i] / highest);
    return result;
}

} // namespace

void ClickSounds::make()
{
    struct Variant {
        ClickKind kind;
        double height;
        double peak;
    };
    constexpr std::array variants{
        Variant{.kind = ClickKind::Accent, .height = 1.5, .peak = 1.0},
        Variant{.kind = ClickKind::Beat, .height = 1.0, .peak = 0.7},
        Variant{.kind = ClickKind::Subdivision, .height = 0.8, .peak = 0.35}};
    for (std::size_t timbre = 0; timbre < clickTimbres; ++timbre) {
        for (const Variant &variant : variants)
            m_sounds[timbre][static_cast<std::size_t>(variant.kind)] =
                soundOf(recipeOf(static_cast<ClickTimbre>(timbre), variant.height), variant.peak);
    }
}

std::span<const float> ClickSounds::of(ClickTimbre timbre, ClickKind kind) const noexcept
{
    return m_sounds[std::min(static_cast<std::size_t>(timbre), clickTimbres - 1)]
                   [std::min(static_cast<std::size_t>(kind), kinds - 1)];
}

} // namespace lyrabox
