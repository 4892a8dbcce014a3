#pragma once

#include "platform/audio/CentreStream.h"
#include "platform/audio/ChannelTools.h"
#include "platform/audio/TripleBuffer.h"

#include <atomic>
#include <cstdint>
#include <memory>

namespace lyrabox {

/// Carries out ChannelTools in front of the equalizer. While they are neutral nothing runs, and
/// every sample stays as it is. It adds no delay.
///
/// First comes the centre, then the mode, then the balance. Mode and balance glide over 256 frames.
/// After a seek everything has its value at once, because the output fades there anyway.
///
/// One thread at a time on the control side, and one callback thread.
class ChannelStage {
public:
    static constexpr std::uint32_t glide = CentreStream::glide;

    /// Control side. Brings numbers within their ranges. Allocates when the centre is used for the
    /// first time; throws std::bad_alloc without memory, and then changes nothing.
    void set(const ChannelTools &tools);
    /// Control side. What was set last.
    const ChannelTools &tools() const { return m_set; }

    /// Callback thread. What is played next does not follow what was played before.
    void seek() noexcept { m_hasSeeked = true; }

    /// Callback thread. Takes over what was set. Whether the next slice has to be processed; call
    /// it once for each.
    bool isOn() noexcept;

    /// Callback thread. Processes a slice in place.
    void process(float *left, float *right, std::uint32_t frames, StreamAround &stream) noexcept;

private:
    /// What each loudspeaker gets of each channel.
    struct Matrix {
        float leftOfLeft = 1.0F;
        float leftOfRight = 0.0F;
        float rightOfLeft = 0.0F;
        float rightOfRight = 1.0F;

        bool operator==(const Matrix &) const = default;
    };
    static Matrix matrixOf(const ChannelTools &tools) noexcept;
    static Matrix between(const Matrix &from, const Matrix &to, float share) noexcept;
    static void apply(const Matrix &matrix, float &left, float &right) noexcept;

    // Control side.
    ChannelTools m_set;
    std::unique_ptr<CentreStream> m_ownCentre;

    TripleBuffer<ChannelTools> m_published;
    std::atomic<CentreStream *> m_centre{nullptr}; ///< set before tools that need it are published

    // Callback thread.
    ChannelTools m_tools;
    Matrix m_from;
    Matrix m_now;
    Matrix m_to;
    std::uint32_t m_glided = glide; ///< frames of the way from m_from to m_to
    bool m_hasSeeked = true;
};

} // namespace lyrabox
