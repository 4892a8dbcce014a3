// Analyses a song of four minutes in memory. The argument says how: "peaks" builds the pyramid that
// a wave is drawn from, "columns" draws 2,000 columns of 255 frames from the samples, "attacks"
// finds all attacks, and "nearest" finds the one nearest to a place.

#include "Work.h"

#include "platform/analysis/Attacks.h"
#include "platform/analysis/PeakPyramid.h"

#include <cmath>
#include <ctime>
#include <functional>
#include <optional>
#include <random>
#include <vector>

using namespace lyrabox;

namespace {

constexpr std::size_t frames = 240 * 44100;

/// Noise in both channels that fades after each of two beats a second.
struct Song {
    Song()
    {
        std::mt19937 random(1);
        std::uniform_real_distribution<float> values(-0.5F, 0.5F);
        for (std::size_t i = 0; i < frames; ++i) {
            const float level = std::exp(static_cast<float>(i % 22050) * -2.0e-4F);
            left[i] = level * values(random);
            right[i] = level * values(random);
        }
    }

    SongSamples samples() const { return {left, right, 44100.0}; }

    std::vector<float> left = std::vector<float>(frames);
    std::vector<float> right = std::vector<float>(frames);
};

/// Measures work of one thread: the time of the processor, without that of other programs.
work::Cost measureThread(const std::function<void()> &analysis)
{
    const std::clock_t begin = std::clock();
    work::Cost cost = work::measure(analysis);
    cost.seconds = static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC;
    return cost;
}

void measurePeaks(const Song &song)
{
    std::size_t bytes = 0;
    const work::Cost cost = measureThread([&] {
        PeakPyramid pyramid(frames);
        pyramid.build(song.samples(), frames / 3, {});
        bytes = pyramid.bytes();
    });
    work::report(cost, static_cast<double>(bytes));
}

void measureColumns(const Song &song)
{
    PeakPyramid pyramid(frames);
    pyramid.build(song.samples(), 0, {});
    std::vector<PeakColumn> columns(2000);
    const work::Cost cost = work::measureRepeated(
        [] {}, [&] { pyramid.fillColumns(song.samples(), 1'000'000.0, 1'510'000.0, columns); });
    work::report(cost, columns.back().isKnown ? 1.0 : 0.0);
}

void measureAttacks(const Song &song)
{
    std::size_t count = 0;
    const work::Cost cost =
        measureThread([&] { count = findAttacks(song.samples(), 0, frames).size(); });
    work::report(cost, static_cast<double>(count));
}

void measureNearest(const Song &song)
{
    constexpr std::uint64_t beat = 200 * 22050;
    std::optional<Attack> attack;
    const work::Cost cost = work::measureRepeated(
        [] {}, [&] { attack = nearestAttack(song.samples(), beat + 5000, 11'025, 2205); });
    work::report(cost, attack ? static_cast<double>(attack->frame) : 0.0);
}

} // namespace

int main(int argc, char **argv)
{
    const work::Arguments arguments = work::arguments(argc, argv);
    const Song song;
    if (arguments.argument == "peaks")
        measurePeaks(song);
    else if (arguments.argument == "columns")
        measureColumns(song);
    else if (arguments.argument == "attacks")
        measureAttacks(song);
    else if (arguments.argument == "nearest")
        measureNearest(song);
    else
        work::fail("the argument is peaks, columns, attacks or nearest");
    return EXIT_SUCCESS;
}
