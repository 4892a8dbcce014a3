#include "platform/analysis/BeatFollower.h"

#include "platform/analysis/MadeSong.h"
#include "support/pieces/BeatScore.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

using namespace lyrabox;
using test::BeatPiece;
using test::BeatScore;
using test::MadeSong;
using test::PieceRecipe;
using test::songRate;

namespace {

SongSamples samplesOf(const BeatPiece &piece)
{
    return {piece.left, piece.right, songRate};
}

std::vector<std::uint64_t> framesOf(const FollowedBeats &followed)
{
    std::vector<std::uint64_t> frames;
    for (const FollowedBeat &beat : followed.beats)
        frames.push_back(beat.frame);
    return frames;
}

TappedBeats tapped(const BeatPiece &piece, std::size_t first, unsigned seed)
{
    const auto fit = fitTaps(test::eightTaps(piece, first, seed), songRate);
    EXPECT_TRUE(std::holds_alternative<TappedBeats>(fit));
    return std::get<TappedBeats>(fit);
}

FollowedBeats followed(const SongSamples &song, const TappedBeats &taps)
{
    return followTaps(song, songOnsets(song), taps);
}

TappedBeats tapsAt(double tempo, double first, int after = 7)
{
    return {.first = first, .period = 60.0 / tempo * songRate, .before = 0, .after = after};
}

/// Follows a piece from eight taps, and expects nearly all its beats, on time and in their bars.
void expectFollowed(const PieceRecipe &recipe, unsigned seed, double leastF = 0.95)
{
    SCOPED_TRACE(recipe.name);
    const BeatPiece piece = test::makePiece(recipe, seed);
    const auto first = static_cast<std::size_t>(3 * piece.beatsPerBar);
    const FollowedBeats beats = followed(samplesOf(piece), tapped(piece, first, seed + 1));
    const BeatScore score = scoreOf(piece, framesOf(beats), beats.one);
    EXPECT_GE(score.fMeasure, leastF);
    EXPECT_LE(score.error(0.5), 8.0);
    EXPECT_GE(score.shareWithin(20.0), 0.95);
    EXPECT_LE(score.wrongBars, score.bars / 50);
    EXPECT_NEAR(static_cast<double>(beats.beats.at(beats.one).frame), piece.beats[first],
                0.03 * songRate);
}

constexpr std::size_t tenSeconds = 441'000;

} // namespace

TEST(BeatFollower, FollowsSteadyMusic)
{
    expectFollowed({.name = "94", .tempo = 94.3, .seconds = 25}, 7001);
    expectFollowed({.name = "61", .tempo = 61.7, .slots = 4, .seconds = 35}, 7002);
    expectFollowed({.name = "183", .tempo = 183.1, .seconds = 25}, 7003);
}

TEST(BeatFollower, FollowsSwing)
{
    expectFollowed({.name = "shuffle", .tempo = 113.0, .seconds = 25, .swing = 0.16}, 7004);
    expectFollowed({.name = "swing", .tempo = 164.0, .seconds = 25, .swing = 0.12}, 7005);
}

TEST(BeatFollower, FollowsATempoThatChanges)
{
    expectFollowed(
        {.name = "drift", .tempo = 104.0, .seconds = 40, .drift = 0.03, .looseness = 0.008}, 7006);
    expectFollowed({.name = "faster", .tempo = 86.0, .seconds = 40, .acceleration = 1.4}, 7007);
    expectFollowed({.name = "slower", .tempo = 141.0, .seconds = 40, .acceleration = 0.72}, 7008);
}

TEST(BeatFollower, FollowsOtherMetres)
{
    expectFollowed({.name = "3/4", .tempo = 152.0, .beatsPerBar = 3, .seconds = 25}, 7009);
    expectFollowed(
        {.name = "5/4", .tempo = 133.0, .beatsPerBar = 5, .seconds = 25, .groups = {2, 3}}, 7010);
    expectFollowed({.name = "6/8", .tempo = 66.0, .beatsPerBar = 2, .slots = 3, .seconds = 30},
                   7011);
    expectFollowed({.name = "7/8",
                    .tempo = 178.0,
                    .beatsPerBar = 7,
                    .slots = 1,
                    .seconds = 30,
                    .groups = {3, 2, 2}},
                   7012);
}

