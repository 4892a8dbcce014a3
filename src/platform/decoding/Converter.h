#pragma once

#include "platform/decoding/FFmpeg.h"
#include "platform/foundation/Status.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace lyrabox::decoding {

/// Where converted frames go: one buffer of 32-bit floats per channel.
struct ConvertedFrames {
    std::array<float *, 2> channels{};
    std::size_t capacity = 0; ///< frames
    std::size_t count = 0;    ///< frames that are filled

    std::size_t room() const { return capacity - count; }
};

/// The gains that bring a source of `channels` to `outputs` (1 or 2) channels where the source does
/// not say what its channels are: channels alternate between left and right and are divided by
/// their number, so nothing clips. Row by row: outputs * channels values.
std::vector<double> alternatingMatrix(int channels, int outputs);

/// Converts decoded frames of any sample type, rate and channels to the client format. What does
/// not fit into the caller's buffers waits for the next call. Mono goes to both sides at full
/// level; more than two channels are mixed down so that full scale in every channel does not clip.
class Converter {
public:
    /// Forgets what waits.
    void setOutput(int rate, int channels);

    /// Moves what waits into `out`. Call it before push() until nothing waits.
    void take(ConvertedFrames &out);

    /// A frame of another format than the one before ends the previous conversion without a loss.
    Status push(const AVFrame &frame, ConvertedFrames &out);

    /// Delivers what the resampler still holds.
    Status finish(ConvertedFrames &out);

private:
    Status configure(const AVFrame &frame);
    Status convert(const AVFrame *frame, ConvertedFrames &out);
    bool matches(const AVFrame &frame) const;

    int m_rate = 44100;
    int m_channels = 2;
    AvPointer<SwrContext> m_swr;
    AVChannelLayout m_inLayout = {};
    int m_inFormat = AV_SAMPLE_FMT_NONE;
    int m_inRate = 0;
    std::int64_t m_inFrames = 0;  ///< since configure()
    std::int64_t m_outFrames = 0; ///< since configure()
    std::array<std::vector<float>, 2> m_waiting;
    std::size_t m_waitingStart = 0;
    std::size_t m_waitingEnd = 0;
};

} // namespace lyrabox::decoding
