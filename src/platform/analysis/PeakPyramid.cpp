#include "platform/analysis/PeakPyramid.h"

#include "platform/analysis/SampleShape.h"

#include <algorithm>
#include <cmath>

namespace lyrabox {

namespace {

constexpr double exactBelow =
    1024.0; // frames of a column; reading its ends from the song takes time
constexpr double loudShare = 0.995;

/// A range of frames or blocks.
struct Range {
    std::uint64_t begin = 0;
    std::uint64_t end = 0;

    bool isEmpty() const { return begin >= end; }
};

/// The blocks that a range of frames touches.
Range touchedBlocks(Range frames)
{
    constexpr std::uint64_t block = PeakSegment::blockFrames;
    return {frames.begin / block, (frames.end + block - 1) / block};
}

/// The blocks that lie within a range of frames.
Range wholeBlocks(Range frames)
{
    constexpr std::uint64_t block = PeakSegment::blockFrames;
    return {(frames.begin + block - 1) / block, frames.end / block};
}

/// The frames of a column from border `begin` to border `end`, as far as the song has them.
Range columnFrames(double begin, double end, std::uint64_t songFrames)
{
    const double limit = static_cast<double>(songFrames);
    const double first = std::floor(begin);
    const double last = std::max(std::floor(end), first + 1.0);
    if (!(first < limit && last > 0.0))
        return {};
    return {static_cast<std::uint64_t>(std::max(first, 0.0)),
            static_cast<std::uint64_t>(std::min(last, limit))};
}

/// Collects the parts of a column.
class ColumnSums {
public:
    void addSamples(const SongSamples &song, Range range)
    {
        if (range.isEmpty())
            return;
        const SampleShape shape = measureShape(song.part(range.begin, range.end - range.begin));
        addExtremes(shape.minimum, shape.maximum);
        m_squares += shape.squares / 2.0;
        m_frames += range.end - range.begin;
    }

    /// Adds blocks that are measured: the fewest entries that cover them.
    void addBlocks(std::span<const PeakSegment> segments, Range blocks, std::uint64_t songFrames)
    {
        for (std::uint64_t at = blocks.begin; at < blocks.end;) {
            std::size_t level = 0;
            std::uint64_t length = 1;
            while (level + 1 < PeakSegment::levels && at % (4 * length) == 0 &&
                   at + 4 * length <= blocks.end) {
                ++level;
                length *= 4;
            }
            const std::uint64_t first = at * PeakSegment::blockFrames;
            const std::uint64_t frames =
                std::min(length * PeakSegment::blockFrames, songFrames - first);
            addEntry(
                segments[at / PeakSegment::blocks].entry(level, at % PeakSegment::blocks / length),
                frames);
            at += length;
        }
    }

    void setShapeOf(PeakColumn &column) const
    {
        column.minimum = m_minimum;
        column.maximum = m_maximum;
        column.rms = rms(m_squares);
        column.isKnown = true;
    }

    void setBandsOf(PeakColumn &column) const
    {
        column.low = rms(m_low);
        column.middle = rms(m_middle);
        column.high = rms(m_high);
        column.hasBands = true;
    }

private:
    void addEntry(const PeakEntry &entry, std::uint64_t frames)
    {
        addExtremes(entry.minimum, entry.maximum);
        const double weight = static_cast<double>(frames);
        const auto square = [weight](ShortMagnitude rms) {
            return weight * double{rms.value()} * double{rms.value()};
        };
        m_squares += square(entry.rms);
        m_low += square(entry.low);
        m_middle += square(entry.middle);
        m_high += square(entry.high);
        m_frames += frames;
    }

    void addExtremes(float minimum, float maximum)
    {
        m_minimum = m_frames == 0 ? minimum : std::min(m_minimum, minimum);
        m_maximum = m_frames == 0 ? maximum : std::max(m_maximum, maximum);
    }

    float rms(double squares) const
    {
        return static_cast<float>(std::sqrt(squares / static_cast<double>(m_frames)));
    }

    float m_minimum = 0.0F;
    float m_maximum = 0.0F;
    double m_squares = 0.0; // these four: mean over the channels, sum over the frames
    double m_low = 0.0;
    double m_middle = 0.0;
    double m_high = 0.0;
    std::uint64_t m_frames = 0;
};

/// Counts the blocks of each RMS.
class LoudnessHistogram {
public:
    void add(const PeakSegment &segment, std::uint64_t blocks)
    {
        for (std::uint64_t i = 0; i < blocks; ++i)
            ++m_counts[segment.entry(0, i).rms.order()];
        m_total += blocks;
    }

