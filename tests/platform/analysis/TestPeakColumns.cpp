#include "platform/analysis/PeakPyramid.h"

#include "platform/analysis/MadeSong.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace lyrabox;
using test::MadeSong;

namespace {

/// A song whose level changes all the time, so that every range of frames has extremes of its own.
MadeSong livelySong(std::size_t frames, unsigned seed)
{
    MadeSong song(frames);
    song.addNoise(0.3, seed);
    std::mt19937 random(seed);
    std::uniform_real_distribution<float> levels(0.0F, 3.0F);
    for (std::size_t begin = 0; begin < frames; begin += 777) {
        const float level = levels(random);
        for (std::size_t i = begin; i < std::min(begin + 777, frames); ++i) {
            song.left[i] *= level;
            song.right[i] = song.right[i] * level + 0.1F;
        }
    }
    return song;
}

struct Truth {
    float minimum = INFINITY;
    float maximum = -INFINITY;
    double squares = 0.0;
    double rms = 0.0;
};

/// Measures the frames from `begin` up to `end`, sample by sample.
Truth truthOf(const MadeSong &song, std::size_t begin, std::size_t end)
{
    Truth truth;
    for (std::size_t i = begin; i < end; ++i) {
        for (const float sample : {song.left[i], song.right[i]}) {
            truth.minimum = std::min(truth.minimum, sample);
            truth.maximum = std::max(truth.maximum, sample);
            truth.squares += double{sample} * double{sample};
        }
    }
    truth.rms = std::sqrt(truth.squares / 2.0 / static_cast<double>(end - begin));
    return truth;
}

std::vector<PeakColumn> columnsOf(const PeakPyramid &pyramid, const MadeSong &song, double from,
                                  double to, std::size_t count)
{
    std::vector<PeakColumn> columns(count);
    pyramid.fillColumns(song.samples(), from, to, columns);
    return columns;
}

class PeakColumns : public testing::Test {
protected:
    PeakColumns() { pyramid.build(song.samples(), 0, {}); }

    /// Expects the column to have the extremes and the RMS of these frames.
    void expectExact(const PeakColumn &column, std::size_t begin, std::size_t end) const
    {
        const Truth truth = truthOf(song, begin, end);
        EXPECT_TRUE(column.isKnown);
        EXPECT_EQ(column.minimum, truth.minimum) << begin << " to " << end;
        EXPECT_EQ(column.maximum, truth.maximum) << begin << " to " << end;
        EXPECT_NEAR(column.rms, truth.rms, 0.004 * truth.rms) << begin << " to " << end;
    }

    const std::size_t length = 5 * PeakSegment::frames + 12'345;
    const MadeSong song = livelySong(length, 3);
    PeakPyramid pyramid{length};
};

} // namespace

