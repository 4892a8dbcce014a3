#include "support/pieces/BeatPieceSounds.h"

#include <algorithm>
#include <cmath>
#include <complex>
#include <numbers>

namespace lyrabox::test {

namespace {

constexpr double rate = 44100.0;

std::size_t framesOf(double seconds)
{
    return static_cast<std::size_t>(seconds * rate);
}

/// Noise without its low part.
std::vector<float> brightNoise(std::mt19937 &random, std::size_t frames, double share)
{
    std::normal_distribution<double> values;
    std::vector<float> noise(frames);
    double last = 0.0;
    for (float &sample : noise) {
        const double value = values(random);
        sample = static_cast<float>(value - share * last);
        last = value;
    }
    return noise;
}

} // namespace

std::vector<float> kickSound()
{
    std::vector<float> sound(framesOf(0.32));
    for (std::size_t i = 0; i < sound.size(); ++i) {
        const double time = static_cast<double>(i) / rate;
        const double sweep = 48.0 * time + 90.0 / 28.0 * (1.0 - std::exp(-28.0 * time));
        sound[i] = static_cast<float>(0.9 * std::sin(2.0 * std::numbers::pi * sweep) *
                                      std::exp(-11.0 * time));
    }
    return sound;
}

std::vector<float> snareSound(std::mt19937 &random)
{
    std::vector<float> sound = brightNoise(random, framesOf(0.24), 0.45);
    for (std::size_t i = 0; i < sound.size(); ++i) {
        const double time = static_cast<double>(i) / rate;
        const double tone =
            0.3 * std::sin(2.0 * std::numbers::pi * 186.0 * time) * std::exp(-26.0 * time);
        sound[i] = static_cast<float>(0.2 * sound[i] * std::exp(-19.0 * time) + tone);
    }
    return sound;
}

std::vector<float> hatSound(std::mt19937 &random, double seconds)
{
    std::vector<float> sound = brightNoise(random, framesOf(3.0 * seconds), 0.95);
    for (std::size_t i = 0; i < sound.size(); ++i)
        sound[i] *= 0.09F * static_cast<float>(std::exp(static_cast<double>(i) / rate / -seconds));
    return sound;
}

std::span<const float> PieceNotes::note(int midi)
{
    const auto [entry, isNew] = m_notes.try_emplace(midi);
    std::vector<float> &sound = entry->second;
    if (!isNew)
        return sound;
    sound.resize(framesOf(4.0));
    const double frequency = 440.0 * std::exp2((midi - 69) / 12.0);
    for (std::size_t partial = 1; partial <= m_instrument.partials.size(); ++partial) {
        const auto number = static_cast<double>(partial);
        if (frequency * number > 9000.0)
            break;
        // Each sample is the last one, turned and made smaller.
        const std::complex<double> step =
            std::polar(std::exp(-number / m_instrument.decay / rate),
                       2.0 * std::numbers::pi * frequency * number / rate);
        std::complex<double> value(static_cast<double>(m_instrument.partials[partial - 1]), 0.0);
        for (float &sample : sound) {
            sample += static_cast<float>(value.imag());
            value *= step;
        }
    }
    const std::size_t attack = framesOf(m_instrument.attack);
    for (std::size_t i = 0; i < attack; ++i)
        sound[i] *= static_cast<float>(i) / static_cast<float>(attack);
    return sound;
}

} // namespace lyrabox::test
