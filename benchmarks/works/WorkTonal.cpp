// Finds tunings and keys. The argument says how: "cost" those of four minutes of music, "cancel"
// measures how long that takes to stop, "pieces" compares those of sixty made pieces with the true
// ones. Any other argument is a folder, into which the sixty pieces are written.

#include "Cancelling.h"
#include "WaveFile.h"
#include "Work.h"

#include "platform/analysis/SongKey.h"
#include "platform/analysis/SongTuning.h"
#include "support/pieces/TonalPieces.h"

#include <QDir>

#include <algorithm>
#include <cmath>
#include <ctime>
#include <fstream>
#include <iostream>

using namespace lyrabox;
using namespace Qt::Literals::StringLiterals;

namespace {

constexpr unsigned seed = 1; // the key was tuned with pieces of the seeds 101 to 103
constexpr std::size_t count = 60;

SongSamples samplesOf(const test::TonalPiece &piece)
{
    return {piece.left, piece.right, 44100.0};
}

/// Calls `use` with one piece after the other.
template <typename Use>
void forAllPieces(Use use)
{
    unsigned number = 0;
    for (const test::TonalRecipe &recipe : test::tonalRecipes(count, seed))
        use(test::makeTonalPiece(recipe, 1000 * seed + ++number));
}

test::TonalPiece fourMinutes()
{
    return test::makeTonalPiece({.name = "cost", .seconds = 240.0}, seed);
}

void measureCost()
{
    const test::TonalPiece piece = fourMinutes();
    std::size_t found = 0;
    const std::clock_t begin = std::clock();
    work::Cost cost = work::measure([&] {
        const SongPartials partials = songPartials(samplesOf(piece));
        const std::optional<SongTuning> tuning = songTuning(partials);
        found = songKey(partials, tuning ? tuning->cents : 0.0) ? partials.partials.size() : 0;
    });
    cost.seconds = static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC;
    work::report(cost, static_cast<double>(found));
}

void measureCancel()
{
    const test::TonalPiece piece = fourMinutes();
    work::reportCancelling([&piece](const std::stop_token &stop) {
        return songPartials(samplesOf(piece), stop).partials.empty();
    });
}

void measurePieces()
{
    double worst = 0.0;
    int unclear = 0;
    int exact = 0;
    int related = 0;
    forAllPieces([&](const test::TonalPiece &piece) {
        const SongPartials partials = songPartials(samplesOf(piece));
        const std::optional<SongTuning> tuning = songTuning(partials);
        const double cents = tuning ? tuning->cents : 0.0;
        // At 50 cents the piece may as well lie a semitone higher and 50 cents lower.
        const double semitones = std::round((piece.recipe.cents - cents) / 100.0);
        const double error = std::abs(piece.recipe.cents - cents - 100.0 * semitones);
        worst = std::max(worst, error);
        unclear += tuning ? 0 : 1;
        const KeyOfSong key =
            transposed({piece.recipe.tonic, piece.recipe.isMinor}, static_cast<int>(semitones));
        const KeyOfSong relative = transposed({key.tonic, !key.isMinor}, key.isMinor ? 3 : -3);
        const std::optional<KeyGuess> guess = songKey(partials, cents);
        const bool isExact = guess && guess->first == key;
        const bool isRelated = isExact || (guess && guess->first == relative);
        exact += isExact ? 1 : 0;
        related += isRelated ? 1 : 0;
        std::cerr << piece.recipe.name << ": " << error << " cents off"
                  << (isExact     ? ""
                      : isRelated ? ", relative key"
                                  : ", another key")
                  << '\n';
    });
    std::cout << "{\"worst\": " << worst << ", \"unclear\": " << unclear << ", \"exact\": " << exact
              << ", \"related\": " << related << ", \"count\": " << count << '}' << std::endl;
}

void writePieces(const QString &folder)
{
    if (!QDir().mkpath(folder))
        work::fail("cannot make the folder");
    std::ofstream list((folder + u"/pieces.txt"_s).toStdString());
    forAllPieces([&](const test::TonalPiece &piece) {
        const test::TonalRecipe &recipe = piece.recipe;
        work::writeWave(folder + u'/' + QString::fromStdString(recipe.name) + u".wav"_s, piece.left,
                        piece.right);
        list << recipe.name << ": " << recipe.tonic << " semitones above C, "
             << (recipe.isMinor ? "minor" : "major") << ", " << recipe.cents << " cents\n";
    });
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
    else
        writePieces(QString::fromStdString(arguments.argument));
    return EXIT_SUCCESS;
}