TEST_F(PeakColumns, OnTheBordersOfBlocksEveryWidthIsExact)
{
    for (const std::size_t width :
         {256, 512, 1024, 2816, 4096, 6400, 16384, 40'192, 65'536, 100'096}) {
        for (const std::size_t from : {0, 256, 3328, 65'280}) {
            const std::size_t count = (length - from) / width;
            const auto columns = columnsOf(pyramid, song, static_cast<double>(from),
                                           static_cast<double>(from + count * width), count);
            for (std::size_t i = 0; i < count; ++i)
                expectExact(columns[i], from + i * width, from + (i + 1) * width);
        }
    }
}

TEST_F(PeakColumns, NarrowColumnsAreExactAnywhere)
{
    std::mt19937 random(11);
    for (int run = 0; run < 200; ++run) {
        const std::size_t width = 1 + random() % 1023;
        const std::size_t count = 1 + random() % 5;
        const std::size_t from = random() % (length - width * count);
        const auto columns = columnsOf(pyramid, song, static_cast<double>(from),
                                       static_cast<double>(from + count * width), count);
        for (std::size_t i = 0; i < count; ++i)
            expectExact(columns[i], from + i * width, from + (i + 1) * width);
    }
}

TEST_F(PeakColumns, WideColumnsAreNeverLessThanTheTruthNorMoreThanTheBlocksTheyTouch)
{
    std::mt19937 random(12);
    for (int run = 0; run < 200; ++run) {
        const std::size_t width = 1024 + random() % 100'000;
        const std::size_t begin = random() % (length - width);
        const auto column = columnsOf(pyramid, song, static_cast<double>(begin),
                                      static_cast<double>(begin + width), 1)
                                .front();
        const Truth inside = truthOf(song, begin, begin + width);
        EXPECT_LE(column.minimum, inside.minimum);
        EXPECT_GE(column.maximum, inside.maximum);
        expectExact(column, begin / 256 * 256, std::min((begin + width + 255) / 256 * 256, length));
    }
}

TEST_F(PeakColumns, ColumnsOfAFractionOfAFrameHaveOneFrame)
{
    const auto columns = columnsOf(pyramid, song, 1000.25, 1002.25, 8);
    const std::size_t frames[]{1000, 1000, 1000, 1001, 1001, 1001, 1001, 1002};
    for (std::size_t i = 0; i < columns.size(); ++i)
        expectExact(columns[i], frames[i], frames[i] + 1);
}

TEST_F(PeakColumns, NoFrameIsLostBetweenColumnsOfFractionalWidth)
{
    for (const double width : {1.3, 17.7, 255.9, 300.1, 1000.3}) {
        const double from = 70'000.6;
        const auto columns = columnsOf(pyramid, song, from, from + 40.0 * width, 40);
        auto begin = static_cast<std::size_t>(from);
        for (std::size_t i = 0; i < columns.size(); ++i) {
            const double to = i + 1 == 40 ? from + 40.0 * width
                                          : from + (from + 40.0 * width - from) / 40.0 *
                                                       static_cast<double>(i + 1);
            const auto end = static_cast<std::size_t>(to);
            expectExact(columns[i], begin, end);
            begin = end;
        }
    }
}

TEST_F(PeakColumns, TheLastFrameIsInTheLastColumn)
{
    MadeSong small(2000);
    small.left.back() = 0.9F;
    const PeakPyramid empty(2000);
    for (std::size_t count = 2; count <= 2000; ++count) {
        const PeakColumn last = columnsOf(empty, small, 0.0, 2000.0, count).back();
        ASSERT_EQ(last.maximum, 0.9F) << count;
    }
}

TEST_F(PeakColumns, ColumnsOutsideTheSongAreUnknown)
{
    const auto end = static_cast<double>(length);
    for (const double width : {0.5, 100.0, 1000.0, 20'000.0}) {
        const auto before = columnsOf(pyramid, song, -3.0 * width - 1.0, -1.0, 3);
        const auto behind = columnsOf(pyramid, song, end, end + 3.0 * width, 3);
        for (std::size_t i = 0; i < 3; ++i) {
            EXPECT_FALSE(before[i].isKnown);
            EXPECT_FALSE(behind[i].isKnown);
            EXPECT_EQ(behind[i].maximum, 0.0F);
        }
    }
}

TEST_F(PeakColumns, OfAColumnAtTheEndsOfTheSongThePartInsideCounts)
{
    const auto end = static_cast<double>(length);
    expectExact(columnsOf(pyramid, song, -50.0, 50.0, 1).front(), 0, 50);
    expectExact(columnsOf(pyramid, song, end - 50.0, end + 50.0, 1).front(), length - 50, length);
    expectExact(columnsOf(pyramid, song, -1e15, 1e15, 1).front(), 0, length);
    expectExact(columnsOf(pyramid, song, -9e6, 25'600.0, 1).front(), 0, 25'600);
}

TEST_F(PeakColumns, TheBandsOfANarrowColumnAreThoseOfTheBlocksItTouches)
{
    const PeakColumn narrow = columnsOf(pyramid, song, 1000.0, 1001.0, 1).front();
    const PeakColumn block = columnsOf(pyramid, song, 768.0, 1024.0, 1).front();
    EXPECT_TRUE(narrow.hasBands);
    EXPECT_EQ(narrow.low, block.low);
    EXPECT_EQ(narrow.middle, block.middle);
    EXPECT_EQ(narrow.high, block.high);
}

TEST_F(PeakColumns, NarrowColumnsAreKnownBeforeThePyramidIsBuilt)
{
    const PeakPyramid empty(length);
    for (const double width : {1.0, 200.0, 1023.0}) {
        const PeakColumn column = columnsOf(empty, song, 1000.0, 1000.0 + width, 1).front();
        expectExact(column, 1000, 1000 + static_cast<std::size_t>(width));
        EXPECT_FALSE(column.hasBands);
        EXPECT_EQ(column.low + column.middle + column.high, 0.0F);
    }
    EXPECT_FALSE(columnsOf(empty, song, 1000.0, 6000.0, 1).front().isKnown);
}
