#pragma once

#include "platform/decoding/FFmpeg.h"
#include "platform/foundation/Status.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace lyrabox::decoding {

/// The destination of converted frames: one buffer of 32-bit floats per channel. Does not own the
/// buffers.
struct ConvertedFrames {
    std::array<float *, 2> channels{};
    std::size_t capacity = 0; ///< In frames.
    std::size_t count = 0;    ///< Frames already written.

    std::size_t room() const { return capacity - count; }
};

/// Gains for mixing `channels` channels down to `outputs` (1 or 2) if the file does not name its
/// channels. They alternate between left and right. Each gain is divided by the number of channels
/// on its side, so that nothing clips. Returns outputs * channels values, row by row.
std::vector<double> alternatingMatrix(int channels, int outputs);

/// Converts decoded frames of any sample type, rate and channel count to the client format. Frames
/// that do not fit into the caller's buffers wait for the next call. Mono goes to both sides at
/// full level. More than two channels are mixed down so that full scale in every channel does not
/// clip. One thread at a time.
class Converter {
public:
    /// Sets the rate in hertz and the number of channels (1 or 2) of the output. Drops the waiting
    /// frames.
    void setOutput(int rate, int channels);

    /// Moves waiting frames into `out`. Call it before push() until none wait.
    void take(ConvertedFrames &out);

    /// Converts one frame into `out`. If its format differs from the previous one, the previous
    /// conversion is flushed first, so nothing is lost. Returns notEnoughMemory,
    /// unsupportedDataFormat or unspecified on failure.
    Status push(const AVFrame &frame, ConvertedFrames &out);

    /// Delivers the frames that the resampler still holds. Call it after the last frame.
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
    std::int64_t m_inFrames = 0;  ///< Since configure().
    std::int64_t m_outFrames = 0; ///< Since configure().
    std::array<std::vector<float>, 2> m_waiting;
    std::size_t m_waitingStart = 0;
    std::size_t m_waitingEnd = 0;
};

} // namespace lyrabox::decoding
