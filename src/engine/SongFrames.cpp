#include "engine/SongFrames.h"

#include <algorithm>
#include <cstring>

namespace lyrabox::engine {

void copyFrames(std::byte *destination, std::uint64_t bytes, const std::byte *channel,
                std::uint64_t position, std::uint64_t total, std::uint64_t bytesPerFrame) noexcept
{
    while (bytes > 0) {
        const bool isInside = position < total;
        // Outside the channel, silence runs until the position wraps to 0. An empty channel is all
        // silence.
        const std::uint64_t framesInRun = isInside ? total - position : 0 - position;
        const bool runIsShorter =
            (isInside || total > 0) && framesInRun < bytes / bytesPerFrame + 1;
        const std::uint64_t run =
            runIsShorter ? std::min(bytes, framesInRun * bytesPerFrame) : bytes;
        if (isInside)
            std::memcpy(destination, channel + position * bytesPerFrame, run);
        else
            std::memset(destination, 0, run);
        destination += run;
        bytes -= run;
        position += framesInRun;
    }
}

std::uint64_t placeAfterJump(std::uint64_t loopStart) noexcept
{
    return loopStart - std::min(loopStart, reading().runUp.load(std::memory_order_relaxed));
}

void copySongFrames(float *destination, std::uint32_t frames, std::uint32_t channel,
                    std::uint64_t position) noexcept
{
    const std::byte *data = state().channelBuffers[channel].load(std::memory_order_acquire);
    const std::uint64_t total = state().totalFrames.load(std::memory_order_acquire);
    copyFrames(reinterpret_cast<std::byte *>(destination), frames * sizeof(float), data, position,
               data ? total : 0, sizeof(float));
}

void copyLeadIn(float *destination, std::uint32_t frames, std::uint32_t channel,
                const LeadInFrames &leadIn) noexcept
{
    const std::byte *data = state().channelBuffers[channel].load(std::memory_order_acquire);
    const std::uint64_t total = state().totalFrames.load(std::memory_order_acquire);
    leadIn.read(destination, frames, [data, total](std::uint64_t frame) {
        float sample = 0.0F;
        if (data != nullptr && frame < total)
            std::memcpy(&sample, data + frame * sizeof sample, sizeof sample);
        return sample;
    });
}

} // namespace lyrabox::engine
