#include "support/pieces/TonalPieces.h"

#include "support/pieces/BeatPieceSounds.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <complex>
#include <numbers>
#include <random>
#include <span>

namespace lyrabox::test {

namespace {

constexpr double rate = 44100.0;

/// The degrees of the scale on which the bars of a phrase stand, from 0.
using Progression = std::vector<int>;

const std::vector<Progression> &majorProgressions()
{
    static const std::vector<Progression> all{
        {0, 4, 5, 3}, {0, 3, 4, 0}, {0, 5, 3, 4}, {0, 3, 0, 4}, {1, 4, 0, 0},
        {0, 2, 3, 4}, {0, 4, 0, 3}, {0, 0, 3, 4}, {5, 3, 0, 4}, {0, 5, 1, 4}};
    return all;
}

const std::vector<Progression> &minorProgressions()
{
    static const std::vector<Progression> all{{0, 3, 4, 0}, {0, 5, 3, 4}, {0, 6, 5, 4},
                                              {0, 3, 0, 4}, {0, 0, 3, 4}, {0, 5, 2, 6},
                                              {0, 6, 5, 6}, {0, 3, 6, 0}, {0, 2, 3, 4}};
    return all;
}

struct Timbre {
    std::vector<double> partials;
    double attack;
    double decay; ///< seconds, of the first partial
};

const std::array<Timbre, 5> &timbres()
{
    static const std::array<Timbre, 5> all{{
        {{1.0, 0.6, 0.35, 0.25, 0.12, 0.08, 0.05, 0.03}, 0.004, 1.4},     // a piano
        {{0.8, 0.9, 0.5, 0.35, 0.3, 0.15, 0.1, 0.1, 0.05}, 0.003, 0.8},   // a guitar
        {{1.0, 0.7, 0.4, 0.5, 0.1, 0.3, 0.05, 0.2}, 0.02, 50.0},          // an organ
        {{1.0, 0.5, 0.33, 0.25, 0.2, 0.17, 0.14, 0.12, 0.1}, 0.08, 50.0}, // strings
        {{0.5, 1.0, 0.7, 0.3, 0.2, 0.1}, 0.03, 50.0},                     // a reed
    }};
    return all;
}

class Maker {
public:
    Maker(const TonalRecipe &recipe, unsigned seed)
        : m_recipe(recipe),
          m_random(seed),
          m_piece{.recipe = recipe,
                  .left = std::vector<float>(static_cast<std::size_t>(recipe.seconds * rate)),
                  .right = {}}
    {
        m_piece.right = m_piece.left;
    }

    TonalPiece make()
    {
        const auto &progressions = m_recipe.isMinor ? minorProgressions() : majorProgressions();
        const Progression verse = pick(progressions);
        const Progression chorus = pick(progressions);
        const Timbre &chordTimbre = pick(timbres());
        const Timbre &melodyTimbre = pick(timbres());
        const double bar = 4.0 * 60.0 / m_recipe.tempo;
        const int bars = std::max(1, static_cast<int>(m_recipe.seconds / bar));
        for (int i = 0; i < bars; ++i) {
            const Progression &phrase = i / 8 % 2 == 0 ? verse : chorus;
            // The piece ends at home.
            const int degree =
                i + 1 == bars ? 0 : phrase[static_cast<std::size_t>(i) % phrase.size()];
            playBar(i * bar, bar, degree, chordTimbre, melodyTimbre);
        }
        if (m_recipe.hasDrums)
            addDrums();
        return std::move(m_piece);
    }

    void addDrums()
    {
        const std::vector<float> kick = kickSound();
        const std::vector<float> snare = snareSound(m_random);
        const std::vector<float> hat = hatSound(m_random, 0.04);
        const double eighth = 30.0 / m_recipe.tempo;
        for (int i = 0; i * eighth < m_recipe.seconds; ++i) {
            add(i * eighth, hat, 0.8, 0.3);
            if (i % 4 == 0)
                add(i * eighth, kick, 0.4, 0.0);
            else if (i % 4 == 2)
                add(i * eighth, snare, 0.5, 0.0);
        }
    }

    TonalPiece piece() { return std::move(m_piece); }

private:
    template <typename Container>
    const typename Container::value_type &pick(const Container &container)
    {
        return container[std::uniform_int_distribution<std::size_t>(0, container.size() -
                                                                           1)(m_random)];
    }
    double chance() { return std::uniform_real_distribution<double>(0.0, 1.0)(m_random); }

    /// The note of a degree; degrees go on beyond the octave. `raised`: the seventh leads upwards.
    int note(int base, int degree, bool raised = false) const
    {
        static constexpr std::array<int, 7> major{0, 2, 4, 5, 7, 9, 11};
        static constexpr std::array<int, 7> minor{0, 2, 3, 5, 7, 8, 10};
        const int octave = degree >= 0 ? degree / 7 : (degree - 6) / 7;
        const auto step = static_cast<std::size_t>(degree - 7 * octave);
        const int semitones =
            m_recipe.isMinor ? minor[step] + (raised && step == 6 ? 1 : 0) : major[step];
        return base + m_recipe.tonic + 12 * octave + semitones;
    }

