#include "support/pieces/StereoMix.h"

#include "support/pieces/BeatPieceSounds.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <random>
#include <span>

namespace lyrabox::test {

namespace {

constexpr double rate = 44100.0;
constexpr double beatSeconds = 0.5;
constexpr std::array<int, 7> scale{0, 2, 4, 5, 7, 9, 11};

/// A chord's root in the scale, for each bar.
constexpr std::array<std::size_t, 8> chordRoots{0, 4, 5, 3, 0, 5, 3, 4};

int scaleNote(int base, std::size_t step)
{
    return base + 12 * static_cast<int>(step / scale.size()) + scale[step % scale.size()];
}

std::size_t framesOf(double seconds)
{
    return static_cast<std::size_t>(seconds * rate);
}

void addAt(std::vector<float> &sum, std::size_t begin, std::span<const float> sound, double gain,
           std::size_t most)
{
    for (std::size_t i = 0; i < std::min(sound.size(), most) && begin + i < sum.size(); ++i) {
        const double left = static_cast<double>(std::min(sound.size(), most) - i) / 441.0;
        sum[begin + i] += static_cast<float>(gain * std::min(1.0, left) * sound[i]);
    }
}

StereoPart panned(const std::vector<float> &sound, double left, double right)
{
    StereoPart part{sound, sound};
    for (float &sample : part.left)
        sample *= static_cast<float>(left);
    for (float &sample : part.right)
        sample *= static_cast<float>(right);
    return part;
}

/// Partials under three formants, with vibrato; a note of 0.4 to 1.6 s, then a breath.
std::vector<float> sungMelody(std::mt19937 &random, std::size_t frames)
{
    std::vector<float> sound(frames);
    std::uniform_int_distribution<std::size_t> steps(0, 9);
    std::uniform_real_distribution<double> lengths(0.4, 1.6);
    std::uniform_real_distribution<double> formants(0.85, 1.15);
    for (std::size_t begin = framesOf(0.1); begin + framesOf(0.5) < frames;) {
        const std::size_t length = std::min(framesOf(lengths(random)), frames - begin);
        const double base = 440.0 * std::exp2((scaleNote(57, steps(random)) - 69) / 12.0);
        const std::array<double, 3> peaks{700.0 * formants(random), 1300.0 * formants(random),
                                          2900.0 * formants(random)};
        const auto partials = static_cast<std::size_t>(8000.0 / base);
        std::vector<double> levels;
        for (std::size_t n = 1; n <= partials; ++n) {
            const double hertz = base * static_cast<double>(n);
            double level = 0.02;
            for (const double peak : peaks)
                level += std::exp(-std::pow((hertz - peak) / (0.12 * peak + 60.0), 2.0));
            levels.push_back(0.35 * level / std::pow(static_cast<double>(n), 0.6));
        }
        double turns = 0.0;
        for (std::size_t i = 0; i < length; ++i) {
            const double time = static_cast<double>(i) / rate;
            const double vibrato =
                0.008 * std::min(1.0, 3.0 * time) * std::sin(2.0 * std::numbers::pi * 5.5 * time);
            turns += base * (1.0 + vibrato) / rate;
            const double end = static_cast<double>(length - i) / rate;
            const double gain = std::min({1.0, time / 0.04, end / 0.06});
            double sum = 0.0;
            for (std::size_t n = 1; n <= partials; ++n)
                sum += levels[n - 1] * std::sin(2.0 * std::numbers::pi *
                                                std::fmod(turns * static_cast<double>(n), 1.0));
            sound[begin + i] = static_cast<float>(gain * sum);
        }
        begin += length + framesOf(0.12);
    }
    return sound;
}

/// Four combs and two all-passes, as in the first artificial rooms.
std::vector<float> reverberated(const std::vector<float> &dry, std::span<const std::size_t> delays)
{
    std::vector<float> sum(dry.size());
    for (const std::size_t delay : delays.first(4)) {
        const auto feedback =
            static_cast<float>(std::pow(10.0, -3.0 * static_cast<double>(delay) / rate / 1.4));
        std::vector<float> line(dry.size());
        for (std::size_t i = 0; i < dry.size(); ++i) {
            line[i] = dry[i] + (i >= delay ? feedback * line[i - delay] : 0.0F);
            sum[i] += i >= delay ? line[i - delay] : 0.0F;
        }
    }
    for (const std::size_t delay : delays.subspan(4)) {
        std::vector<float> line(dry.size());
        for (std::size_t i = 0; i < dry.size(); ++i) {
            const float before = i >= delay ? line[i - delay] : 0.0F;
            line[i] = sum[i] + 0.7F * before;
            sum[i] = before - 0.7F * line[i];
        }
    }
    return sum;
}

std::vector<float> chords(std::size_t frames, PieceNotes &notes, int base, double everyBeats,
                          double offset)
{
    std::vector<float> sound(frames);
    const std::size_t step = framesOf(everyBeats * beatSeconds);
    for (std::size_t begin = framesOf(offset); begin < frames; begin += step) {
        const std::size_t root =
            chordRoots[begin / framesOf(4.0 * beatSeconds) % chordRoots.size()];
        for (const std::size_t third : {0U, 2U, 4U})
            addAt(sound, begin, notes.note(scaleNote(base, root + third)), 0.11, step);
    }
    return sound;
}

std::vector<float> secondVoice(std::mt19937 &random, std::size_t frames)
{
    PieceNotes notes({.partials = {1.0F, 0.6F, 0.1F, 0.35F, 0.0F, 0.2F, 0.0F, 0.1F},
                      .attack = 0.02,
                      .decay = 30.0});
    std::uniform_int_distribution<std::size_t> steps(0, 6);
    std::vector<float> sound(frames);
    const std::size_t length = framesOf(2.0 * beatSeconds);
    for (std::size_t begin = 0; begin < frames; begin += length)
        addAt(sound, begin, notes.note(scaleNote(64, steps(random))), 0.15, length);
    return sound;
}

/// Saw-like tones with a phase of their own for each partial and channel.
StereoPart widePad(std::mt19937 &random, std::size_t frames)
{
    StereoPart part{std::vector<float>(frames), std::vector<float>(frames)};
    std::uniform_real_distribution<double> turns(0.0, 1.0);
    const std::size_t bar = framesOf(4.0 * beatSeconds);
    for (std::size_t begin = 0; begin < frames; begin += bar) {
        const std::size_t root = chordRoots[begin / bar % chordRoots.size()];
        const std::size_t length = std::min(bar, frames - begin);
        for (const std::size_t third : {0U, 2U, 4U}) {
            const double base = 440.0 * std::exp2((scaleNote(48, root + third) - 69) / 12.0);
            for (int n = 1; n <= 12; ++n) {
                for (std::vector<float> *channel : {&part.left, &part.right}) {
                    double at = turns(random);
                    const double spread = 1.0 + 0.002 * (turns(random) - 0.5);
                    for (std::size_t i = 0; i < length; ++i) {
                        const double edge = static_cast<double>(std::min(i, length - i)) / 4410.0;
                        (*channel)[begin + i] += static_cast<float>(
                            0.04 / n * std::min(1.0, edge) * std::sin(2.0 * std::numbers::pi * at));
                        at = std::fmod(at + base * n * spread / rate, 1.0);
                    }
                }
            }
        }
    }
    return part;
}

double powerOf(const StereoPart &part)
{
    const std::size_t edge = framesOf(0.05);
    double sum = 0.0;
    for (std::size_t i = edge; i + edge < part.frames(); ++i)
        sum += static_cast<double>(part.left[i]) * part.left[i] +
               static_cast<double>(part.right[i]) * part.right[i];
    return sum / 2.0 / static_cast<double>(part.frames() - 2 * edge);
}

void addDrums(StereoMix &mix, std::mt19937 &random, std::size_t frames)
{
    std::vector<float> kicks(frames);
    std::vector<float> shakes(frames);
    const std::vector<float> kick = kickSound();
    const std::vector<float> shake = hatSound(random, 0.05);
    for (std::size_t eighth = 0; framesOf(0.5 * beatSeconds * static_cast<double>(eighth)) < frames;
         ++eighth) {
        const std::size_t begin = framesOf(0.5 * beatSeconds * static_cast<double>(eighth));
        addAt(shakes, begin, shake, eighth % 2 == 0 ? 1.6 : 1.0, shake.size());
        if (eighth % 4 == 0)
            addAt(kicks, begin, kick, 0.8, kick.size());
    }
    mix.kick = panned(kicks, 1.0, 1.0);
    mix.shaker = panned(shakes, 0.0, 1.0);
}

} // namespace

StereoPart &StereoPart::operator+=(const StereoPart &other)
{
    for (std::size_t i = 0; i < frames(); ++i) {
        left[i] += other.left[i];
        right[i] += other.right[i];
    }
    return *this;
}

StereoPart StereoMix::rest() const
{
    StereoPart sum = bass;
    for (const StereoPart *part : {&kick, &guitar, &shaker, &keys, &organ, &pad})
        sum += *part;
    return sum;
}

StereoPart StereoMix::whole() const
{
    StereoPart sum = rest();
    sum += voice;
    sum += room;
    return sum;
}

StereoMix makeStereoMix(unsigned seed, double seconds)
{
    std::mt19937 random(seed);
    const std::size_t frames = framesOf(seconds);
    StereoMix mix;
    const std::vector<float> voice = sungMelody(random, frames);
    mix.voice = panned(voice, 1.5, 1.5);
    const auto wet = [&voice](std::array<std::size_t, 6> delays) {
        std::vector<float> sound = reverberated(voice, delays);
        for (float &sample : sound)
            sample *= 0.085F;
        return sound;
    };
    mix.room = {wet({1557, 1617, 1491, 1422, 225, 556}), wet({1277, 1356, 1188, 1116, 341, 441})};

    PieceNotes bass({.partials = {1.0F, 0.25F, 0.04F}, .attack = 0.01, .decay = 1.5});
    std::vector<float> basses(frames);
    const std::size_t beat = framesOf(beatSeconds);
    for (std::size_t begin = 0; begin < frames; begin += beat)
        addAt(basses, begin, bass.note(scaleNote(28, chordRoots[begin / (4 * beat) % 8])), 0.32,
              beat);
    mix.bass = panned(basses, 1.0, 1.0);
    addDrums(mix, random, frames);

    PieceNotes strings({.partials = {1.0F, 0.7F, 0.5F, 0.4F, 0.3F, 0.2F, 0.15F, 0.1F, 0.08F},
                        .attack = 0.003,
                        .decay = 0.7});
    mix.guitar = panned(chords(frames, strings, 52, 1.0, 0.0), 1.0, 0.0);
    PieceNotes keys(
        {.partials = {1.0F, 0.5F, 0.3F, 0.2F, 0.1F, 0.05F}, .attack = 0.005, .decay = 1.2});
    const double half = std::numbers::pi / 8.0; // half way between the middle and one side
    mix.keys =
        panned(chords(frames, keys, 60, 2.0, 0.5 * beatSeconds), std::sin(half), std::cos(half));
    mix.organ = panned(secondVoice(random, frames), std::cos(half), std::sin(half));
    mix.pad = widePad(random, frames);
    for (StereoPart *part : {&mix.voice, &mix.room, &mix.bass, &mix.kick, &mix.guitar, &mix.shaker,
                             &mix.keys, &mix.organ, &mix.pad}) {
        for (std::vector<float> *channel : {&part->left, &part->right})
            std::ranges::for_each(*channel, [](float &sample) { sample *= 0.45F; });
    }
    return mix;
}

double levelOf(const StereoPart &part)
{
    return 10.0 * std::log10(powerOf(part) + 1.0e-30);
}

double distortionRatio(const StereoPart &heard, const StereoPart &wanted)
{
    StereoPart rest = heard;
    for (std::size_t i = 0; i < rest.frames(); ++i) {
        rest.left[i] -= wanted.left[i];
        rest.right[i] -= wanted.right[i];
    }
    return levelOf(wanted) - levelOf(rest);
}

} // namespace lyrabox::test
