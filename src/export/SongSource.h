#pragma once

#include "platform/audio/CentreFilter.h"
#include "platform/audio/SongReader.h"

#include <array>
#include <cstdint>
#include <memory>
#include <stop_token>
#include <vector>

namespace lyrabox {

/// Reads a song forward and keeps a part of it, so that a whole song needs little memory and a loop
/// is decoded once. One thread at a time.
class SongSource {
public:
    /// Frames before the kept part that can still be read: as many as a window of the centre, which
    /// begins before the first pass. Fades need fewer.
    static constexpr std::uint64_t margin = CentreFilter::window;

    /// `reader` is never null.
    SongSource(std::unique_ptr<SongReader> reader, std::stop_token stop);

    /// Opens the song. Returns the statuses of SongReader.
    Status open(const QString &path);

    /// The song's length if the file states it, otherwise 0.
    std::uint64_t estimatedFrames() const { return m_reader->estimatedFrames().value_or(0); }

    /// Copies frames from `position` on to both channels. Returns how many: fewer than `frames` at
    /// the song's end, after a failure and after a request to stop.
    std::uint32_t copy(std::uint64_t position, std::uint32_t frames, float *left, float *right);

    /// One sample. Silence outside the song, and before the kept part.
    float sample(std::uint32_t channel, std::uint64_t frame);

    /// The frames before `frame` are not needed any more, except for the margin.
    void forgetBefore(std::uint64_t frame);

    /// Why reading ended before the song's end; noError otherwise.
    Status error() const { return m_error; }

private:
    bool readUpTo(std::uint64_t end);
    bool readMore();
    bool hasMemory() const;
    std::uint64_t keptEnd() const { return m_first + m_channels[0].size(); }

    std::unique_ptr<SongReader> m_reader;
    std::stop_token m_stop;
    std::uint64_t m_first = 0;                    ///< the frame that the memory begins with
    std::uint64_t m_needed = 0;                   ///< as forgetBefore(), less the margin
    std::array<std::vector<float>, 2> m_channels; ///< the frames from m_first on
    bool m_isAtEnd = false;
    Status m_error = status::noError;
};

} // namespace lyrabox
