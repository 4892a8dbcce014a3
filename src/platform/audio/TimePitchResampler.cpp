#include "platform/audio/TimePitchResampler.h"

#include <algorithm>
#include <cmath>

namespace lyrabox {

namespace {

constexpr double highestCutoff = 0.95;

} // namespace

void TimePitchResampler::allocate()
{
    m_interpolator.allocate(crossings, tableSteps, SincInterpolator::Window::Kaiser);
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
    m_reach = m_interpolator.reach(m_cutoff);
}

/// Ends a slide at the requested pitch.
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
            m_interpolator.interpolate(m_ring, m_at, m_cutoff, left[done], right[done]);
        }
        advance();
    }
    return done;
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
