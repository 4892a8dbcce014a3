#include "platform/analysis/BeatFollower.h"
#include "practice/BeatGrid.h"

#include "platform/decoding/DecodingTools.h"
#include "support/pieces/BeatScore.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace lyrabox;
using namespace Qt::Literals::StringLiterals;

namespace {

constexpr double rate = 44'100.0;

/// A demo song has 48 beats of one tempo, the first of them at its start.
test::BeatPiece demoSong(const QString &name, double tempo)
{
    const test::Decoded song =
        test::readWholeFile(QLatin1StringView(LYRABOX_SOURCE_DIR) + u"/resources/demo/"_s + name);
    EXPECT_EQ(song.status, status::noError);
    test::BeatPiece piece;
    piece.left = song.left;
    piece.right = song.right;
    for (int beat = 0; beat < 48; ++beat)
        piece.beats.push_back(beat * 60.0 / tempo * rate);
    piece.isBeforeGap.assign(48, false);
    return piece;
}

/// Expects that nearly all beats are found without taps, and that their grid is one line.
void expectBeatsFound(const QString &name, double tempo)
{
    const test::BeatPiece piece = demoSong(name, tempo);
    const SongSamples song{piece.left, piece.right, rate};
    const FollowedBeats beats = suggestBeats(song, songOnsets(song), std::nullopt);
    std::vector<std::uint64_t> frames;
    for (const FollowedBeat &beat : beats.beats)
        frames.push_back(beat.frame);
    const test::BeatScore score = scoreOf(piece, frames, 0);
    EXPECT_GE(score.fMeasure, 0.97);
    EXPECT_LE(score.error(0.95), 8.0);
    const BeatGrid grid = fittedGrid(frames, 0, 4);
    EXPECT_LE(grid.anchors().size(), 3U);
    EXPECT_NEAR(grid.tempoAt(500'000.0), tempo, 0.001 * tempo);
}

} // namespace

TEST(SongBeats, AShuffleHasItsBeatsOnTheLongNotes)
{
    expectBeatsFound(u"01 Corner Shop Blues.mp3"_s, 126.0);
}

TEST(SongBeats, AWaltzHasItsBeats)
{
    expectBeatsFound(u"02 Waltz in Three.ogg"_s, 138.0);
}

TEST(SongBeats, AFunkIsNeitherTwiceNorHalfAsFast)
{
    expectBeatsFound(u"03 Half Step Down.m4a"_s, 98.0);
}