TEST(BeatFollower, FollowsMusicWithoutDrums)
{
    expectFollowed({.name = "no drums", .tempo = 99.0, .seconds = 30, .hasDrums = false}, 7013);
    expectFollowed({.name = "no drums, 3/4",
                    .tempo = 117.0,
                    .beatsPerBar = 3,
                    .seconds = 30,
                    .drift = 0.015,
                    .hasDrums = false},
                   7014);
}

TEST(BeatFollower, CountsThroughABreak)
{
    expectFollowed({.name = "break", .tempo = 121.0, .seconds = 40, .breakBars = 3}, 7015);
}

TEST(BeatFollower, EndsWhereTheBeatIsLostAndSaysSo)
{
    const PieceRecipe recipe{.name = "free", .tempo = 117.0, .seconds = 40, .free = 5.3};
    const BeatPiece piece = test::makePiece(recipe, 7016);
    const auto gap = static_cast<std::size_t>(
        std::find(piece.isBeforeGap.begin(), piece.isBeforeGap.end(), true) -
        piece.isBeforeGap.begin());
    ASSERT_LT(gap, piece.beats.size());
    for (const std::size_t first : {std::size_t{8}, gap + 9}) {
        const FollowedBeats beats = followed(samplesOf(piece), tapped(piece, first, 5));
        EXPECT_EQ(beats.isLostAfter, first < gap);
        EXPECT_EQ(beats.isLostBefore, first > gap);
        const BeatScore score = scoreOf(piece, framesOf(beats), beats.one);
        EXPECT_EQ(score.wrongBars, 0);
        EXPECT_GE(score.bars, 6);
    }
}

TEST(BeatFollower, TheTempoAfterSixteenTapsInThirtySecondsIsExact)
{
    const BeatPiece piece = test::makePiece({.name = "tempo", .tempo = 127.3, .seconds = 45}, 7017);
    const FollowedBeats beats = followed(samplesOf(piece), tapped(piece, 16, 3));
    const std::uint64_t begin = beats.beats.at(beats.one).frame;
    const std::uint64_t end = beats.beats.at(beats.one + 60).frame; // 28 s later
    const double tempo = 60.0 * 60.0 * songRate / static_cast<double>(end - begin);
    EXPECT_NEAR(tempo, 127.3, 0.127);
    EXPECT_NEAR(beats.tempo, 127.3, 1.0);
}

