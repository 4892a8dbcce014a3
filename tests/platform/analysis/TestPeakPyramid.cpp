#include "platform/analysis/PeakPyramid.h"

#include "platform/analysis/MadeSong.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <limits>
#include <thread>

using namespace lyrabox;
using test::MadeSong;
using test::songRate;

namespace {

constexpr std::uint64_t fourMinutes = 240 * 44100;
constexpr std::uint64_t threeHours = 3ULL * 3600 * 44100;

std::vector<PeakColumn> columnsOf(const PeakPyramid &pyramid, const SongSamples &song, double from,
                                  double to, std::size_t count)
{
    std::vector<PeakColumn> columns(count);
    pyramid.fillColumns(song, from, to, columns);
    return columns;
}

/// One column per segment.
std::vector<PeakColumn> segmentColumns(const PeakPyramid &pyramid, const SongSamples &song,
                                       std::size_t segments)
{
    return columnsOf(pyramid, song, 0.0, static_cast<double>(segments * PeakSegment::frames),
                     segments);
}

PeakColumn wholeSong(const SongSamples &song)
{
    PeakPyramid pyramid(song.frames());
    pyramid.build(song, 0, {});
    return columnsOf(pyramid, song, 0.0, static_cast<double>(song.frames()), 1).front();
}

bool areEqual(const PeakColumn &a, const PeakColumn &b)
{
    return a.minimum == b.minimum && a.maximum == b.maximum && a.rms == b.rms && a.low == b.low &&
           a.middle == b.middle && a.high == b.high && a.isKnown == b.isKnown &&
           a.hasBands == b.hasBands;
}

} // namespace

TEST(PeakPyramid, ASongOfFourMinutesTakesAtMostAMegabyte)
{
    EXPECT_LE(PeakPyramid(fourMinutes).bytes(), 1'000'000U);
}

TEST(PeakPyramid, ASongOfThreeHoursTakesAtMostFortyMegabytes)
{
    EXPECT_LE(PeakPyramid(threeHours).bytes(), 40'000'000U);
}

TEST(PeakPyramid, AnEmptySongIsCompleteAndHasNoColumns)
{
    const MadeSong song(0);
    PeakPyramid pyramid(0);
    EXPECT_TRUE(pyramid.isComplete());
    EXPECT_TRUE(pyramid.build(song.samples(), 0, {}));
    EXPECT_EQ(pyramid.loudRms(), 0.0F);
    EXPECT_FALSE(columnsOf(pyramid, song.samples(), 0.0, 1.0, 1).front().isKnown);
    EXPECT_FALSE(columnsOf(pyramid, song.samples(), -9e9, 9e9, 1).front().isKnown);
    pyramid.fillColumns(song.samples(), 0.0, 1.0, {});
}

TEST(PeakPyramid, ASongOfOneFrameIsOneColumn)
{
    MadeSong song(1);
    song.left[0] = 0.5F;
    song.right[0] = -0.25F;
    const PeakColumn column = wholeSong(song.samples());
    EXPECT_TRUE(column.isKnown);
    EXPECT_EQ(column.minimum, -0.25F);
    EXPECT_EQ(column.maximum, 0.5F);
    EXPECT_NEAR(column.rms, std::sqrt((0.25 + 0.0625) / 2.0), 1e-6);
}

