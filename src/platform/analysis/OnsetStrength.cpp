#include "platform/analysis/OnsetStrength.h"

#include "platform/analysis/SampleShape.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace lyrabox {

namespace {

constexpr double bandsPerOctave = 12.0;
constexpr double lowestFrequency = 30.0;
constexpr double highestFrequency = 16000.0;
constexpr double lowFrequency = 200.0;

/// The level of a band that counts as silence, compressed: -80 dB.
constexpr float silentLevel = 0.01F;

/// The first bin of each band and the end of the last. Low bands are single bins, higher ones have
/// the width of a part of an octave.
std::vector<std::size_t> bandBegins(double sampleRate)
{
    const double binWidth = sampleRate / static_cast<double>(OnsetStrength::window);
    const auto end = static_cast<std::size_t>(
        std::min(highestFrequency / binWidth, static_cast<double>(OnsetStrength::window) / 2.0));
    std::vector<std::size_t> begins;
    auto bin = static_cast<std::size_t>(std::ceil(lowestFrequency / binWidth));
    while (bin < end) {
        begins.push_back(bin);
        const double next = static_cast<double>(bin) * std::exp2(1.0 / bandsPerOctave);
        bin = std::max(bin + 1, static_cast<std::size_t>(std::lround(next)));
    }
    begins.push_back(std::max(end, bin));
    return begins;
}

/// The number of bands that begin below lowFrequency, at least one.
std::size_t lowBands(const std::vector<std::size_t> &begins, double sampleRate)
{
    const double end = lowFrequency * static_cast<double>(OnsetStrength::window) / sampleRate;
    const auto first = std::find_if(begins.begin() + 1, begins.end() - 1, [end](std::size_t begin) {
        return static_cast<double>(begin) >= end;
    });
    return static_cast<std::size_t>(first - begins.begin());
}

} // namespace

OnsetStrength::OnsetStrength(const SongSamples &song)
    : m_song(song),
      m_hann(window),
      m_real(window),
      m_imaginary(window),
      m_bandBegins(bandBegins(song.sampleRate)),
      m_strongest(m_bandBegins.size() - 1),
      m_lowBands(lowBands(m_bandBegins, song.sampleRate))
{
    m_levels.fill(m_strongest);
    // Scaled so that a tone of full scale has the magnitude 1.0 in one channel.
    for (std::size_t i = 0; i < window; ++i) {
        const double phase = 2.0 * std::numbers::pi * (static_cast<double>(i) + 0.5) / window;
        m_hann[i] = static_cast<float>((1.0 - std::cos(phase)) * 2.0 / window);
    }
    seek(0);
}

void OnsetStrength::seek(std::uint64_t step)
{
    m_step = static_cast<std::int64_t>(step);
    for (std::int64_t lag = longestLag; lag > 0; --lag)
        measure(m_step - lag);
}

float OnsetStrength::next()
{
    measure(m_step);
    m_strongest = levelsOf(m_step - shortestLag);
    for (std::int64_t lag = shortestLag + 1; lag <= longestLag; ++lag)
        std::transform(m_strongest.begin(), m_strongest.end(), levelsOf(m_step - lag).begin(),
                       m_strongest.begin(), [](float a, float b) { return a > b ? a : b; });
    const Levels &levels = levelsOf(m_step);
    const std::size_t bands = levels.size();
    float grown = 0.0F;
    float whole = silentLevel * static_cast<float>(bands);
    for (std::size_t i = 0; i < bands; ++i) {
        const float earlier = std::max({m_strongest[i == 0 ? 0 : i - 1], m_strongest[i],
                                        m_strongest[std::min(i + 1, bands - 1)]});
        grown += std::max(0.0F, levels[i] - earlier);
        if (i + 1 == m_lowBands)
            m_lowGrowth = grown / static_cast<float>(m_lowBands);
        whole += levels[i];
    }
    ++m_step;
    m_growth = grown / static_cast<float>(bands);
    return grown / whole;
}

void OnsetStrength::measure(std::int64_t step)
{
    const std::int64_t begin =
        step * static_cast<std::int64_t>(hop) - static_cast<std::int64_t>(window / 2);
    const auto end = static_cast<std::int64_t>(m_song.frames());
    for (std::size_t i = 0; i < window; ++i) {
        const std::int64_t frame = begin + static_cast<std::int64_t>(i);
        const bool isInside = frame >= 0 && frame < end;
        const auto index = static_cast<std::size_t>(frame);
        m_real[i] = isInside ? undamaged(m_song.left[index]) * m_hann[i] : 0.0F;
        m_imaginary[i] = isInside ? undamaged(m_song.right[index]) * m_hann[i] : 0.0F;
    }
    m_transform.transform(m_real, m_imaginary);
    const auto power = [this](std::size_t bin) {
        return m_real[bin] * m_real[bin] + m_imaginary[bin] * m_imaginary[bin];
    };
    Levels &levels = levelsOf(step);
    for (std::size_t band = 0; band < levels.size(); ++band) {
        float sum = 0.0F;
        for (std::size_t bin = m_bandBegins[band]; bin < m_bandBegins[band + 1]; ++bin)
            sum += power(bin) + power(window - bin);
        levels[band] = std::sqrt(std::sqrt(sum / 2.0F));
    }
}

} // namespace lyrabox