TEST(BeatFollower, InSilenceTheBeatsAreThoseTapped)
{
    const MadeSong song(2 * tenSeconds);
    const TappedBeats taps = tapsAt(123.0, 200'000.0);
    const FollowedBeats beats = followed(song.samples(), taps);
    ASSERT_EQ(beats.beats.size(), 8U);
    EXPECT_EQ(beats.one, 0U);
    for (int i = 0; i < 8; ++i) {
        EXPECT_NEAR(static_cast<double>(beats.beats[static_cast<std::size_t>(i)].frame),
                    taps.frame(i), 0.005 * songRate);
        EXPECT_EQ(beats.beats[static_cast<std::size_t>(i)].hold, 0.0F);
    }
    EXPECT_NEAR(beats.tempo, 123.0, 2.0);
}

TEST(BeatFollower, TapsBesideTheSongGiveNothingOrTheBeatsInside)
{
    MadeSong song(tenSeconds);
    for (std::size_t at = 0; at < tenSeconds; at += 22'050)
        song.addClick(at, 0.5F);
    EXPECT_TRUE(followed(song.samples(), tapsAt(120.0, 3.0 * tenSeconds)).beats.empty());
    const FollowedBeats beats = followed(song.samples(), tapsAt(120.0, tenSeconds - 50'000.0));
    ASSERT_FALSE(beats.beats.empty());
    EXPECT_LE(beats.beats.back().frame, std::uint64_t{tenSeconds});
    EXPECT_LT(beats.one, beats.beats.size());
}

TEST(BeatFollower, TheBeatsAreInOrderAndWithinTheSong)
{
    std::mt19937 random(12);
    for (int run = 0; run < 30; ++run) {
        MadeSong song(20'000 + random() % tenSeconds);
        if (run % 3 != 0)
            song.addNoise(0.1, static_cast<unsigned>(run));
        for (int i = 0; i < run % 7 * 10; ++i)
            song.addClick(random() % song.left.size(), 0.6F);
        const double first = static_cast<double>(random() % song.left.size());
        const FollowedBeats beats =
            followed(song.samples(), tapsAt(26.0 + static_cast<double>(random() % 290), first));
        for (std::size_t i = 1; i < beats.beats.size(); ++i)
            EXPECT_LT(beats.beats[i - 1].frame, beats.beats[i].frame);
        if (!beats.beats.empty()) {
            EXPECT_LT(beats.one, beats.beats.size());
            EXPECT_LE(beats.beats.back().frame, song.left.size() + 1000);
        }
    }
}

TEST(BeatFollower, AnEmptySongAndDamagedSamplesDoNoHarm)
{
    const MadeSong empty(0);
    EXPECT_LE(followed(empty.samples(), tapsAt(120.0, 0.0)).beats.size(), 1U);
    EXPECT_TRUE(
        suggestBeats(empty.samples(), songOnsets(empty.samples()), std::nullopt).beats.empty());
    MadeSong song(tenSeconds);
    std::fill(song.left.begin(), song.left.end(), NAN);
    EXPECT_EQ(followed(song.samples(), tapsAt(120.0, 50'000.0)).beats.size(), 8U);
}

TEST(BeatFollower, OtherSampleRatesWork)
{
    MadeSong song(tenSeconds);
    for (std::size_t at = 0; at < tenSeconds; at += 10'000)
        song.addClick(at, 0.5F);
    for (const double rate : {1000.0, 8000.0, 22'050.0, 96'000.0, 192'000.0}) {
        const SongSamples samples{song.left, song.right, rate};
        const double period = rate < 20'000.0 ? 20'000.0 : rate < 90'000.0 ? 10'000.0 : 40'000.0;
        const FollowedBeats beats =
            followTaps(samples, songOnsets(samples),
                       {.first = 50'000.0, .period = period, .before = 0, .after = 7});
        ASSERT_GE(beats.beats.size(), 8U) << rate;
        EXPECT_NEAR(beats.tempo, 60.0 * rate / period, 0.02 * 60.0 * rate / period) << rate;
    }
}

TEST(BeatFollower, WithoutOnsetsThereIsNothing)
{
    const MadeSong song(tenSeconds);
    EXPECT_TRUE(followTaps(song.samples(), {}, tapsAt(120.0, 50'000.0)).beats.empty());
    EXPECT_TRUE(suggestBeats(song.samples(), {}, std::nullopt).beats.empty());
    EXPECT_TRUE(suggestBeats(song.samples(), songOnsets(song.samples()), 120.0).beats.empty());
}

TEST(BeatFollower, IsEmptyWhenItIsToStop)
{
    MadeSong song(tenSeconds);
    for (std::size_t at = 0; at < tenSeconds; at += 22'050)
        song.addClick(at, 0.5F);
    const SongOnsets onsets = songOnsets(song.samples());
    std::stop_source stop;
    stop.request_stop();
    EXPECT_TRUE(songOnsets(song.samples(), stop.get_token()).all.empty());
    EXPECT_TRUE(followTaps(song.samples(), onsets, tapsAt(120.0, 66'150.0), stop.get_token())
                    .beats.empty());
    EXPECT_TRUE(suggestBeats(song.samples(), onsets, std::nullopt, stop.get_token()).beats.empty());
}

TEST(BeatFollower, SuggestsTheBeatsOfPlainMusic)
{
    const BeatPiece piece = test::makePiece({.name = "plain", .tempo = 112.0, .seconds = 25}, 7018);
    const SongSamples song = samplesOf(piece);
    const FollowedBeats beats = suggestBeats(song, songOnsets(song), std::nullopt);
    EXPECT_GE(scoreOf(piece, framesOf(beats), 0).fMeasure, 0.95);
    EXPECT_NEAR(beats.tempo, 112.0, 0.5);
}

TEST(BeatFollower, AHintDecidesTheTempoOfASuggestion)
{
    MadeSong song(2 * tenSeconds);
    for (std::size_t at = 0; at < song.left.size(); at += 17'640)
        song.addClick(at, 0.5F);
    const SongOnsets onsets = songOnsets(song.samples());
    EXPECT_NEAR(suggestBeats(song.samples(), onsets, 147.0).tempo, 150.0, 0.5);
    EXPECT_NEAR(suggestBeats(song.samples(), onsets, 77.0).tempo, 75.0, 0.5);
}
