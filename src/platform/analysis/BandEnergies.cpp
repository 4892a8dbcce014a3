#include "platform/analysis/BandEnergies.h"

#include <algorithm>
#include <numbers>

namespace lyrabox {

namespace {

constexpr double lowBandEnd = 200.0;
constexpr double highBandBegin = 2500.0;
constexpr double highestShare = 0.45; // of the sample rate

/// The qualities of the two sections of a Butterworth filter of fourth order.
constexpr std::array<double, 2> qualities{0.5411961, 1.3065630};

/// States below this are silence. A state that died away further would become a denormal number,
/// and arithmetic with those is slow.
constexpr float faintest = 1.0e-15F;

/// One section of a low-pass or high-pass filter by the bilinear transform.
struct Coefficients {
    float gain;
    float middle;
    float a1;
    float a2;
};

Coefficients design(double frequency, double quality, double sampleRate, bool isHighPass)
{
    const double omega = 2.0 * std::numbers::pi * std::min(frequency / sampleRate, highestShare);
    const double alpha = std::sin(omega) / (2.0 * quality);
    const double a0 = 1.0 + alpha;
    const double side = isHighPass ? 1.0 + std::cos(omega) : 1.0 - std::cos(omega);
    return {.gain = static_cast<float>(side / 2.0 / a0),
            .middle = isHighPass ? -2.0F : 2.0F,
            .a1 = static_cast<float>(-2.0 * std::cos(omega) / a0),
            .a2 = static_cast<float>((1.0 - alpha) / a0)};
}

FourLanes withoutFaint(FourLanes state)
{
    const FourLanes magnitude = state < 0.0F ? -state : state;
    return magnitude < faintest ? FourLanes{} : state;
}

} // namespace

BandEnergies::BandEnergies(double sampleRate)
{
    for (std::size_t i = 0; i < m_sections.size(); ++i) {
        const Coefficients low = design(lowBandEnd, qualities[i], sampleRate, false);
        const Coefficients high = design(highBandBegin, qualities[i], sampleRate, true);
        m_sections[i] = {.gain = FourLanes{low.gain, low.gain, high.gain, high.gain},
                         .middle = FourLanes{low.middle, low.middle, high.middle, high.middle},
                         .a1 = FourLanes{low.a1, low.a1, high.a1, high.a1},
                         .a2 = FourLanes{low.a2, low.a2, high.a2, high.a2}};
    }
}

FourLanes BandEnergies::Section::filtered(FourLanes x)
{
    const FourLanes scaled = gain * x;
    const FourLanes y = scaled + s1;
    s1 = middle * scaled - a1 * y + s2;
    s2 = scaled - a2 * y;
    return y;
}

BandEnergies::Energies BandEnergies::add(const SongSamples &samples)
{
    Section first = m_sections[0]; // copies, so that the states stay in registers
    Section second = m_sections[1];
    FourLanes squares{};
    for (std::size_t i = 0; i < samples.left.size(); ++i) {
        const float left = samples.left[i];
        const float right = samples.right[i];
        const FourLanes filtered =
            second.filtered(first.filtered(FourLanes{left, right, left, right}));
        squares += filtered * filtered;
    }
    m_sections = {first, second};
    forgetFaintStates();
    return {.low = double{squares[0]} + double{squares[1]},
            .high = double{squares[2]} + double{squares[3]}};
}

void BandEnergies::reset()
{
    for (Section &section : m_sections)
        section.s1 = section.s2 = FourLanes{};
}

void BandEnergies::forgetFaintStates()
{
    for (Section &section : m_sections) {
        section.s1 = withoutFaint(section.s1);
        section.s2 = withoutFaint(section.s2);
    }
}

} // namespace lyrabox
