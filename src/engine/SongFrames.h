#pragma once

#include "engine/AudioEngineControl.h"

#include <cstdint>

/// Reading the song's samples on the audio callback thread. Shared by the engine's own source
/// files.
namespace lyrabox::engine {

/// Copies `bytes` from frame `position` of a channel that holds `total` frames. Positions count
/// modulo 2^64, so a position just below 2^64 lies just before frame 0. Frames outside the channel
/// are silence.
void copyFrames(std::byte *destination, std::uint64_t bytes, const std::byte *channel,
                std::uint64_t position, std::uint64_t total, std::uint64_t bytesPerFrame) noexcept;

/// Where a loop goes on after its jump.
std::uint64_t placeAfterJump(std::uint64_t loopStart) noexcept;

/// Copies `frames` frames of a channel of the engine's song from `position` on.
void copySongFrames(float *destination, std::uint32_t frames, std::uint32_t channel,
                    std::uint64_t position) noexcept;

/// Writes the next `frames` frames of a lead-in, at most those that are left.
void copyLeadIn(float *destination, std::uint32_t frames, std::uint32_t channel,
                const LeadInFrames &leadIn) noexcept;

} // namespace lyrabox::engine
