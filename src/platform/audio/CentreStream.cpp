#include "platform/audio/CentreStream.h"

#include "platform/analysis/SampleShape.h"
#include "platform/audio/FadeShape.h"

#include <algorithm>

namespace lyrabox {

namespace {

constexpr auto fadeIn = [] {
    std::array<float, CentreStream::glide> gains{};
    for (std::size_t i = 0; i < gains.size(); ++i)
        gains[i] = static_cast<float>(fadeShape((static_cast<double>(i) + 0.5) / gains.size()));
    return gains;
}();

} // namespace

CentreStream::CentreStream() = default;

void CentreStream::seek() noexcept
{
    m_hasPast = false;
    m_isFirst = true;
}

void CentreStream::process(const ChannelTools &tools, float *left, float *right,
                           std::uint32_t frames, StreamAround &stream) noexcept
{
    const bool isWanted = tools.centre != 0;
    if (m_isFirst)
        m_glided = isWanted ? glide : 0;
    m_isFirst = false;
    if (isWanted)
        m_filter.set(tools);
    for (std::size_t done = 0; done < frames && (isWanted || isRunning());) {
        const Slice slice{left + done, right + done, frames - done};
        std::size_t count = std::min(slice.frames, hop - m_at);
        if (!m_hasPast || count == 0 || !isAsExpected(slice, count)) {
            if (!m_hasPast) {
                stream.readBefore(m_left.frames.data(), m_right.frames.data(), past);
                for (Channel *channel : {&m_left, &m_right})
                    std::transform(channel->frames.begin(), channel->frames.begin() + past,
                                   channel->frames.begin(), &undamaged);
                m_at = 0;
            }
            beginHop(slice, stream);
            count = std::min(slice.frames, hop);
        }
        write(slice, count, isWanted);
        m_at += count;
        done += count;
    }
    if (!isRunning())
        m_hasPast = false;
}

/// Begins a hop at the next frame. If the last one is complete and the frames are those that the
/// older windows have seen, one window is added. Otherwise all windows are made anew.
void CentreStream::beginHop(const Slice &slice, StreamAround &stream) noexcept
{
    readWindow(slice, stream);
    bool isAsSeen = m_hasPast && m_at == hop;
    for (Channel *channel : {&m_left, &m_right}) {
        auto &frames = channel->frames;
        std::copy(frames.begin() + static_cast<std::ptrdiff_t>(m_at), frames.end(), frames.begin());
        isAsSeen = isAsSeen && std::equal(channel->next.begin(), channel->next.begin() + past,
                                          frames.begin() + past);
        std::copy(channel->next.begin(), channel->next.end(), frames.begin() + past);
        if (isAsSeen)
            std::copy(channel->sum.begin() + hop, channel->sum.end(), channel->sum.begin());
    }
    // Both channels belong together: if one is made anew, so is the other.
    for (Channel *channel : {&m_left, &m_right}) {
        const auto kept = isAsSeen ? static_cast<std::ptrdiff_t>(past) : 0;
        std::fill(channel->sum.begin() + kept, channel->sum.end(), 0.0F);
        channel->before = 0.0F;
    }
    for (std::size_t begin = isAsSeen ? past : 0; begin <= past; begin += hop)
        addWindow(begin);
    if (!isAsSeen) {
        for (Channel *channel : {&m_left, &m_right})
            channel->step = m_hasPast ? channel->last - channel->before : 0.0F;
        m_stepDone = 0;
    }
    m_at = 0;
    m_hasPast = true;
}

/// The rest of the slice, and what will follow it.
void CentreStream::readWindow(const Slice &slice, StreamAround &stream) noexcept
{
    const std::size_t present = std::min(slice.frames, window);
    if (present < window)
        stream.readAhead(m_left.next.data() + present, m_right.next.data() + present,
                         static_cast<std::uint32_t>(window - present));
    std::copy_n(slice.left, present, m_left.next.begin());
    std::copy_n(slice.right, present, m_right.next.begin());
    for (Channel *channel : {&m_left, &m_right})
        std::transform(channel->next.begin(), channel->next.end(), channel->next.begin(),
                       &undamaged);
}

/// Whether the next frames of the slice are those that the windows have seen.
bool CentreStream::isAsExpected(const Slice &slice, std::size_t frames) const noexcept
{
    const auto isSame = [](float played, float seen) { return undamaged(played) == seen; };
    const std::size_t at = past + m_at;
    return std::equal(slice.left, slice.left + frames, m_left.frames.data() + at, isSame) &&
           std::equal(slice.right, slice.right + frames, m_right.frames.data() + at, isSame);
}

/// Filters the window at that place of Channel::frames, and adds what is heard from the hop on.
void CentreStream::addWindow(std::size_t begin) noexcept
{
    m_filter.filter(m_left.frames.data() + begin, m_right.frames.data() + begin);
    ++m_windows;
    const auto add = [begin](std::span<const float> filtered, Channel &channel) {
        const std::size_t heard = past - begin; // its frames before the hop have been heard
        for (std::size_t i = heard; i < window; ++i)
            channel.sum[i - heard] += filtered[i];
        if (heard > 0)
            channel.before += filtered[heard - 1];
    };
    add(m_filter.left(), m_left);
    add(m_filter.right(), m_right);
}

void CentreStream::write(const Slice &slice, std::size_t frames, bool isWanted) noexcept
{
    for (std::size_t i = 0; i < frames; ++i) {
        float stepGain = 0.0F;
        if (m_stepDone < glide)
            stepGain = 1.0F - fadeIn[m_stepDone++];
        float share = 1.0F;
        if (isWanted && m_glided < glide)
            share = fadeIn[m_glided++];
        else if (!isWanted)
            share = m_glided > 0 ? fadeIn[--m_glided] : 0.0F;
        const auto mix = [&](Channel &channel, float &sample) {
            channel.last = channel.sum[m_at + i] + stepGain * channel.step;
            // Damage is left as it is where it was, but not spread.
            sample = share == 1.0F ? channel.last : sample + share * (channel.last - sample);
        };
        mix(m_left, slice.left[i]);
        mix(m_right, slice.right[i]);
    }
}

} // namespace lyrabox
