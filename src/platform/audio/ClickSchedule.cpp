#include "platform/audio/ClickSchedule.h"

#include <algorithm>

namespace lyrabox {

const ClickSound &ClickSchedule::sound() noexcept
{
    if (const ClickSound *newest = m_sound.takeNewest())
        m_soundNow = *newest;
    return m_soundNow;
}

void ClickSchedule::seek() noexcept
{
    m_hasRead = false;
    m_hasJumped = false;
    m_bars = 0;
    m_lastBeat = 0;
}

void ClickSchedule::readSong(std::uint64_t position, std::uint32_t frames,
                             std::uint64_t end) noexcept
{
    const bool continues = m_hasRead && position == m_nextPosition;
    m_hasJumped = m_hasJumped || !continues;
    const std::uint64_t last = position + frames; // may wrap: positions below 0 are near 2^64
    const std::uint64_t first = continues ? m_lookedUpTo : last < position ? 0 : position;
    const std::uint64_t lookedUpTo = std::max(first, std::min(last, end));
    const ClickTable *const table = m_table.take();
    if (table != nullptr)
        addBetween(*table, first, lookedUpTo, position, frames);
    m_read += frames;
    m_hasRead = true;
    m_nextPosition = last;
    m_lookedUpTo = lookedUpTo;
}

/// Adds the clicks of the song from `first` to `last`. The `frames` frames from `position` on are
/// read next.
void ClickSchedule::addBetween(const ClickTable &table, std::uint64_t first, std::uint64_t last,
                               std::uint64_t position, std::uint32_t frames) noexcept
{
    auto click = std::lower_bound(
        table.clicks.begin(), table.clicks.end(), first,
        [](const SongClick &candidate, std::uint64_t frame) { return candidate.frame < frame; });
    for (; click != table.clicks.end() && click->frame < last; ++click) {
        const std::uint64_t offset = click->frame - position; // also right from below frame 0
        // One that has waited since the last read sounds at once.
        if (barSounds(table, *click))
            add(m_read + (offset < frames ? offset : 0), click->kind, false);
    }
}

/// Counts the bars as they are played. A bar is complete when the number of the beat does not grow,
/// so a loop of half a bar counts, too.
bool ClickSchedule::barSounds(const ClickTable &table, const SongClick &click) noexcept
{
    const bool beginsAnew = click.kind != ClickKind::Subdivision || m_hasJumped;
    if (m_lastBeat > 0 && (click.beat < m_lastBeat || (click.beat == m_lastBeat && beginsAnew)))
        ++m_bars;
    m_lastBeat = click.beat;
    m_hasJumped = false;
    const std::uint64_t period = std::uint64_t{table.barsOn} + table.barsOff;
    return table.barsOff == 0 || m_bars % period < table.barsOn;
}

void ClickSchedule::readLeadIn(const LeadIn &leadIn, std::uint32_t done,
                               std::uint32_t frames) noexcept
{
    const std::uint32_t count = std::min(leadIn.clickCount, LeadIn::maximumClicks);
    for (std::uint32_t i = 0; i < count; ++i) {
        const LeadIn::Click &click = leadIn.clicks[i];
        if (click.frame >= done && click.frame - done < frames)
            add(m_read + (click.frame - done), click.kind, true);
    }
    m_read += frames;
    m_hasRead = false;
}

void ClickSchedule::add(std::uint64_t at, ClickKind kind, bool isCountIn) noexcept
{
    if (m_added - m_taken == capacity)
        return;
    m_due[m_added % capacity] = {.at = at, .kind = kind, .isCountIn = isCountIn};
    ++m_added;
}

} // namespace lyrabox
