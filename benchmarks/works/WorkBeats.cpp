// Follows beats. The argument says how: "cost" follows those of four minutes of music, "cancel"
// measures how long that takes to stop, "pieces" compares the beats of thirty made pieces, each
// followed from eight taps, with the true ones, and "demo" those of the demo songs, without taps.
// Any other argument is a folder, into which the thirty pieces are written, with their beats as
// label tracks.

#include "Cancelling.h"
#include "WaveFile.h"
#include "Work.h"

#include "platform/analysis/BeatFollower.h"
#include "platform/decoding/AudioFileReader.h"
#include "support/pieces/BeatScore.h"

#include <QDir>

#include <algorithm>
#include <cmath>
#include <ctime>
#include <fstream>
#include <iostream>

using namespace lyrabox;
using namespace Qt::Literals::StringLiterals;

namespace {

constexpr double rate = 44100.0;
constexpr unsigned seed = 1; // the follower was tuned with pieces of the seeds 100 to 103
constexpr double longPiece = 200.0;

SongSamples samplesOf(const test::BeatPiece &piece)
{
    return {piece.left, piece.right, rate};
}

std::vector<std::uint64_t> framesOf(const FollowedBeats &followed)
{
    std::vector<std::uint64_t> frames;
    for (const FollowedBeat &beat : followed.beats)
        frames.push_back(beat.frame);
    return frames;
}

TappedBeats tapped(const test::BeatPiece &piece, std::size_t bar)
{
    const auto first = bar * static_cast<std::size_t>(piece.beatsPerBar);
    const auto fit = fitTaps(test::eightTaps(piece, first, seed + 1), rate);
    if (!std::holds_alternative<TappedBeats>(fit))
        work::fail("the taps are no beats");
    return std::get<TappedBeats>(fit);
}

std::vector<test::BeatPiece> thirtyPieces()
{
    std::vector<test::BeatPiece> pieces;
    unsigned number = 0;
    for (const test::PieceRecipe &recipe : test::thirtyRecipes(seed))
        pieces.push_back(test::makePiece(recipe, 1000 * seed + ++number));
    return pieces;
}

test::BeatPiece fourMinutes()
{
    return test::makePiece({.name = "cost", .tempo = 128.0, .seconds = 240.0}, seed);
}

void measureCost()
{
    const test::BeatPiece piece = fourMinutes();
    const TappedBeats taps = tapped(piece, 10);
    std::size_t beats = 0;
    const std::clock_t begin = std::clock();
    work::Cost cost = work::measure([&] {
        const SongSamples song = samplesOf(piece);
        beats = followTaps(song, songOnsets(song), taps).beats.size();
    });
    cost.seconds = static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC;
    work::report(cost, static_cast<double>(beats));
}

void measureCancel()
{
    const test::BeatPiece piece = fourMinutes();
    const SongSamples song = samplesOf(piece);
    const TappedBeats taps = tapped(piece, 10);
    work::reportCancelling([&](const std::stop_token &stop) {
        const SongOnsets onsets = songOnsets(song, stop);
        return followTaps(song, onsets, taps, stop).beats.empty();
    });
}

void measurePieces()
{
    double sum = 0.0;
    double leastLong = 1.0;
    test::BeatScore all;
    const std::vector<test::BeatPiece> pieces = thirtyPieces();
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        const test::BeatPiece &piece = pieces[i];
        const SongSamples song = samplesOf(piece);
        const FollowedBeats beats = followTaps(song, songOnsets(song), tapped(piece, 2 + i % 5));
        const test::BeatScore score = scoreOf(piece, framesOf(beats), beats.one);
        std::cerr << piece.name << ": F " << score.fMeasure << ", median " << score.error(0.5)
                  << " ms, 95 % within " << score.error(0.95) << " ms, " << score.wrongBars
                  << " of " << score.bars << " bars wrong"
                  << (beats.isLostBefore || beats.isLostAfter ? ", lost" : "") << '\n';
        sum += score.fMeasure;
        if (static_cast<double>(song.frames()) > longPiece * rate)
            leastLong = std::min(leastLong, score.fMeasure);
        all.errors.insert(all.errors.end(), score.errors.begin(), score.errors.end());
        all.bars += score.bars;
        all.wrongBars += score.wrongBars;
    }
    std::sort(all.errors.begin(), all.errors.end());
    std::cout << "{\"f\": " << sum / static_cast<double>(pieces.size())
              << ", \"leastLong\": " << leastLong << ", \"median\": " << all.error(0.5)
              << ", \"within\": " << all.shareWithin(20.0) << ", \"wrong\": " << all.wrongBars
              << ", \"bars\": " << all.bars << '}' << std::endl;
}

