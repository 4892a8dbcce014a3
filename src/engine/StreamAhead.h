#pragma once

#include "engine/LeadInReader.h"
#include "platform/audio/CentreStream.h"

#include <cstdint>

namespace lyrabox::engine {

/// What the render routine will read after the present slice, and what it has read before, as far
/// as is known now: the song, a loop's jumps, and lead-ins. A seek or a loop that is changed later
/// makes it wrong. Callback thread.
class StreamAhead final : public StreamAround {
public:
    /// The state behind the present slice.
    struct Place {
        std::uint64_t start = 0;    ///< the song's frame at which the slice began
        std::uint64_t position = 0; ///< the song's next frame
        std::uint32_t slice = 0;    ///< frames of this slice, and probably of those to come
        std::uint32_t silent = 0;   ///< of these, frames of a lead-in
        bool isLooping = false;
        std::uint64_t loopEnd = 0;
    };

    /// `leadIn` has been advanced over the slice.
    StreamAhead(const Place &place, LeadInReader &leadIn) noexcept
        : m_place(place), m_leadIn(leadIn)
    {}

    void readAhead(float *left, float *right, std::uint32_t frames) noexcept override;
    void readBefore(float *left, float *right, std::uint32_t frames) noexcept override;

private:
    Place m_place;
    LeadInReader &m_leadIn;
};

} // namespace lyrabox::engine