    /// The lowest RMS that `loudShare` of the blocks don't exceed.
    float loud() const
    {
        const auto wanted =
            static_cast<std::uint64_t>(std::ceil(loudShare * static_cast<double>(m_total)));
        std::uint64_t counted = 0;
        std::size_t order = 0;
        for (; order + 1 < m_counts.size(); ++order) {
            counted += m_counts[order];
            if (counted >= wanted)
                break;
        }
        return ShortMagnitude::ofOrder(static_cast<std::uint16_t>(order)).value();
    }

private:
    std::vector<std::uint32_t> m_counts = std::vector<std::uint32_t>(ShortMagnitude::orders);
    std::uint64_t m_total = 0;
};

std::uint64_t segmentsOf(std::uint64_t frames)
{
    return (frames + PeakSegment::frames - 1) / PeakSegment::frames;
}

} // namespace

PeakPyramid::PeakPyramid(std::uint64_t frames)
    : m_frames(frames),
      m_isMeasured(segmentsOf(frames)),
      // Not filled here: the system gives the memory as the segments are written.
      m_segments(std::make_unique_for_overwrite<PeakSegment[]>(segmentsOf(frames)))
{}

bool PeakPyramid::build(const SongSamples &song, std::uint64_t around, const std::stop_token &stop,
                        const std::function<void()> &grown)
{
    LoudnessHistogram histogram;
    const std::uint64_t count = m_isMeasured.size();
    const auto blocksOf = [this](std::uint64_t segment) {
        const Range blocks = touchedBlocks({segment * PeakSegment::frames, m_frames});
        return std::min(PeakSegment::blocks, blocks.end - blocks.begin);
    };
    for (std::uint64_t i = 0; i < count; ++i) {
        if (m_isMeasured[i].load(std::memory_order_acquire))
            histogram.add(m_segments[i], blocksOf(i));
    }
    const auto measure = [&](std::uint64_t segment) {
        if (segment >= count || m_isMeasured[segment].load(std::memory_order_acquire))
            return true;
        if (stop.stop_requested())
            return false;
        m_segments[segment].measure(song, segment * PeakSegment::frames);
        histogram.add(m_segments[segment], blocksOf(segment));
        m_loudRms.store(histogram.loud(), std::memory_order_relaxed);
        m_isMeasured[segment].store(true, std::memory_order_release);
        m_measured.fetch_add(1, std::memory_order_release);
        if (grown)
            grown();
        return true;
    };
    const std::uint64_t middle = count == 0 ? 0 : std::min(around / PeakSegment::frames, count - 1);
    for (std::uint64_t distance = 0; distance < count; ++distance) {
        if (!measure(middle + distance) || (distance <= middle && !measure(middle - distance)))
            return false;
    }
    return true;
}

void PeakPyramid::fillColumns(const SongSamples &song, double from, double to,
                              std::span<PeakColumn> columns) const
{
    const double width = (to - from) / static_cast<double>(columns.size());
    const auto border = [&](std::size_t i) {
        return i == columns.size() ? to : from + width * static_cast<double>(i);
    };
    const std::span<const PeakSegment> segments(m_segments.get(), m_isMeasured.size());
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const Range frames = columnFrames(border(i), border(i + 1), m_frames);
        PeakColumn &column = columns[i] = {};
        if (frames.isEmpty())
            continue;
        const Range blocks = touchedBlocks(frames);
        const bool isMeasured = this->isMeasured(blocks.begin, blocks.end);
        ColumnSums touched;
        if (isMeasured) {
            touched.addBlocks(segments, blocks, m_frames);
            touched.setBandsOf(column);
        }
        if (width < exactBelow) {
            const Range whole = isMeasured ? wholeBlocks(frames) : Range{};
            ColumnSums exact;
            if (whole.isEmpty()) {
                exact.addSamples(song, frames);
            } else {
                exact.addSamples(song, {frames.begin, whole.begin * PeakSegment::blockFrames});
                exact.addBlocks(segments, whole, m_frames);
                exact.addSamples(song, {whole.end * PeakSegment::blockFrames, frames.end});
            }
            exact.setShapeOf(column);
        } else if (isMeasured) {
            touched.setShapeOf(column);
        }
    }
}

bool PeakPyramid::isMeasured(std::uint64_t firstBlock, std::uint64_t endBlock) const
{
    const auto begin = m_isMeasured.begin();
    return std::all_of(
        begin + static_cast<std::ptrdiff_t>(firstBlock / PeakSegment::blocks),
        begin + static_cast<std::ptrdiff_t>((endBlock - 1) / PeakSegment::blocks + 1),
        [](const std::atomic<bool> &is) { return is.load(std::memory_order_acquire); });
}

std::size_t PeakPyramid::bytes() const
{
    return sizeof *this + m_isMeasured.size() * (sizeof(PeakSegment) + sizeof(std::atomic<bool>));
}

} // namespace lyrabox
