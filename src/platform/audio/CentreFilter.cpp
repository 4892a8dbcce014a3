#include "platform/audio/CentreFilter.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <numbers>

namespace lyrabox {

namespace {

constexpr double sampleRate = 44100.0;

/// The width of the steps at both limits of the middle, as a factor between frequencies.
constexpr double stepWidth = 4.0 / 3.0;

/// From this difference of the channels' powers on, as a share of their sum, a part is surely on
/// one side.
constexpr float sideShare = 0.6F;

/// From this amplitude of the channels' difference on, as a share of the whole, a part is surely
/// not in the middle, and keeps its level.
constexpr float sureDifference = 0.6F;

/// How soon channels that differ are no middle any more: 0.25 of the power in the difference.
constexpr float strictness = 4.0F;

constexpr float tiny = 1.0e-30F; ///< keeps silence from being divided by 0

/// `value` as a share of `whole`, at most 1.
float shareOf(float value, float whole)
{
    return std::clamp(value / whole, 0.0F, 1.0F);
}

/// 0 below `from`, 1 above `to`, and a half of a cosine between them.
double rise(double value, double from, double to)
{
    const double share = std::clamp((value - from) / (to - from), 0.0, 1.0);
    return 0.5 - 0.5 * std::cos(std::numbers::pi * share);
}

} // namespace

CentreFilter::CentreFilter() : m_real(window), m_imaginary(window), m_hann(window)
{
    for (std::size_t i = 0; i < window; ++i) {
        const double phase = 2.0 * std::numbers::pi * static_cast<double>(i) / window;
        m_hann[i] = static_cast<float>(0.5 - 0.5 * std::cos(phase));
    }
}

void CentreFilter::set(const ChannelTools &tools) noexcept
{
    if (m_tools == tools)
        return;
    m_tools = tools;
    const double from = tools.centreFrom;
    const double upTo = tools.centreUpTo;
    const bool isOpen = static_cast<float>(tools.centreUpTo) >= centreUpToRange.maximum;
    for (std::size_t bin = 0; bin < bins; ++bin) {
        const double hertz = static_cast<double>(bin) * sampleRate / window;
        const double low = from > 0.0 ? rise(hertz, from, from * stepWidth) : 1.0;
        const double high = isOpen ? 0.0 : rise(hertz, upTo / stepWidth, upTo);
        m_middle[bin] = static_cast<float>(std::min(low, 1.0 - high));
    }
}

void CentreFilter::filter(const float *left, const float *right) noexcept
{
    for (std::size_t i = 0; i < window; ++i) {
        m_real[i] = left[i] * m_hann[i];
        m_imaginary[i] = right[i] * m_hann[i];
    }
    m_transform.transform(m_real, m_imaginary);
    separate();
    if (m_tools.centre < 0)
        removeMiddle();
    else
        keepMiddle();
    join();
    // With its parts exchanged, the transform is its own inverse.
    m_transform.transform(m_imaginary, m_real);
    // The squares of the windows that overlap add up to 1.5.
    constexpr float scale = 1.0F / (1.5F * window);
    for (std::size_t i = 0; i < window; ++i) {
        m_real[i] *= m_hann[i] * scale;
        m_imaginary[i] *= m_hann[i] * scale;
    }
}

/// The two channels went through one transform, as real and imaginary parts.
void CentreFilter::separate() noexcept
{
    for (std::size_t bin = 0; bin < bins; ++bin) {
        const std::size_t mirror = (window - bin) % window;
        m_leftReal[bin] = 0.5F * (m_real[bin] + m_real[mirror]);
        m_leftImaginary[bin] = 0.5F * (m_imaginary[bin] - m_imaginary[mirror]);
        m_rightReal[bin] = 0.5F * (m_imaginary[bin] + m_imaginary[mirror]);
        m_rightImaginary[bin] = 0.5F * (m_real[mirror] - m_real[bin]);
    }
}

void CentreFilter::join() noexcept
{
    for (std::size_t bin = 0; bin < bins; ++bin) {
        const std::size_t mirror = (window - bin) % window;
        m_real[mirror] = m_leftReal[bin] + m_rightImaginary[bin];
        m_imaginary[mirror] = m_rightReal[bin] - m_leftImaginary[bin];
        m_real[bin] = m_leftReal[bin] - m_rightImaginary[bin];
        m_imaginary[bin] = m_leftImaginary[bin] + m_rightReal[bin];
    }
}

/// Each channel gets the difference of both, by its share of the whole. The difference begins with
/// the sign of one channel and against that of the other. So a part that is surely on the left has
/// to turn on the right, and the other way round; near the middle there is no saying.
///
/// The difference of a part that lies between the middle and a side is weaker than the part. What
/// is surely no middle gets its level back. What is nearly the middle becomes even weaker.
void CentreFilter::removeMiddle() noexcept
{
    const float amount = static_cast<float>(-m_tools.centre) / 100.0F;
    for (std::size_t bin = 0; bin < bins; ++bin) {
        const float lr = m_leftReal[bin], li = m_leftImaginary[bin];
        const float rr = m_rightReal[bin], ri = m_rightImaginary[bin];
        const float dr = lr - rr, di = li - ri;
        const float left = lr * lr + li * li;
        const float right = rr * rr + ri * ri;
        const float scale = 1.0F / (left + right + tiny);
        const float side = (left - right) * scale;
        const float turnedLeft = 1.0F - 2.0F * shareOf(-side, sideShare);
        const float turnedRight = 1.0F - 2.0F * shareOf(side, sideShare);
        const float unlike = std::sqrt((dr * dr + di * di) * scale) + tiny;
        const float level = std::min(unlike / (sureDifference * sureDifference), 1.0F / unlike);
        const float toLeft = level * std::sqrt(left * scale) * turnedLeft;
        const float toRight = -level * std::sqrt(right * scale) * turnedRight;
        const float share = amount * m_middle[bin];
        m_leftReal[bin] = lr + share * (dr * toLeft - lr);
        m_leftImaginary[bin] = li + share * (di * toLeft - li);
        m_rightReal[bin] = rr + share * (dr * toRight - rr);
        m_rightImaginary[bin] = ri + share * (di * toRight - ri);
    }
}

/// Both channels get a mean of the two, the smaller the less alike they are. The weaker channel
/// counts more in it, because there is less in it besides the middle.
void CentreFilter::keepMiddle() noexcept
{
    for (std::size_t bin = 0; bin < bins; ++bin) {
        const float sumReal = m_leftReal[bin] + m_rightReal[bin];
        const float sumImaginary = m_leftImaginary[bin] + m_rightImaginary[bin];
        const float differenceReal = m_leftReal[bin] - m_rightReal[bin];
        const float differenceImaginary = m_leftImaginary[bin] - m_rightImaginary[bin];
        m_sum[bin] = sumReal * sumReal + sumImaginary * sumImaginary;
        m_difference[bin] =
            differenceReal * differenceReal + differenceImaginary * differenceImaginary;
    }
    const float amount = static_cast<float>(m_tools.centre) / 100.0F;
    for (std::size_t bin = 0; bin < bins; ++bin) {
        const float lr = m_leftReal[bin], li = m_leftImaginary[bin];
        const float rr = m_rightReal[bin], ri = m_rightImaginary[bin];
        // With its neighbours a frequency is judged better than alone.
        const std::size_t below = bin == 0 ? 1 : bin - 1;
        const std::size_t above = bin + 1 == bins ? bins - 2 : bin + 1;
        const float sum = m_sum[bin] + 0.5F * (m_sum[below] + m_sum[above]);
        const float difference =
            m_difference[bin] + 0.5F * (m_difference[below] + m_difference[above]);
        const float likeness = std::max(0.0F, 1.0F - strictness * difference / (sum + tiny));
        const float left = lr * lr + li * li;
        const float right = rr * rr + ri * ri;
        const float gain = likeness * m_middle[bin] / (left + right + tiny);
        const float real = gain * (right * lr + left * rr);
        const float imaginary = gain * (right * li + left * ri);
        m_leftReal[bin] = lr + amount * (real - lr);
        m_leftImaginary[bin] = li + amount * (imaginary - li);
        m_rightReal[bin] = rr + amount * (real - rr);
        m_rightImaginary[bin] = ri + amount * (imaginary - ri);
    }
}

} // namespace lyrabox
