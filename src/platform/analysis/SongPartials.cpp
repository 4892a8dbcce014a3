#include "platform/analysis/SongPartials.h"

#include "platform/analysis/FourierTransform.h"
#include "platform/analysis/SampleShape.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <span>

namespace lyrabox {

namespace {

constexpr std::size_t window = 8192;
constexpr std::size_t hop = window / 2;
constexpr double lowest = 80.0;
constexpr double highest = 1800.0;

constexpr float silence = 1.0e-4F;      ///< the amplitude below which nothing is a partial: -80 dB
constexpr float faintest = 0.012F;      ///< as a share of the strongest partial of the window
constexpr float prominence = 3.0F;      ///< above the mean of the surroundings
constexpr std::size_t surroundings = 9; ///< bins on each side
constexpr double steadiness = 6.0;      ///< cents, or the fifteenth part of a bin
constexpr float largestChange = 2.5F;   ///< of a steady partial's amplitude

/// How exactly a harmonic fits to the note below it, in cents.
constexpr double harmonicFit = 7.0;
/// A lower partial that is weaker than this share has no such harmonic.
constexpr float weakestFundamental = 0.25F;

double cents(double a, double b)
{
    return 1200.0 * std::log2(a / b);
}

struct Peak {
    double hertz = 0.0;
    float level = 0.0F;
};

/// Measures one window after the other.
class PeakFinder {
public:
    explicit PeakFinder(const SongSamples &song)
        : m_song(song), m_hann(window), m_real(window), m_imaginary(window), m_levels(window / 2)
    {
        for (std::size_t i = 0; i < window; ++i) {
            const double phase = 2.0 * std::numbers::pi * static_cast<double>(i) / window;
            m_hann[i] = static_cast<float>((1.0 - std::cos(phase)) * 2.0 / window);
        }
    }

    /// The peaks of the window that begins at frame `first`, from the lowest on.
    void find(std::size_t first, std::vector<Peak> &peaks)
    {
        measure(first);
        peaks.clear();
        const double binWidth = m_song.sampleRate / window;
        const std::size_t begin =
            std::max(surroundings + 1, static_cast<std::size_t>(lowest / binWidth));
        const std::size_t end = std::min(m_levels.size() - surroundings - 1,
                                         static_cast<std::size_t>(highest / binWidth));
        float strongest = silence / faintest;
        for (std::size_t bin = begin; bin < end; ++bin)
            strongest = std::max(strongest, m_levels[bin]);
        for (std::size_t bin = begin; bin < end; ++bin) {
            const float level = m_levels[bin];
            if (level < faintest * strongest || level < m_levels[bin - 1] ||
                level <= m_levels[bin + 1] || !isProminent(bin))
                continue;
            peaks.push_back({(static_cast<double>(bin) + offset(bin)) * binWidth, level});
        }
    }

private:
    void measure(std::size_t first)
    {
        for (std::size_t i = 0; i < window; ++i) {
            m_real[i] = undamaged(m_song.left[first + i]) * m_hann[i];
            m_imaginary[i] = undamaged(m_song.right[first + i]) * m_hann[i];
        }
        m_transform.transform(m_real, m_imaginary);
        for (std::size_t bin = 1; bin < m_levels.size(); ++bin) {
            const std::size_t mirror = window - bin;
            const float power = m_real[bin] * m_real[bin] + m_imaginary[bin] * m_imaginary[bin] +
                                m_real[mirror] * m_real[mirror] +
                                m_imaginary[mirror] * m_imaginary[mirror];
            m_levels[bin] = std::sqrt(power / 2.0F);
        }
    }

    bool isProminent(std::size_t bin) const
    {
        float sum = 0.0F;
        for (std::size_t i = 3; i <= surroundings; ++i)
            sum += m_levels[bin - i] + m_levels[bin + i];
        return m_levels[bin] * 2.0F * static_cast<float>(surroundings - 2) > prominence * sum;
    }

    /// Where between the bins the tone lies: the ratio of two neighbours tells it exactly, if the
    /// tone is alone in a Hann window.
    double offset(std::size_t bin) const
    {
        const float below = m_levels[bin - 1];
        const float above = m_levels[bin + 1];
        const double ratio = static_cast<double>(std::max(below, above)) / m_levels[bin];
        const double distance = (2.0 * ratio - 1.0) / (1.0 + ratio);
        return above >= below ? distance : -distance;
    }

    const SongSamples m_song;
    FourierTransform m_transform{window};
    std::vector<float> m_hann;
    std::vector<float> m_real;
    std::vector<float> m_imaginary;
    std::vector<float> m_levels;
};

bool isSteady(const Peak &earlier, const Peak &later, double binWidth)
{
    const double distance = std::abs(earlier.hertz - later.hertz);
    const bool isNear =
        distance < binWidth / 15.0 || std::abs(cents(earlier.hertz, later.hertz)) < steadiness;
    return isNear && later.level < largestChange * earlier.level &&
           earlier.level < largestChange * later.level;
}

/// Whether one of the lower peaks has a harmonic there that is not an octave of it.
bool isHarmonic(std::span<const Peak> lower, const Peak &peak)
{
    return std::ranges::any_of(lower, [&peak](const Peak &base) {
        const double ratio = peak.hertz / base.hertz;
        const double number = std::round(ratio);
        if (number < 3.0 || number > 12.0 || number == 4.0 || number == 8.0)
            return false;
        return std::abs(cents(ratio, number)) < harmonicFit &&
               base.level > weakestFundamental * peak.level;
    });
}

} // namespace

double centsFromNote(double hertz)
{
    const double notes = 12.0 * std::log2(hertz / 440.0);
    return 100.0 * (notes - std::floor(notes + 0.5));
}

SongPartials songPartials(const SongSamples &song, const std::stop_token &stop)
{
    SongPartials result{.partials = {}, .windowsPerSecond = song.sampleRate / hop};
    PeakFinder finder(song);
    std::vector<Peak> earlier;
    std::vector<Peak> later;
    const double binWidth = song.sampleRate / window;
    for (std::uint32_t number = 0; window + number * hop <= song.frames(); ++number) {
        if (stop.stop_requested())
            return {};
        std::swap(earlier, later);
        finder.find(number * hop, later);
        auto from = earlier.begin();
        for (std::size_t i = 0; i < later.size(); ++i) {
            const Peak &peak = later[i];
            while (from != earlier.end() && from->hertz < peak.hertz - binWidth)
                ++from;
            const auto same = std::find_if(from, earlier.end(), [&](const Peak &candidate) {
                return candidate.hertz > peak.hertz + binWidth ||
                       isSteady(candidate, peak, binWidth);
            });
            if (same == earlier.end() || !isSteady(*same, peak, binWidth))
                continue;
            result.partials.push_back(
                {.window = number,
                 .hertz = static_cast<float>((same->hertz + peak.hertz) / 2.0),
                 .level = peak.level,
                 .isHarmonic = isHarmonic(std::span(later).first(i), peak)});
        }
    }
    return result;
}

} // namespace lyrabox
