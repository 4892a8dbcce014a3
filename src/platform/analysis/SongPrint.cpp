#include "platform/analysis/SongPrint.h"

#include "platform/analysis/SampleShape.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <numbers>
#include <numeric>

namespace lyrabox {

namespace {

constexpr std::size_t reduction = 8; ///< frames for a sample of the reduced song
constexpr std::size_t taps = 64;     ///< of the filter before the reduction
constexpr std::size_t window = 512;  ///< in reduced samples: 93 ms
constexpr auto reducedStep = static_cast<std::int64_t>(SongPrint::step / reduction);
constexpr std::int64_t lag = 8; ///< in steps: what a step is compared with
constexpr double lowest = 300.0;
constexpr double highest = 2000.0;
constexpr double reducedRate = 44100.0 / reduction;

/// A low-pass filter that keeps what lies below 2 kHz and hardly anything above 3.5 kHz, which the
/// reduction would fold onto it.
std::array<float, taps> lowPass()
{
    constexpr double cutoff = 2600.0 / 44100.0; // in cycles a frame
    std::array<double, taps> shape{};
    double sum = 0.0;
    for (std::size_t i = 0; i < taps; ++i) {
        const double t = static_cast<double>(i) + 0.5 - taps / 2.0;
        const double phase = 2.0 * std::numbers::pi * (static_cast<double>(i) + 0.5) / taps;
        shape[i] = std::sin(2.0 * std::numbers::pi * cutoff * t) / t * (1.0 - std::cos(phase));
        sum += shape[i];
    }
    std::array<float, taps> filter{};
    for (std::size_t i = 0; i < taps; ++i)
        filter[i] = static_cast<float>(shape[i] / sum);
    return filter;
}

/// The first bin of each band, and the end of the last.
std::vector<std::size_t> bandBegins(std::size_t bands)
{
    std::vector<std::size_t> begins;
    for (std::size_t band = 0; band <= bands; ++band) {
        const double share = static_cast<double>(band) / static_cast<double>(bands);
        const double frequency = lowest * std::pow(highest / lowest, share);
        begins.push_back(static_cast<std::size_t>(
            std::lround(frequency / reducedRate * static_cast<double>(window))));
    }
    return begins;
}

template <typename Bands>
std::uint32_t wordOf(const Bands &now, const Bands &before)
{
    std::uint32_t word = 0;
    for (std::size_t bit = 0; bit < 32; ++bit) {
        const float change = now[bit] - now[bit + 1] - before[bit] + before[bit + 1];
        word |= (change > 0.0F ? 1U : 0U) << bit;
    }
    return word;
}

/// The mean share that the changes have of the sound.
template <typename Bands>
float clarityOf(const Bands &now, const Bands &before)
{
    constexpr float silence = 1.0e-9F;
    float sum = 0.0F;
    for (std::size_t bit = 0; bit < 32; ++bit) {
        const float change = now[bit] - now[bit + 1] - before[bit] + before[bit + 1];
        const float whole = now[bit] + now[bit + 1] + before[bit] + before[bit + 1];
        sum += std::abs(change) / (whole + silence);
    }
    return sum / 32.0F;
}

} // namespace

SongPrint::SongPrint(const SongSamples &song, const std::stop_token &stop)
    : m_transform(window), m_hann(window), m_real(window), m_imaginary(window)
{
    // Scaled so that a tone of full scale in both channels has the power 1.0.
    for (std::size_t i = 0; i < window; ++i) {
        const double phase = 2.0 * std::numbers::pi * (static_cast<double>(i) + 0.5) / window;
        m_hann[i] = static_cast<float>((1.0 - std::cos(phase)) * 2.0 / window * std::sqrt(2.0 / 3));
    }
    reduce(song, stop);
    const std::size_t steps = (m_reduced.size() + static_cast<std::size_t>(reducedStep) - 1) /
                              static_cast<std::size_t>(reducedStep);
    m_words.reserve(steps);
    m_powers.reserve(steps);
    m_clarities.reserve(steps);
    constexpr auto kept = static_cast<std::size_t>(lag) + 2;
    std::array<Bands, kept> levels{};
    for (std::size_t n = 0; n < steps && !stop.stop_requested(); n += 2) {
        measurePair(static_cast<std::int64_t>(n) * reducedStep, levels[n % kept],
                    levels[(n + 1) % kept]);
        for (std::size_t i = n; i < std::min(n + 2, steps); ++i) {
            const Bands &now = levels[i % kept];
            const Bands &before = levels[(i + 2) % kept];
            m_words.push_back(wordOf(now, before));
            m_clarities.push_back(clarityOf(now, before));
            m_powers.push_back(std::accumulate(now.begin(), now.end(), 0.0F));
        }
    }
}

std::vector<std::uint32_t> SongPrint::wordsFrom(std::int64_t frame, std::size_t count)
{
    const std::int64_t first =
        (frame + (frame < 0 ? -4 : 4)) / static_cast<std::int64_t>(reduction) - lag * reducedStep;
    const std::size_t steps = count + static_cast<std::size_t>(lag);
    std::vector<Bands> levels(steps + 1);
    for (std::size_t n = 0; n < steps; n += 2)
        measurePair(first + static_cast<std::int64_t>(n) * reducedStep, levels[n], levels[n + 1]);
    std::vector<std::uint32_t> words;
    words.reserve(count);
    for (std::size_t n = static_cast<std::size_t>(lag); n < steps; ++n)
        words.push_back(wordOf(levels[n], levels[n - static_cast<std::size_t>(lag)]));
    return words;
}

/// Filters the song and keeps every eighth frame: sample n is that at the frame 8 n.
void SongPrint::reduce(const SongSamples &song, const std::stop_token &stop)
{
    constexpr std::size_t vectors = taps / 4;
    const std::array<float, taps> filter = lowPass();
    std::array<FourLanes, vectors> gains{};
    std::memcpy(gains.data(), filter.data(), sizeof(filter));
    constexpr std::size_t block = 16384; // frames
    std::vector<float> mono(block + taps);
    const std::size_t frames = song.left.size();
    m_reduced.reserve(frames / reduction + 1);
    for (std::size_t begin = 0; begin < frames && !stop.stop_requested(); begin += block) {
        // mono[0] lies half the filter before the block.
        for (std::size_t i = 0; i < mono.size(); ++i) {
            const std::size_t frame = begin + i - taps / 2;
            mono[i] = frame < frames
                          ? 0.5F * (undamaged(song.left[frame]) + undamaged(song.right[frame]))
                          : 0.0F;
        }
        const std::size_t count = std::min(block, frames - begin);
        for (std::size_t at = 0; at < count; at += reduction) {
            FourLanes sum{};
            for (std::size_t i = 0; i < vectors; ++i) {
                FourLanes samples;
                std::memcpy(&samples, mono.data() + at + 4 * i, sizeof(samples));
                sum += gains[i] * samples;
            }
            m_reduced.push_back(sum[0] + sum[1] + sum[2] + sum[3]);
        }
    }
}

void SongPrint::fillWindow(std::int64_t centre, std::span<float> samples) const
{
    const std::int64_t begin = centre - static_cast<std::int64_t>(window / 2);
    const auto end = static_cast<std::int64_t>(m_reduced.size());
    for (std::size_t i = 0; i < window; ++i) {
        const std::int64_t at = begin + static_cast<std::int64_t>(i);
        samples[i] =
            at >= 0 && at < end ? m_reduced[static_cast<std::size_t>(at)] * m_hann[i] : 0.0F;
    }
}

/// Measures the bands of a step, and of the one after it, in one transform.
void SongPrint::measurePair(std::int64_t centre, Bands &first, Bands &second)
{
    static const std::vector<std::size_t> begins = bandBegins(bands);
    fillWindow(centre, m_real);
    fillWindow(centre + reducedStep, m_imaginary);
    m_transform.transform(m_real, m_imaginary);
    for (std::size_t band = 0; band < bands; ++band) {
        float one = 0.0F;
        float other = 0.0F;
        for (std::size_t bin = begins[band]; bin < begins[band + 1]; ++bin) {
            const std::size_t mirrored = window - bin;
            const float a = m_real[bin] + m_real[mirrored];
            const float b = m_imaginary[bin] - m_imaginary[mirrored];
            const float c = m_imaginary[bin] + m_imaginary[mirrored];
            const float d = m_real[bin] - m_real[mirrored];
            one += a * a + b * b;
            other += c * c + d * d;
        }
        first[band] = one / 4.0F;
        second[band] = other / 4.0F;
    }
}

} // namespace lyrabox
