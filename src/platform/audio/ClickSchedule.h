#pragma once

#include "platform/audio/Clicks.h"
#include "platform/audio/PublishedObject.h"
#include "platform/audio/TripleBuffer.h"

#include <array>
#include <cstdint>
#include <limits>
#include <memory>
#include <utility>

namespace lyrabox {

/// The clicks that are due. The routine that reads the song tells it which frames it reads, and it
/// looks up the beats in them. ClickMixer takes the clicks out when the frames are heard, after
/// time/pitch has held them for a while.
///
/// Both count the frames that were read, from the first one on and without ever wrapping: the
/// stream. A loop's jump and a seek change the place in the song, but the stream goes on. So a beat
/// is looked up once each time it is read, whatever the position does.
///
/// It outlives the stages, so nothing has to be carried over when the device changes. Callback
/// thread, except for the members that name another.
class ClickSchedule {
public:
    static constexpr std::uint64_t noEnd = std::numeric_limits<std::uint64_t>::max();

    /// Control side. The clicks of the song; null switches them off.
    void setTable(std::shared_ptr<const ClickTable> table) { m_table.publish(std::move(table)); }
    std::shared_ptr<const ClickTable> table() const { return m_table.newest(); }

    /// Control side.
    void setSound(const ClickSound &sound) { m_sound.publish(sound); }

    /// Whether there is a table.
    bool isOn() noexcept { return m_table.take() != nullptr; }

    /// The sound that was set last.
    const ClickSound &sound() noexcept;

    /// The reader seeks: bars are counted anew.
    void seek() noexcept;

    /// The next `frames` frames of the stream are the song from `position` on. Beats from `end` on
    /// wait for the next call: they sound only if that call continues this one. A loop passes its
    /// end by less than a slice, and the beat at its end is that at its start.
    void readSong(std::uint64_t position, std::uint32_t frames, std::uint64_t end = noEnd) noexcept;

    /// The next `frames` frames of the stream are the frames of a lead-in from `done` on.
    void readLeadIn(const LeadIn &leadIn, std::uint32_t done, std::uint32_t frames) noexcept;

    /// The length of the stream so far.
    std::uint64_t framesRead() const noexcept { return m_read; }

    /// A click that is due.
    struct Due {
        std::uint64_t at = 0; ///< the frame of the stream
        ClickKind kind = ClickKind::Beat;
        bool isCountIn = false; ///< it belongs to a lead-in, and sounds without a table, too
    };

    bool isEmpty() const noexcept { return m_taken == m_added; }
    /// The next click. Only if it is not empty.
    const Due &next() const noexcept { return m_due[m_taken % capacity]; }
    void removeNext() noexcept { ++m_taken; }

private:
    /// More than time/pitch can hold: 32,768 frames, with clicks that are 441 frames apart.
    static constexpr std::uint64_t capacity = 256;

    void add(std::uint64_t at, ClickKind kind, bool isCountIn) noexcept;
    void addBetween(const ClickTable &table, std::uint64_t first, std::uint64_t last,
                    std::uint64_t position, std::uint32_t frames) noexcept;
    bool barSounds(const ClickTable &table, const SongClick &click) noexcept;

    PublishedObject<ClickTable> m_table;
    TripleBuffer<ClickSound> m_sound;
    ClickSound m_soundNow;

    std::uint64_t m_read = 0;
    std::uint64_t m_nextPosition = 0; ///< the frame of the song that would continue the last read
    std::uint64_t m_lookedUpTo = 0;   ///< beats before this frame of the song have been added
    bool m_hasRead = false;           ///< since the last seek or lead-in

    std::uint64_t m_bars = 0;    ///< that were completed since the last seek
    std::uint8_t m_lastBeat = 0; ///< of the last click; 0: none since the last seek
    bool m_hasJumped = false;    ///< since the last click

    std::array<Due, capacity> m_due{};
    std::uint64_t m_added = 0;
    std::uint64_t m_taken = 0;
};

} // namespace lyrabox
