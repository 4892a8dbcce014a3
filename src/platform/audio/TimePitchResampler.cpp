#include "platform/audio/TimePitchResampler.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace lyrabox {

namespace {

// 80 dB beside the pass band, which ends 1.7 kHz below the cutoff.
constexpr double kaiserBeta = 8.0;
constexpr double highestCutoff = 0.95;

double besselI0(double x)
{
    double sum = 1.0;
    double term = 1.0;
    for (int n = 1; n < 40; ++n) {
        term *= x / (2.0 * n) * x / (2.0 * n);
        sum += term;
    }
    return sum;
}

} // namespace

void TimePitchResampler::allocate()
{
    m_kernel.resize(static_cast<std::size_t>(crossings * tableSteps) + 2);
    for (std::size_t i = 0; i < m_kernel.size(); ++i) {
        const double x = static_cast<double>(i) / tableSteps;
        const double phase = std::numbers::pi * x;
        const double sinc = i == 0 ? 1.0 : std::sin(phase) / phase;
        const double edge = std::max(1.0 - x * x / (crossings * crossings), 0.0);
        const double window = besselI0(kaiserBeta * std::sqrt(edge)) / besselI0(kaiserBeta);
        m_kernel[i] = static_cast<float>(x < crossings ? sinc * window : 0.0);
    }
    m_pitch = 1.0;
    reset();
}

void TimePitchResampler::reset() noexcept
{
    for (auto &channel : m_ring)
        channel.fill(0.0F);
    m_at = 0.0;
    m_written = 0;
    m_slideLeft = 0;
    arrive();
}

void TimePitchResampler::setPitch(double pitch) noexcept
{
    if (pitch == m_pitch)
        return;
    m_pitch = pitch;
    m_glideLeft = 0;
    if (m_written == 0) {
        arrive();
        return;
    }
    m_slideLeft = slideFrames;
    m_slideStep = (pitch - m_step) / slideFrames;
}

void TimePitchResampler::setStep(double step) noexcept
{
    m_step = step;
    m_cutoff = highestCutoff / std::max(step, 1.0);
    m_reach = crossings / m_cutoff;
}

/// The pitch wanted is reached.
void TimePitchResampler::arrive() noexcept
{
    setStep(m_pitch);
    const double missing = std::nearbyint(m_at) - m_at;
    m_glideLeft = m_pitch == 1.0 && missing != 0.0 ? glideFrames : 0;
    m_glideStep = missing / glideFrames;
}

void TimePitchResampler::write(const float *left, const float *right, std::uint32_t frames) noexcept
{
    for (std::uint32_t i = 0; i < frames; ++i, ++m_written) {
        const auto slot = static_cast<std::size_t>(m_written) & (ringFrames - 1U);
        m_ring[0][slot] = left[i];
        m_ring[1][slot] = right[i];
    }
}

bool TimePitchResampler::isAvailable() const noexcept
{
    const double needed = isDirect() ? m_at : m_at + m_reach;
    return needed < static_cast<double>(m_written);
}

std::uint32_t TimePitchResampler::read(float *left, float *right, std::uint32_t frames) noexcept
{
    std::uint32_t done = 0;
    for (; done < frames && isAvailable(); ++done) {
        if (isDirect()) {
            const auto slot =
                static_cast<std::size_t>(static_cast<std::int64_t>(m_at)) & (ringFrames - 1U);
            left[done] = m_ring[0][slot];
            right[done] = m_ring[1][slot];
        } else {
            interpolate(left[done], right[done]);
        }
        advance();
    }
    return done;
}

void TimePitchResampler::interpolate(float &left, float &right) const noexcept
{
    const auto first = static_cast<std::int64_t>(std::ceil(m_at - m_reach));
    const auto last = static_cast<std::int64_t>(std::floor(m_at + m_reach));
    const double stride = m_cutoff * tableSteps;
    float sumLeft = 0.0F;
    float sumRight = 0.0F;
    for (std::int64_t i = first; i <= last; ++i) {
        const auto place = static_cast<float>(std::abs(static_cast<double>(i) - m_at) * stride);
        const auto entry = static_cast<std::size_t>(place);
        const float rest = place - static_cast<float>(entry);
        const float weight = m_kernel[entry] + rest * (m_kernel[entry + 1] - m_kernel[entry]);
        const auto slot = static_cast<std::size_t>(i) & (ringFrames - 1U);
        sumLeft += weight * m_ring[0][slot];
        sumRight += weight * m_ring[1][slot];
    }
    left = sumLeft * static_cast<float>(m_cutoff);
    right = sumRight * static_cast<float>(m_cutoff);
}

void TimePitchResampler::advance() noexcept
{
    m_at += m_step;
    if (m_slideLeft > 0) {
        setStep(m_step + m_slideStep);
        if (--m_slideLeft == 0)
            arrive();
    } else if (m_glideLeft > 0) {
        m_at += m_glideStep;
        if (--m_glideLeft == 0)
            m_at = std::nearbyint(m_at);
    }
}

} // namespace lyrabox