/// Reads a song as a piece whose beats are those of a steady tempo from its start on.
test::BeatPiece demoSong(const QString &name, double tempo)
{
    AudioFileReader reader;
    AudioStreamBasicDescription format = canonicalStreamFormat();
    if (reader.open(QLatin1StringView(LYRABOX_SOURCE_DIR) + u"/resources/demo/"_s + name) !=
            status::noError ||
        reader.setClientDataFormat(format) != status::noError)
        work::fail("cannot read a demo song");
    test::BeatPiece piece;
    std::vector<float> left(8192);
    std::vector<float> right(8192);
    AudioBufferList list;
    list.mNumberBuffers = 2;
    list.mBuffers[0].mData = left.data();
    list.mBuffers[1].mData = right.data();
    for (std::uint32_t frames = 8192; reader.read(frames, list) == status::noError && frames > 0;
         frames = 8192) {
        piece.left.insert(piece.left.end(), left.begin(), left.begin() + frames);
        piece.right.insert(piece.right.end(), right.begin(), right.begin() + frames);
    }
    for (int beat = 0; beat < 48; ++beat)
        piece.beats.push_back(beat * 60.0 / tempo * rate);
    return piece;
}

void measureDemo()
{
    double least = 1.0;
    for (const auto &[name, tempo] : {std::pair{u"01 Corner Shop Blues.mp3"_s, 126.0},
                                      std::pair{u"02 Waltz in Three.ogg"_s, 138.0},
                                      std::pair{u"03 Half Step Down.m4a"_s, 98.0}}) {
        const test::BeatPiece piece = demoSong(name, tempo);
        const SongSamples song = samplesOf(piece);
        const FollowedBeats beats = suggestBeats(song, songOnsets(song), std::nullopt);
        least = std::min(least, scoreOf(piece, framesOf(beats), 0).fMeasure);
    }
    std::cout << "{\"f\": " << least << '}' << std::endl;
}

void writePieces(const QString &folder)
{
    if (!QDir().mkpath(folder))
        work::fail("cannot make the folder");
    for (const test::BeatPiece &piece : thirtyPieces()) {
        QString name = QString::fromStdString(piece.name);
        const QString path = folder + u'/' + name.replace(u'/', u'-');
        work::writeWave(path + u".wav"_s, piece.left, piece.right);
        std::ofstream labels((path + u".txt"_s).toStdString());
        for (std::size_t i = 0; i < piece.beats.size(); ++i)
            labels << piece.beats[i] / rate << '\t' << piece.beats[i] / rate << '\t'
                   << static_cast<int>(i) / piece.beatsPerBar + 1 << '.' << piece.beatInBar(i) + 1
                   << '\n';
    }
}

} // namespace

int main(int argc, char **argv)
{
    const work::Arguments arguments = work::arguments(argc, argv);
    if (arguments.argument == "cost")
        measureCost();
    else if (arguments.argument == "cancel")
        measureCancel();
    else if (arguments.argument == "pieces")
        measurePieces();
    else if (arguments.argument == "demo")
        measureDemo();
    else
        writePieces(QString::fromStdString(arguments.argument));
    return EXIT_SUCCESS;
}