    void playBar(double begin, double length, int degree, const Timbre &chord, const Timbre &melody)
    {
        const bool isDominant = degree == 4;
        play(begin, length / 2.0, note(36, degree), 0.25, timbres()[1], 0.0, 0.0);
        play(begin + length / 2.0, length / 2.0,
             note(36, chance() < 0.6 ? degree : degree + 4, isDominant), 0.22, timbres()[1], 0.0,
             0.0);
        const int strokes = chance() < 0.5 ? 1 : 2;
        for (int stroke = 0; stroke < strokes; ++stroke) {
            for (const int third : {0, 2, 4})
                play(begin + stroke * length / strokes, length / strokes,
                     note(48, degree + third, isDominant), 0.09, chord, 0.0, -0.4);
        }
        for (double beat = 0.0; beat < 4.0;) {
            const double duration = chance() < 0.4 ? 0.5 : chance() < 0.7 ? 1.0 : 2.0;
            // On the beat a note of the chord, else a note of the scale nearby.
            const bool isStrong = beat == 0.0 || beat == 2.0;
            const int offset = isStrong || chance() < 0.5 ? 2 * static_cast<int>(3.0 * chance())
                                                          : static_cast<int>(6.0 * chance());
            if (chance() < 0.85)
                play(begin + beat * length / 4.0, std::min(duration, 4.0 - beat) * length / 4.0,
                     note(60, degree + offset, isDominant), 0.14, melody, m_recipe.spread, 0.3,
                     m_recipe.vibrato);
            beat += duration;
        }
    }

    void play(double begin, double length, int midi, double level, const Timbre &timbre,
              double higher, double pan, double vibrato = 0.0)
    {
        const double drifted = m_recipe.drift * begin / m_recipe.seconds;
        const double base =
            440.0 * std::exp2((midi - 69) / 12.0 + (m_recipe.cents + higher + drifted) / 1200.0);
        const auto frames = static_cast<std::size_t>((length + 0.05) * rate);
        std::vector<float> sound(frames);
        for (std::size_t n = 1; n <= timbre.partials.size(); ++n) {
            const auto number = static_cast<double>(n);
            if (base * number > 9000.0)
                break;
            const double decay = std::exp(-number / timbre.decay / rate);
            std::complex<double> value = std::polar(timbre.partials[n - 1], 6.28 * chance());
            const double step = 2.0 * std::numbers::pi * base * number / rate;
            std::complex<double> turn = std::polar(decay, step);
            for (std::size_t i = 0; i < frames; ++i) {
                if (vibrato > 0.0 && i % 64 == 0) {
                    const double phase =
                        2.0 * std::numbers::pi * 5.5 * static_cast<double>(i) / rate;
                    turn = std::polar(decay, step * std::exp2(vibrato * std::sin(phase) / 1200.0));
                }
                sound[i] += static_cast<float>(value.imag());
                value *= turn;
            }
        }
        for (std::size_t i = 0; i < frames; ++i) {
            const double rise = static_cast<double>(i) / rate / timbre.attack;
            const double fall = static_cast<double>(frames - i) / rate / 0.05;
            sound[i] *= static_cast<float>(std::min({1.0, rise, fall}));
        }
        add(begin, sound, level, pan);
    }

    void add(double begin, std::span<const float> sound, double level, double pan)
    {
        const auto first = static_cast<std::size_t>(begin * rate);
        const auto left = static_cast<float>(level * std::min(1.0, 1.0 - pan));
        const auto right = static_cast<float>(level * std::min(1.0, 1.0 + pan));
        for (std::size_t i = 0; i < sound.size() && first + i < m_piece.left.size(); ++i) {
            m_piece.left[first + i] += left * sound[i];
            m_piece.right[first + i] += right * sound[i];
        }
    }

    const TonalRecipe m_recipe;
    std::mt19937 m_random;
    TonalPiece m_piece;
};

} // namespace

TonalPiece makeTonalPiece(const TonalRecipe &recipe, unsigned seed)
{
    return Maker(recipe, seed).make();
}

TonalPiece makeDrums(double seconds, unsigned seed)
{
    Maker maker({.name = "drums", .seconds = seconds}, seed);
    maker.addDrums();
    return maker.piece();
}

std::vector<TonalRecipe> tonalRecipes(std::size_t count, unsigned seed)
{
    std::mt19937 random(seed);
    std::uniform_real_distribution<double> tunings(-50.0, 50.0);
    std::uniform_real_distribution<double> tempi(70.0, 150.0);
    std::vector<TonalRecipe> recipes;
    for (std::size_t i = 0; i < count; ++i) {
        TonalRecipe recipe;
        recipe.name = "song " + std::to_string(i + 1);
        recipe.tonic = static_cast<int>(7 * i % 12);
        recipe.isMinor = i % 5 == 1 || i % 5 == 3;
        recipe.cents = tunings(random);
        recipe.tempo = tempi(random);
        recipe.hasDrums = i % 4 != 3;
        recipe.vibrato = i % 3 == 0 ? 20.0 : 0.0;
        recipes.push_back(recipe);
    }
    return recipes;
}

} // namespace lyrabox::test
