#include "platform/audio/QuickStretcher.h"

#include "platform/audio/FadeShape.h"
#include "platform/audio/TimePitchHistory.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace lyrabox {

namespace {

constexpr double basicPiece = 320.0; // stretched frames at normal pitch
constexpr std::int64_t shortestPiece = 160;
constexpr std::int64_t longestPiece = 960;

} // namespace

void QuickStretcher::allocate()
{
    m_interpolator.allocate(crossings, kernelSteps, SincInterpolator::Window::Hann);
}

void QuickStretcher::start(double speed, double pitch) noexcept
{
    m_songStep = speed / pitch;
    m_pitch = pitch;
    // After resampling, a piece lasts about the same time at every pitch.
    m_piece = std::clamp(std::llround(basicPiece * pitch), static_cast<long long>(shortestPiece),
                         static_cast<long long>(longestPiece));
    m_overlap = m_piece * 3 / 4;
    m_delivered = 0;
    m_end = -kernelReach();
    m_pieceStart = 0;
    m_current = 0;
    m_previous = 0;
}

/// The number of stretched frames that the kernel needs on each side. A higher pitch needs a longer
/// kernel, which removes the frequencies that would end up beyond half the sample rate.
std::int64_t QuickStretcher::kernelReach() const noexcept
{
    return static_cast<std::int64_t>(std::ceil(crossings * std::max(m_pitch, 1.0))) + 1;
}

std::int64_t QuickStretcher::reach(std::uint32_t frames) const noexcept
{
    const double end = static_cast<double>(m_delivered + frames) * m_pitch +
                       static_cast<double>(kernelReach() + m_piece);
    return static_cast<std::int64_t>(std::ceil(end * std::max(m_songStep, 1.0))) + searched +
           m_piece + m_overlap;
}

/// The frame near `ideal` at which the song is most similar to the continuation of the last piece.
std::int64_t QuickStretcher::bestStart(const TimePitchHistory &song,
                                       std::int64_t ideal) const noexcept
{
    std::array<float, longestPiece> wanted;
    std::array<float, longestPiece + 2 * searched + 1> offered;
    const std::int64_t first = std::max<std::int64_t>(ideal - searched, 0);
    const std::int64_t lags = std::max<std::int64_t>(ideal + searched - first, 0) + 1;
    const auto mid = [&song](std::int64_t frame) { return song.left(frame) + song.right(frame); };
    const auto length = static_cast<std::size_t>(m_overlap);
    for (std::size_t i = 0; i < length; ++i)
        wanted[i] = mid(m_previous + static_cast<std::int64_t>(i));
    for (std::size_t i = 0; i < length + static_cast<std::size_t>(lags); ++i)
        offered[i] = mid(first + static_cast<std::int64_t>(i));
    std::int64_t best = std::max<std::int64_t>(ideal, 0);
    float highest = 0.0F;
    for (std::int64_t lag = 0; lag < lags; ++lag) {
        const float *const candidate = offered.data() + lag;
        float product = 0.0F;
        float energy = 1e-9F;
        for (std::size_t i = 0; i < length; ++i) {
            product += wanted[i] * candidate[i];
            energy += candidate[i] * candidate[i];
        }
        const float likeness = product / std::sqrt(energy);
        if (likeness > highest) {
            highest = likeness;
            best = first + lag;
        }
    }
    return best;
}

/// The first frame in [first, last) where the song is suddenly louder, or `last` if there is none.
std::int64_t QuickStretcher::attackBetween(const TimePitchHistory &song, std::int64_t first,
                                           std::int64_t last) noexcept
{
    constexpr std::int64_t block = 32;
    constexpr std::size_t remembered = 8; // half a period of every tone from 86 Hz on
    std::array<float, remembered> before{};
    std::size_t blocks = 0;
    const auto context = static_cast<std::int64_t>(remembered) * block;
    for (std::int64_t at = std::max<std::int64_t>(first - context, 0); at < last; at += block) {
        float energy = 1e-6F;
        for (std::int64_t frame = at; frame < at + block; ++frame) {
            const float mid = song.left(frame) + song.right(frame);
            energy += mid * mid;
        }
        const float loudest = *std::max_element(before.begin(), before.end());
        if (at >= first && blocks > 0 && energy > 4.0F * loudest)
            return at;
        before[blocks++ % remembered] = energy;
    }
    return last;
}

/// The song frame at which the next piece starts. The piece is in time and in phase with the last
/// one. No attack is lost between the two, and none is heard in both.
std::int64_t QuickStretcher::nextStart(const TimePitchHistory &song) const noexcept
{
    constexpr std::int64_t longestLead = 640;
    // The middle of the piece is the part that is exactly in time.
    const double half = 0.5 * static_cast<double>(m_piece);
    const std::int64_t ideal =
        std::llround(m_songStep * (static_cast<double>(m_end) + half) - half);
    const std::int64_t start = bestStart(song, ideal);
    const std::int64_t middle = m_overlap / 2;
    if (start < m_previous) {
        const std::int64_t last = m_previous + middle;
        const bool repeats = attackBetween(song, start + middle, last) < last;
        return repeats && m_previous < ideal + longestLead ? m_previous : start;
    }
    const std::int64_t last = start + m_overlap;
    const std::int64_t attack = attackBetween(song, m_previous + middle, last);
    return attack < last ? std::max(attack - m_overlap, m_previous) : start;
}

void QuickStretcher::stretchUpTo(const TimePitchHistory &song, std::int64_t end) noexcept
{
    for (; m_end < end; ++m_end) {
        if (m_end == m_pieceStart + m_piece) {
            m_previous = m_current + m_piece;
            m_pieceStart = m_end;
            m_current = nextStart(song);
        }
        const std::int64_t into = m_end - m_pieceStart;
        // Before frame 0 the song is mirrored.
        const std::int64_t frame = std::abs(m_current + into);
        float left = song.left(frame);
        float right = song.right(frame);
        if (m_pieceStart > 0 && into < m_overlap) {
            const auto old = static_cast<float>(1.0 - fadeShape((static_cast<double>(into) + 0.5) /
                                                                static_cast<double>(m_overlap)));
            left += old * (song.left(m_previous + into) - left);
            right += old * (song.right(m_previous + into) - right);
        }
        const auto slot = static_cast<std::size_t>(m_end) & (ringFrames - 1U);
        m_ring[0][slot] = left;
        m_ring[1][slot] = right;
    }
}

void QuickStretcher::render(const TimePitchHistory &song, float *left, float *right,
                            std::uint32_t frames) noexcept
{
    for (std::uint32_t i = 0; i < frames; ++i, ++m_delivered) {
        const double at = static_cast<double>(m_delivered) * m_pitch;
        const auto whole = static_cast<std::int64_t>(at);
        stretchUpTo(song, whole + kernelReach() + 1);
        if (m_pitch == 1.0) {
            const auto slot = static_cast<std::size_t>(whole) & (ringFrames - 1U);
            left[i] = m_ring[0][slot];
            right[i] = m_ring[1][slot];
        } else {
            const double cutoff = 1.0 / std::max(m_pitch, 1.0);
            m_interpolator.interpolate(m_ring, at, cutoff, left[i], right[i]);
        }
    }
}

} // namespace lyrabox
