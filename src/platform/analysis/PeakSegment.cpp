#include "platform/analysis/PeakSegment.h"

#include "platform/analysis/BandEnergies.h"
#include "platform/analysis/SampleShape.h"

#include <algorithm>
#include <cmath>
#include <span>

namespace lyrabox {

namespace {

using Block = std::array<float, PeakSegment::blockFrames>;

/// What an entry is made of. Sums are kept until all levels are built, so that no level adds to the
/// rounding errors of another.
struct Sums {
    float minimum = 0.0F;
    float maximum = 0.0F;
    double squares = 0.0;
    BandEnergies::Energies bands;
    std::uint64_t frames = 0;

    void add(const Sums &other)
    {
        if (other.frames == 0)
            return;
        minimum = frames == 0 ? other.minimum : std::min(minimum, other.minimum);
        maximum = frames == 0 ? other.maximum : std::max(maximum, other.maximum);
        squares += other.squares;
        bands.low += other.bands.low;
        bands.high += other.bands.high;
        frames += other.frames;
    }

    PeakEntry entry() const
    {
        if (frames == 0)
            return {};
        const auto rms = [this](double sum) {
            // Where the filters lag behind a sudden end, the parts may be more than the whole.
            const double mean = std::max(0.0, sum) / (2.0 * static_cast<double>(frames));
            return ShortMagnitude(static_cast<float>(std::sqrt(mean)));
        };
        return {minimum,
                maximum,
                rms(squares),
                rms(bands.low),
                rms(squares - bands.low - bands.high),
                rms(bands.high)};
    }
};

/// Measures blocks of a song one after another.
class BlockMeter {
public:
    BlockMeter(const SongSamples &song, std::uint64_t first)
        : m_song(song), m_bands(song.sampleRate)
    {
        const std::uint64_t warmUp = std::min(first, BandEnergies::warmUpFrames);
        for (std::uint64_t at = first - warmUp; at < first; at += PeakSegment::blockFrames)
            measure(at);
    }

    /// The block that begins at the frame `at`, which is not beyond the end of the song.
    Sums measure(std::uint64_t at)
    {
        const std::uint64_t frames = std::min(PeakSegment::blockFrames, m_song.frames() - at);
        const SongSamples block = m_song.part(at, frames);
        const SampleShape shape = measureShape(block);
        Sums sums{.minimum = shape.minimum,
                  .maximum = shape.maximum,
                  .squares = shape.squares,
                  .bands = {},
                  .frames = frames};
        if (shape.squares < faintSquares)
            sums.bands = m_bands.add(silence(frames));
        else if (shape.isDamaged)
            sums.bands = m_bands.add(repaired(block));
        else
            sums.bands = m_bands.add(block);
        return sums;
    }

private:
    /// No sample is above -180 dB. Some may be denormal numbers, which would make the filters slow.
    static constexpr double faintSquares = 1.0e-18;

    SongSamples silence(std::uint64_t frames)
    {
        m_left.fill(0.0F);
        return {std::span(m_left).first(frames), std::span(m_left).first(frames),
                m_song.sampleRate};
    }

    SongSamples repaired(const SongSamples &block)
    {
        std::transform(block.left.begin(), block.left.end(), m_left.begin(), undamaged);
        std::transform(block.right.begin(), block.right.end(), m_right.begin(), undamaged);
        return {std::span(m_left).first(block.frames()), std::span(m_right).first(block.frames()),
                block.sampleRate};
    }

    const SongSamples &m_song;
    BandEnergies m_bands;
    Block m_left{};
    Block m_right{};
};

} // namespace

void PeakSegment::measure(const SongSamples &song, std::uint64_t first)
{
    std::array<Sums, blocks> sums;
    BlockMeter meter(song, first);
    for (std::uint64_t i = 0; i < blocks && first + i * blockFrames < song.frames(); ++i)
        sums[i] = meter.measure(first + i * blockFrames);
    std::uint64_t count = blocks;
    for (const std::size_t begin : levelBegins) {
        std::transform(sums.begin(), sums.begin() + static_cast<std::ptrdiff_t>(count),
                       m_entries.begin() + static_cast<std::ptrdiff_t>(begin),
                       [](const Sums &sum) { return sum.entry(); });
        count /= 4;
        for (std::uint64_t i = 0; i < count; ++i) { // the next level takes the place of this one
            Sums four;
            for (std::uint64_t j = 0; j < 4; ++j)
                four.add(sums[4 * i + j]);
            sums[i] = four;
        }
    }
}

} // namespace lyrabox
