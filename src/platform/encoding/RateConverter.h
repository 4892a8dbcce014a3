#pragma once

#include "platform/encoding/FFmpeg.h"
#include "platform/foundation/Status.h"

#include <cstdint>
#include <functional>
#include <vector>

namespace lyrabox::encoding {

/// Takes `frames` frames of both channels.
using FrameSink =
    std::function<Status(const float *left, const float *right, std::uint32_t frames)>;

/// Converts two channels from 44,100 Hz to another sample rate, with the resampler that the
/// decoders use. At 44,100 Hz the frames pass unchanged. The result has the exact length:
/// `frames` * rate / 44,100, rounded. One thread at a time.
class RateConverter {
public:
    /// Returns notEnoughMemory or unspecified on failure.
    Status open(int rate);

    /// Gives `sink` the frames that are ready.
    Status push(const float *left, const float *right, std::uint32_t frames, const FrameSink &sink);

    /// Gives `sink` the frames that the resampler holds. Call it once, after the last frame.
    Status finish(const FrameSink &sink);

private:
    Status convert(const std::uint8_t **input, std::uint32_t frames, const FrameSink &sink,
                   std::int64_t limit);

    int m_rate = 44100;
    AvPointer<SwrContext> m_swr; ///< null: nothing to convert
    std::int64_t m_inFrames = 0;
    std::int64_t m_outFrames = 0;
    std::vector<float> m_left;
    std::vector<float> m_right;
};

} // namespace lyrabox::encoding
