#pragma once

#include "engine/LeadInReader.h"
#include "export/ExportRequest.h"
#include "export/SongSource.h"
#include "platform/audio/AudioUnit.h"
#include "platform/audio/ChannelStage.h"
#include "platform/audio/ClickSchedule.h"

#include <cstdint>
#include <deque>
#include <vector>

namespace lyrabox {

/// Reads the passes one after the other, as the engine's render routine reads a song: lead-ins,
/// jumps, the clicks that are due, and the channel tools. Two things differ. A pass ends at its
/// exact frame, where the routine may go on to the end of its slice. And the last frames of the
/// song are read, too.
///
/// Positions of the stream count all frames that were pulled, from the first one on. One thread at
/// a time.
class PassReader final : private StreamAround {
public:
    /// None may be null, and all must outlive the object.
    PassReader(const ExportRequest &request, SongSource &source, ChannelStage &channels,
               ClickSchedule &clicks, TimePitchUnit &timePitch);

    /// The render callback of the equalizer.
    static Status render(void *reader, std::uint32_t frames, AudioBufferList &list) noexcept;

    /// A place in the stream from which on the rate is another one.
    struct RateChange {
        std::uint64_t at = 0;
        float rate = 1.0F;
    };
    /// The changes that were read and not yet removed, in their order.
    std::deque<RateChange> &rateChanges() { return m_rateChanges; }
    const std::deque<RateChange> &rateChanges() const { return m_rateChanges; }

    /// The frames that were pulled, with those after the end in the last slice.
    std::uint64_t pulled() const { return m_pulled; }

    /// Whether the last pass has been read.
    bool hasEnded() const { return m_hasEnded; }
    /// The frames of all passes and lead-ins that were read. Only after the end.
    std::uint64_t length() const { return m_length; }

private:
    void read(std::uint32_t frames, AudioBufferList &list);
    std::uint32_t readSome(float *left, float *right, std::uint32_t frames);
    std::uint32_t readLeadIn(const engine::LeadInFrames &leadIn, float *left, float *right,
                             std::uint32_t frames);
    std::uint32_t readSong(const ExportPass &pass, std::uint64_t position, float *left,
                           float *right, std::uint32_t frames, bool &isOver);
    void beginPass(std::uint64_t from);
    void forgetWhatIsOver();
    void readAhead(float *left, float *right, std::uint32_t frames) noexcept override;
    void readBefore(float *left, float *right, std::uint32_t frames) noexcept override;

    const ExportRequest &m_request;
    SongSource &m_source;
    ChannelStage &m_channels;
    ClickSchedule &m_clicks;
    TimePitchUnit &m_timePitch;
    engine::LeadInReader m_leadIn;
    engine::LeadInReader m_leadInAhead;       ///< tells the lead-ins of the passes to come
    std::vector<std::uint64_t> m_firstNeeded; ///< for each pass: the first frame from it on
    std::deque<RateChange> m_rateChanges;
    std::size_t m_pass = 0;
    std::uint64_t m_position = 0; ///< the next frame of the song
    std::uint64_t m_pulled = 0;
    std::uint64_t m_length = 0;
    std::uint64_t m_sliceStart = 0; ///< as m_position, where the slice began
    bool m_sliceBeganWithLeadIn = false;
    bool m_hasEnded = false;
    bool m_hasToldEnd = false;
};

} // namespace lyrabox
