#include "platform/analysis/SongAnchors.h"

#include "MadeSong.h"
#include "support/pieces/BeatPieces.h"
#include "support/pieces/TonalPieces.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <optional>
#include <random>

namespace lyrabox::test {
namespace {

constexpr std::int64_t limit = 529; // 12 ms

MadeSong madeOf(const std::vector<float> &left, const std::vector<float> &right)
{
    MadeSong song(0);
    song.left = left;
    song.right = right;
    return song;
}

MadeSong band(unsigned seed, double tempo = 112.0)
{
    const BeatPiece piece =
        makePiece({.name = "band", .tempo = tempo, .slots = 4, .seconds = 30.0}, seed);
    return madeOf(piece.left, piece.right);
}

SongAnchors anchorsIn(const MadeSong &song)
{
    return songAnchors(SongPrint(song.samples()));
}

std::optional<std::int64_t> offsetIn(const MadeSong &copy, const SongAnchors &anchors)
{
    AnchorSearch search;
    search.add(anchors);
    SongPrint print(copy.samples());
    const auto found = search.find(print);
    return found.empty() ? std::nullopt : std::optional(found.front().offset);
}

/// The song behind so many frames of silence; from a later place if they are negative.
MadeSong moved(const MadeSong &song, std::int64_t frames)
{
    MadeSong result = song;
    for (auto *channel : {&result.left, &result.right}) {
        if (frames >= 0)
            channel->insert(channel->begin(), static_cast<std::size_t>(frames), 0.0F);
        else
            channel->erase(channel->begin(), channel->begin() - frames);
    }
    return result;
}

TEST(SongAnchors, AreThreeExcerptsOfThreeSecondsOnTheWholeSong)
{
    const MadeSong song = band(1);
    const SongAnchors anchors = anchorsIn(song);
    ASSERT_EQ(anchors.size(), anchorsOfSong);
    for (const SongAnchor &anchor : anchors)
        EXPECT_EQ(anchor.words.size(), SongAnchor::steps);
    EXPECT_LT(anchors[0].at, song.left.size() / 2);
    EXPECT_GE(anchors[1].at, anchors[0].at + 3 * 44100 - 512);
    EXPECT_GE(anchors[2].at, anchors[1].at + 3 * 44100 - 512);
    EXPECT_LE(std::abs(offsetIn(song, anchors).value_or(limit)), 44) << "a millisecond";
}

TEST(SongAnchors, AreFoundInACopyWithALeadInAndTellItsLength)
{
    const MadeSong song = band(2);
    const SongAnchors anchors = anchorsIn(song);
    for (const std::int64_t frames : {22050, 26 * 44 + 3, 1, -44100, -12345}) {
        const auto offset = offsetIn(moved(song, frames), anchors);
        ASSERT_TRUE(offset) << frames;
        EXPECT_LE(std::abs(*offset - frames), limit) << frames << ' ' << *offset;
    }
}

TEST(SongAnchors, AreFoundInANoisyAndLouderCopy)
{
    for (const unsigned seed : {3U, 4U, 5U}) {
        MadeSong song = band(seed);
        const SongAnchors anchors = anchorsIn(song);
        song = moved(song, 4001);
        for (auto *channel : {&song.left, &song.right}) {
            for (float &sample : *channel)
                sample *= 1.41F;
        }
        song.addNoise(0.01);
        const auto offset = offsetIn(song, anchors);
        ASSERT_TRUE(offset) << seed;
        EXPECT_LE(std::abs(*offset - 4001), limit) << seed;
    }
}

TEST(SongAnchors, AreNotFoundInOtherSongs)
{
    AnchorSearch search;
    for (unsigned seed = 10; seed < 15; ++seed)
        search.add(anchorsIn(band(seed)));
    for (unsigned seed = 20; seed < 25; ++seed) {
        SongPrint print(band(seed).samples());
        EXPECT_TRUE(search.find(print).empty()) << seed;
        const TonalPiece piece = makeTonalPiece({.seconds = 30.0}, seed);
        SongPrint tonal(SongSamples{piece.left, piece.right, songRate});
        EXPECT_TRUE(search.find(tonal).empty()) << seed;
    }
}

TEST(SongAnchors, OfOneTakeAreNotFoundInAnother)
{
    const SongAnchors anchors = anchorsIn(band(6, 112.0));
    ASSERT_EQ(anchors.size(), anchorsOfSong);
    EXPECT_TRUE(offsetIn(band(6, 112.0), anchors));
    EXPECT_FALSE(offsetIn(band(6, 112.3), anchors)) << "the same notes, a little faster";
}

TEST(SongAnchors, ThatDoNotAgreeAreNotFound)
{
    const MadeSong song = band(7);
    const SongAnchors anchors = anchorsIn(song);
    ASSERT_EQ(anchors.size(), anchorsOfSong);
    // A copy in which something was cut out before the last anchor. As much as 15 ms is what other
    // takes of a piece may come to by chance.
    const auto at = static_cast<std::ptrdiff_t>(anchors[2].at) - 10'000;
    for (const int milliseconds : {60, 15}) {
        MadeSong cut = song;
        for (auto *channel : {&cut.left, &cut.right})
            channel->erase(channel->begin() + at, channel->begin() + at + 44 * milliseconds);
        EXPECT_FALSE(offsetIn(cut, anchors)) << milliseconds;
    }
    SongAnchors twoOfThree = anchors;
    twoOfThree.pop_back();
    EXPECT_FALSE(offsetIn(song, twoOfThree));
}

TEST(SongAnchors, AreNotMadeWhereThereIsNothingToKnowASongBy)
{
    EXPECT_TRUE(anchorsIn(MadeSong(0)).empty());
    EXPECT_TRUE(anchorsIn(MadeSong(30 * 44100)).empty()) << "silence";
    EXPECT_TRUE(anchorsIn(moved(band(8), -26 * 44100)).empty()) << "a few seconds";
    MadeSong steady(30 * 44100);
    steady.addTone(0, 440.0, 0.5);
    steady.addTone(0, 660.0, 0.3);
    EXPECT_TRUE(anchorsIn(steady).empty()) << "a steady sound";
}

TEST(SongAnchors, OfASongThatRepeatsItselfAreFoundAtOnePlaceOnly)
{
    // One pattern of two seconds, over and over.
    const MadeSong pattern = moved(band(9), -10 * 44100);
    constexpr std::size_t period = 2 * 44100;
    MadeSong song(20 * period);
    for (std::size_t i = 0; i < song.left.size(); ++i) {
        song.left[i] = pattern.left[i % period];
        song.right[i] = pattern.right[i % period];
    }
    const SongAnchors anchors = anchorsIn(song);
    if (anchors.empty())
        return; // not known by its sound, rather than at the wrong place
    const auto offset = offsetIn(moved(song, 1000), anchors);
    EXPECT_TRUE(!offset || std::abs(*offset - 1000) <= limit) << *offset;
}

TEST(SongAnchors, EndWithNothingWhenStopped)
{
    const MadeSong song = band(10);
    const SongAnchors anchors = anchorsIn(song);
    std::stop_source source;
    source.request_stop();
    SongPrint print(song.samples());
    EXPECT_TRUE(songAnchors(print, source.get_token()).empty());
    AnchorSearch search;
    search.add(anchors);
    EXPECT_TRUE(search.find(print, source.get_token()).empty());
    EXPECT_TRUE(SongPrint(song.samples(), source.get_token()).words().empty());
}

TEST(SongPrint, SurvivesDamagedSamples)
{
    MadeSong song = band(11);
    const SongAnchors anchors = anchorsIn(song);
    song.left[400'000] = NAN;
    song.right[500'000] = INFINITY;
    song.left[600'000] = 3.0e38F;
    EXPECT_LE(std::abs(offsetIn(song, anchors).value_or(limit)), 44);
}

} // namespace
} // namespace lyrabox::test
