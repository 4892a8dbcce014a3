// Finds songs again by their anchors. The argument says how: "make" makes those of five minutes of
// music, "find" looks for them, "cancel" measures how long it takes to stop, "copies" encodes made
// pieces and looks for each in its copies, "others" looks for the anchors of a hundred pieces in a
// hundred others, and "takes" in other recordings of the same piece.

#include "Cancelling.h"
#include "WaveFile.h"
#include "Work.h"

#include "platform/analysis/SongAnchors.h"
#include "platform/decoding/DecodingTools.h"
#include "support/pieces/BeatPieces.h"
#include "support/pieces/TonalPieces.h"

#include <QProcess>
#include <QTemporaryDir>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <ctime>
#include <iostream>

using namespace lyrabox;
using namespace Qt::Literals::StringLiterals;

namespace {

constexpr double rate = 44100.0;
constexpr unsigned pieces = 45; // of each kind

struct Piece {
    std::string name;
    std::vector<float> left;
    std::vector<float> right;

    SongSamples samples() const { return {left, right, rate}; }
};

Piece tonalPiece(unsigned number)
{
    test::TonalRecipe recipe = test::tonalRecipes(pieces, 1)[number];
    recipe.seconds = 60.0;
    test::TonalPiece piece = test::makeTonalPiece(recipe, 5000 + number);
    return {"tonal " + recipe.name, std::move(piece.left), std::move(piece.right)};
}

test::PieceRecipe recipeOfBand(unsigned number)
{
    std::vector<test::PieceRecipe> recipes = test::thirtyRecipes(7 + number / 30);
    test::PieceRecipe recipe = recipes[number % 30];
    recipe.seconds = std::min(recipe.seconds, 80.0);
    return recipe;
}

Piece bandPiece(unsigned number, test::PieceRecipe recipe)
{
    test::BeatPiece piece = test::makePiece(recipe, 9000 + number);
    return {recipe.name, std::move(piece.left), std::move(piece.right)};
}

/// Calls `use` with the number and the piece, one after the other.
template <typename Use>
void forAllPieces(Use use)
{
    for (unsigned number = 0; number < pieces; ++number) {
        use(2 * number, tonalPiece(number));
        use(2 * number + 1, bandPiece(number, recipeOfBand(number)));
    }
}

Piece fiveMinutes()
{
    test::PieceRecipe recipe{.name = "cost", .tempo = 116, .slots = 4, .seconds = 300.0};
    return bandPiece(0, recipe);
}

/// Reports processor time, because programs on other cores disturb the wall time.
template <typename Run>
void reportCost(Run run)
{
    double amount = 0.0;
    const std::clock_t begin = std::clock();
    work::Cost cost = work::measure([&] { amount = run(); });
    cost.seconds = static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC;
    work::report(cost, amount);
}

void measureMaking()
{
    const Piece piece = fiveMinutes();
    reportCost([&] { return static_cast<double>(songAnchors(SongPrint(piece.samples())).size()); });
}

void measureFinding()
{
    const Piece piece = fiveMinutes();
    AnchorSearch search;
    search.add(songAnchors(SongPrint(piece.samples())));
    reportCost([&] {
        SongPrint print(piece.samples());
        return static_cast<double>(search.find(print).size());
    });
}

void measureCancel()
{
    const Piece piece = fiveMinutes();
    const SongAnchors anchors = songAnchors(SongPrint(piece.samples()));
    AnchorSearch search;
    for (int i = 0; i < 100; ++i)
        search.add(anchors);
    work::reportCancelling([&](const std::stop_token &stop) {
        SongPrint print(piece.samples(), stop);
        const bool isEmpty = songAnchors(print, stop).empty();
        return search.find(print, stop).empty() || isEmpty;
    });
}

struct Copy {
    const char *name;
    const char *extension;
    QStringList options;
    double leadIn = 0.0; ///< seconds
};

std::vector<Copy> copies()
{
    return {
        {"MP3 128", "mp3", {u"-b:a"_s, u"128k"_s}},
        {"MP3 320", "mp3", {u"-b:a"_s, u"320k"_s}},
        {"AAC", "m4a", {u"-c:a"_s, u"aac"_s, u"-b:a"_s, u"128k"_s}},
        {"Opus", "opus", {u"-b:a"_s, u"96k"_s}},
        {"48 kHz", "flac", {u"-ar"_s, u"48000"_s}},
        {"louder", "flac", {u"-af"_s, u"volume=3dB"_s}},
        {"lead-in", "mp3", {u"-af"_s, u"adelay=500:all=1"_s, u"-b:a"_s, u"192k"_s}, 0.5},
    };
}

test::Decoded encoded(const QString &wave, const Copy &copy, const QTemporaryDir &folder)
{
    const QString path = folder.filePath(u"copy."_s + QLatin1StringView(copy.extension));
    const QStringList arguments =
        QStringList{u"-v"_s, u"error"_s, u"-nostdin"_s, u"-y"_s, u"-i"_s, wave} + copy.options +
        QStringList{path};
    if (QProcess::execute(u"ffmpeg"_s, arguments) != 0)
        work::fail("ffmpeg cannot encode a piece");
    return test::readWholeFile(path);
}

void measureCopies()
{
    const QTemporaryDir folder;
    const QString wave = folder.filePath(u"piece.wav"_s);
    int tried = 0;
    int found = 0;
    int without = 0;
    double worst = 0.0;
    double farthest = 0.0;
    forAllPieces([&](unsigned, const Piece &piece) {
        const SongAnchors anchors = songAnchors(SongPrint(piece.samples()));
        without += anchors.empty() ? 1 : 0;
        AnchorSearch search;
        search.add(anchors);
        work::writeWave(wave, piece.left, piece.right);
        for (const Copy &copy : copies()) {
            const test::Decoded song = encoded(wave, copy, folder);
            SongPrint print({song.left, song.right, rate});
            const auto hits = search.find(print);
            ++tried;
            if (hits.empty()) {
                std::cerr << piece.name << ", " << copy.name << ": not found\n";
                continue;
            }
            ++found;
            const double offset = static_cast<double>(hits[0].offset) / rate;
            worst = std::max(worst, std::abs(offset - copy.leadIn));
            farthest = std::max(farthest, hits[0].distance);
            std::cerr << piece.name << ", " << copy.name << ": " << (offset - copy.leadIn) * 1e3
                      << " ms, " << hits[0].distance << '\n';
        }
    });
    std::cout << "{\"tried\": " << tried << ", \"found\": " << found << ", \"without\": " << without
              << ", \"worst\": " << worst << ", \"distance\": " << farthest << '}' << std::endl;
}

void measureOthers()
{
    AnchorSearch search;
    std::vector<SongPrint> prints;
    forAllPieces([&](unsigned, const Piece &piece) {
        prints.emplace_back(piece.samples());
        search.add(songAnchors(prints.back()));
    });
    // Second pieces of the same recipes: the same tempo and sounds, other notes.
    for (unsigned number = 0; number < 2 * pieces; ++number) {
        test::PieceRecipe recipe = recipeOfBand(number);
        prints.emplace_back(bandPiece(number + 500, recipe).samples());
    }
    int pairs = 0;
    int found = 0;
    int wrong = 0;
    for (std::size_t i = 0; i < prints.size(); ++i) {
        for (const AnchorSearch::Found &hit : search.find(prints[i])) {
            if (hit.set == i)
                ++found;
            else
                ++wrong;
        }
        pairs += 2 * static_cast<int>(pieces) - (i < 2 * pieces ? 1 : 0);
    }
    std::cout << "{\"pairs\": " << pairs << ", \"own\": " << found << ", \"wrong\": " << wrong
              << '}' << std::endl;
}

void measureTakes()
{
    int tried = 0;
    int taken = 0;
    for (unsigned number = 0; number < 20; ++number) {
        test::PieceRecipe recipe = recipeOfBand(number);
        AnchorSearch search;
        search.add(songAnchors(SongPrint(bandPiece(number, recipe).samples())));
        test::PieceRecipe slightlyFaster = recipe;
        slightlyFaster.tempo *= 1.003;
        test::PieceRecipe faster = recipe;
        faster.tempo *= 1.01;
        test::PieceRecipe wandering = recipe;
        wandering.drift += 0.02;
        for (const auto &[name, take] : {std::pair{"slightly faster", slightlyFaster},
                                         {"faster", faster},
                                         {"wandering", wandering}}) {
            SongPrint print(bandPiece(number, take).samples());
            const auto hits = search.find(print);
            ++tried;
            if (!hits.empty()) {
                ++taken;
                std::cerr << recipe.name << ' ' << name << ": taken for the same, "
                          << hits[0].distance << '\n';
            }
        }
    }
    std::cout << "{\"tried\": " << tried << ", \"taken\": " << taken << '}' << std::endl;
}

} // namespace

int main(int argc, char **argv)
{
    const work::Arguments arguments = work::arguments(argc, argv);
    if (arguments.argument == "make")
        measureMaking();
    else if (arguments.argument == "find")
        measureFinding();
    else if (arguments.argument == "cancel")
        measureCancel();
    else if (arguments.argument == "copies")
        measureCopies();
    else if (arguments.argument == "others")
        measureOthers();
    else if (arguments.argument == "takes")
        measureTakes();
    else
        work::fail("make, find, cancel, copies, others or takes");
    return EXIT_SUCCESS;
}
