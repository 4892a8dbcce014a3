#pragma once

#include "platform/analysis/FourierTransform.h"
#include "platform/analysis/SongSamples.h"

#include <array>
#include <cstdint>
#include <span>
#include <stop_token>
#include <vector>

namespace lyrabox {

/// A fingerprint of a whole song: 32 bits for every step of 512 frames (11.6 ms at 44.1 kHz). Bit m
/// says whether the sound has moved from the band m + 1 to the band m in the last 0.1 seconds; the
/// 33 bands lie between 300 Hz and 2 kHz. Copies of one recording, encoded otherwise, agree in
/// most bits. All times are those at 44.1 kHz.
///
/// An object belongs to one thread at a time. It keeps no reference to the samples, and takes about
/// 1.3 MB a minute.
class SongPrint {
public:
    static constexpr std::uint64_t step = 512; ///< in frames
    /// A step and what it is compared with reach so many frames beyond its place on either side.
    static constexpr std::uint64_t reach = 8192;

    /// Measures the song. Takes about 15 ms a minute. Returns early, with fewer steps, when a stop
    /// is requested.
    explicit SongPrint(const SongSamples &song, const std::stop_token &stop = {});

    /// The bits of step n, whose window is centred at the frame n * step.
    const std::vector<std::uint32_t> &words() const { return m_words; }

    /// The power of step n between 300 Hz and 2 kHz; 1.0 for a tone of full scale.
    const std::vector<float> &powers() const { return m_powers; }

    /// How clear the bits of step n are, from 0.0 to 1.0: those of small changes are easily lost
    /// when a song is encoded.
    const std::vector<float> &clarities() const { return m_clarities; }

    /// The bits of `count` steps, the first of which is centred at any frame. Places beyond the
    /// song are silent.
    std::vector<std::uint32_t> wordsFrom(std::int64_t frame, std::size_t count);

private:
    static constexpr std::size_t bands = 33;
    using Bands = std::array<float, bands>;

    void reduce(const SongSamples &song, const std::stop_token &stop);
    void fillWindow(std::int64_t centre, std::span<float> window) const;
    void measurePair(std::int64_t centre, Bands &first, Bands &second);

    std::vector<float> m_reduced; ///< the song in mono, one sample for eight frames
    std::vector<std::uint32_t> m_words;
    std::vector<float> m_powers;
    std::vector<float> m_clarities;
    FourierTransform m_transform;
    std::vector<float> m_hann;
    std::vector<float> m_real;
    std::vector<float> m_imaginary;
};

} // namespace lyrabox