TEST(PeakPyramid, SilenceIsKnownAndZero)
{
    const MadeSong song(300'000);
    const PeakColumn column = wholeSong(song.samples());
    EXPECT_TRUE(areEqual(column, {.isKnown = true, .hasBands = true}));
}

TEST(PeakPyramid, TheEnergyOfAToneLiesInItsBand)
{
    const auto bandsOf = [](double frequency) {
        MadeSong song(4 * 65536);
        song.addTone(0, frequency, 0.5);
        return wholeSong(song.samples());
    };
    const float rms = 0.5F / std::sqrt(2.0F);
    const PeakColumn low = bandsOf(60.0);
    EXPECT_NEAR(low.low, rms, 0.005 * rms);
    EXPECT_LT(low.middle, 0.05 * rms);
    EXPECT_LT(low.high, 0.01 * rms);
    const PeakColumn middle = bandsOf(700.0);
    EXPECT_LT(middle.low, 0.05 * rms);
    EXPECT_NEAR(middle.middle, rms, 0.005 * rms);
    EXPECT_LT(middle.high, 0.05 * rms);
    const PeakColumn high = bandsOf(8000.0);
    EXPECT_LT(high.low, 0.01 * rms);
    EXPECT_LT(high.middle, 0.05 * rms);
    EXPECT_NEAR(high.high, rms, 0.005 * rms);
}

TEST(PeakPyramid, TheBandsTogetherHaveTheEnergyOfTheSong)
{
    MadeSong song(500'000);
    song.addNoise(0.2);
    song.addTone(0, 150.0, 0.3);
    song.addTone(100'000, 2600.0, 0.3);
    PeakPyramid pyramid(song.left.size());
    pyramid.build(song.samples(), 0, {});
    for (const PeakColumn &column : columnsOf(pyramid, song.samples(), 0.0, 500'000.0, 30)) {
        const double sum =
            std::pow(column.low, 2) + std::pow(column.middle, 2) + std::pow(column.high, 2);
        EXPECT_NEAR(std::sqrt(sum), column.rms, 0.005 * column.rms);
    }
}

TEST(PeakPyramid, AFaintSongHasBands)
{
    MadeSong song(100'000);
    song.addTone(0, 60.0, 1e-6); // -120 dB
    const PeakColumn column = wholeSong(song.samples());
    EXPECT_NEAR(column.low, 1e-6 / std::sqrt(2.0), 1e-8);
    EXPECT_NEAR(column.rms, 1e-6 / std::sqrt(2.0), 1e-8);
}

TEST(PeakPyramid, AMonoSongIsLikeOneWithEqualChannels)
{
    MadeSong song(100'000);
    song.addNoise(0.3);
    song.right = song.left;
    EXPECT_TRUE(areEqual(wholeSong(song.mono()), wholeSong(song.samples())));
}

TEST(PeakPyramid, ChannelsOfOppositeSignDoNotCancel)
{
    MadeSong song(100'000);
    song.addTone(0, 1000.0, 0.5);
    std::transform(song.left.begin(), song.left.end(), song.right.begin(), std::negate<>());
    const PeakColumn column = wholeSong(song.samples());
    EXPECT_NEAR(column.rms, 0.5 / std::sqrt(2.0), 0.002);
    EXPECT_NEAR(column.middle, 0.5 / std::sqrt(2.0), 0.002);
}

TEST(PeakPyramid, DamagedSamplesCountAsSilence)
{
    MadeSong song(200'000);
    song.addNoise(0.1);
    MadeSong repaired = song;
    const float damage[]{NAN, INFINITY, -INFINITY, std::numeric_limits<float>::max(), 2.0e6F};
    for (std::size_t i = 0; i < 1000; ++i) {
        const std::size_t at = i * 197 + 3;
        auto &channel = i % 2 == 0 ? song.left : song.right;
        auto &repairedChannel = i % 2 == 0 ? repaired.left : repaired.right;
        channel[at] = damage[i % std::size(damage)];
        repairedChannel[at] = 0.0F;
    }
    PeakPyramid pyramid(song.left.size());
    PeakPyramid expected(song.left.size());
    pyramid.build(song.samples(), 0, {});
    expected.build(repaired.samples(), 0, {});
    EXPECT_EQ(pyramid.loudRms(), expected.loudRms());
    for (const std::size_t count : {1, 30, 1000, 100'000}) {
        const auto columns = columnsOf(pyramid, song.samples(), 0.0, 200'000.0, count);
        const auto wanted = columnsOf(expected, repaired.samples(), 0.0, 200'000.0, count);
        EXPECT_TRUE(std::equal(columns.begin(), columns.end(), wanted.begin(), areEqual)) << count;
    }
}

TEST(PeakPyramid, ASongOfDamageAloneIsSilence)
{
    MadeSong song(100'000);
    std::fill(song.left.begin(), song.left.end(), NAN);
    std::fill(song.right.begin(), song.right.end(), INFINITY);
    EXPECT_TRUE(areEqual(wholeSong(song.samples()), {.isKnown = true, .hasBands = true}));
}

TEST(PeakPyramid, LoudSamplesBeyondFullScaleKeepTheirExtremes)
{
    MadeSong song(100'000);
    song.left[50'000] = 900'000.0F;
    song.right[50'001] = -3.0F;
    const PeakColumn column = wholeSong(song.samples());
    EXPECT_EQ(column.maximum, 900'000.0F);
    EXPECT_EQ(column.minimum, -3.0F);
}

TEST(PeakPyramid, TheSurroundingsOfTheGivenFrameComeFirst)
{
    MadeSong song(20 * PeakSegment::frames);
    song.addNoise(0.1);
    PeakPyramid pyramid(song.left.size());
    std::stop_source stop;
    int grown = 0;
    const bool isComplete =
        pyramid.build(song.samples(), 7 * PeakSegment::frames + 5, stop.get_token(), [&] {
            if (++grown == 5)
                stop.request_stop();
        });
    EXPECT_FALSE(isComplete);
    EXPECT_FALSE(pyramid.isComplete());
    const auto columns = segmentColumns(pyramid, song.samples(), 20);
    for (std::size_t i = 0; i < columns.size(); ++i)
        EXPECT_EQ(columns[i].isKnown, i >= 5 && i <= 9) << i;
}

TEST(PeakPyramid, AStopIsSeenBeforeTheNextSegmentAndAnotherBuildContinues)
{
    MadeSong song(10 * PeakSegment::frames - 100);
    song.addNoise(0.1);
    PeakPyramid pyramid(song.left.size());
    std::stop_source stopped;
    stopped.request_stop();
    int grown = 0;
    EXPECT_FALSE(pyramid.build(song.samples(), 0, stopped.get_token(), [&] { ++grown; }));
    EXPECT_EQ(grown, 0);
    std::stop_source stop;
    EXPECT_FALSE(pyramid.build(song.samples(), 0, stop.get_token(), [&] {
        ++grown;
        stop.request_stop();
    }));
    EXPECT_EQ(grown, 1);
    EXPECT_TRUE(pyramid.build(song.samples(), 500'000, {}, [&] { ++grown; }));
    EXPECT_EQ(grown, 10);
    EXPECT_TRUE(pyramid.isComplete());
}

TEST(PeakPyramid, TheResultDoesNotDependOnTheOrderOfTheWork)
{
    MadeSong song(10 * PeakSegment::frames - 12'345);
    song.addNoise(0.1);
    song.addTone(0, 50.0, 0.4);
    PeakPyramid forwards(song.left.size());
    PeakPyramid fromTheMiddle(song.left.size());
    forwards.build(song.samples(), 0, {});
    std::stop_source stop;
    int grown = 0;
    fromTheMiddle.build(song.samples(), 300'000, stop.get_token(), [&] {
        if (++grown == 4)
            stop.request_stop();
    });
    fromTheMiddle.build(song.samples(), 600'000, {});
    const auto length = static_cast<double>(song.left.size());
    const auto columns = columnsOf(forwards, song.samples(), 0.0, length, 2000);
    const auto others = columnsOf(fromTheMiddle, song.samples(), 0.0, length, 2000);
    EXPECT_TRUE(std::equal(columns.begin(), columns.end(), others.begin(), areEqual));
    EXPECT_EQ(forwards.loudRms(), fromTheMiddle.loudRms());
}

TEST(PeakPyramid, TheBordersOfSegmentsLeaveNoTraceInTheBands)
{
    MadeSong song(3 * PeakSegment::frames);
    song.addTone(0, songRate * 8.0 / 2048.0, 0.5); // 172 Hz, whole periods in every column
    PeakPyramid pyramid(song.left.size());
    pyramid.build(song.samples(), 0, {});
    const auto columns = columnsOf(pyramid, song.samples(), 65536.0 - 8192.0, 65536.0 + 8192.0, 8);
    for (const PeakColumn &column : columns)
        EXPECT_NEAR(column.low, columns.front().low, 0.01 * columns.front().low);
}

TEST(PeakPyramid, OneThreadDrawsWhileAnotherBuilds)
{
    MadeSong song(20 * PeakSegment::frames);
    song.addNoise(0.1);
    PeakPyramid expected(song.left.size());
    expected.build(song.samples(), 0, {});
    const auto wanted = segmentColumns(expected, song.samples(), 20);
    PeakPyramid pyramid(song.left.size());
    std::thread builder([&] { pyramid.build(song.samples(), 600'000, {}); });
    bool areRight = true;
    while (!pyramid.isComplete()) {
        const auto columns = segmentColumns(pyramid, song.samples(), 20);
        for (std::size_t i = 0; i < columns.size(); ++i)
            areRight = areRight && (!columns[i].isKnown || areEqual(columns[i], wanted[i]));
    }
    builder.join();
    EXPECT_TRUE(areRight);
    const auto columns = segmentColumns(pyramid, song.samples(), 20);
    EXPECT_TRUE(std::equal(columns.begin(), columns.end(), wanted.begin(), areEqual));
}

TEST(PeakPyramid, LoudRmsIsTheLevelThat995In1000BlocksDoNotExceed)
{
    MadeSong song(1000 * 256);
    for (std::size_t block = 0; block < 1000; ++block) {
        const float level = block % 250 == 7 ? 0.9F : block % 2 == 0 ? 0.5F : 0.25F; // 4 loud ones
        std::fill_n(song.left.begin() + static_cast<std::ptrdiff_t>(256 * block), 256, level);
        std::fill_n(song.right.begin() + static_cast<std::ptrdiff_t>(256 * block), 256, -level);
    }
    PeakPyramid pyramid(song.left.size());
    pyramid.build(song.samples(), 0, {});
    EXPECT_EQ(pyramid.loudRms(), 0.5F);
    for (std::size_t i = 0; i < 2 * 256; ++i) // two more loud blocks: six
        song.left[i] = song.right[i] = 0.9F;
    PeakPyramid louder(song.left.size());
    louder.build(song.samples(), 0, {});
    EXPECT_NEAR(louder.loudRms(), 0.9F, 0.004 * 0.9);
}
