#pragma once

#include "platform/analysis/SongSamples.h"

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <type_traits>

namespace lyrabox {

/// A magnitude in 16 bits: the upper half of a float, rounded. It is exact to 0.4 %.
class ShortMagnitude {
public:
    ShortMagnitude() = default;
    /// `value` is finite and not negative.
    explicit ShortMagnitude(float value)
        : m_bits(static_cast<std::uint16_t>((std::bit_cast<std::uint32_t>(value) + 0x8000U) >> 16U))
    {}

    static ShortMagnitude ofOrder(std::uint16_t order)
    {
        ShortMagnitude magnitude;
        magnitude.m_bits = order;
        return magnitude;
    }

    float value() const { return std::bit_cast<float>(std::uint32_t{m_bits} << 16U); }
    /// The place of the value in the order of all values; below `orders`.
    std::uint16_t order() const { return m_bits; }
    static constexpr std::size_t orders = 0x8000;

private:
    std::uint16_t m_bits;
};

/// What the pyramid keeps of a stretch of the song, both channels together.
struct PeakEntry {
    float minimum;
    float maximum;
    ShortMagnitude rms;
    ShortMagnitude low;    ///< the RMS of the part below 200 Hz
    ShortMagnitude middle; ///< of the part between
    ShortMagnitude high;   ///< of the part above 2.5 kHz
};
static_assert(sizeof(PeakEntry) == 16);

/// A piece of the pyramid: what 65,536 frames are drawn from. Its five levels have steps of 256,
/// 1,024, 4,096, 16,384 and 65,536 frames.
class PeakSegment {
public:
    static constexpr std::uint64_t blockFrames = 256;
    static constexpr std::uint64_t frames = 65536;
    static constexpr std::uint64_t blocks = frames / blockFrames;
    static constexpr std::size_t levels = 5;

    /// Measures the segment that begins at the frame `first` of a song. `first` is a multiple of
    /// `frames` and within the song. The end of the song may be within the segment; then the
    /// entries behind it stay 0. The result depends on nothing else.
    void measure(const SongSamples &song, std::uint64_t first);

    /// Entry `index` of a level, 0 being the finest.
    const PeakEntry &entry(std::size_t level, std::uint64_t index) const
    {
        return m_entries[levelBegins[level] + index];
    }

private:
    static constexpr std::array<std::size_t, levels> levelBegins{0, 256, 320, 336, 340};

    std::array<PeakEntry, 341> m_entries; ///< level after level
};
// So a long song's segments take no memory before they are measured.
static_assert(std::is_trivially_default_constructible_v<PeakSegment>);

} // namespace lyrabox
