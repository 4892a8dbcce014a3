#include "support/pieces/BeatPieces.h"

#include "support/pieces/BeatPieceSounds.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <numeric>

namespace lyrabox::test {

namespace {

constexpr double rate = 44100.0;
constexpr int sectionBars = 8;

/// What an instrument plays in a bar: one level for each slot, 0 for none.
using Pattern = std::vector<double>;

/// The patterns of one section of a piece.
struct Section {
    Pattern kick, snare, hat, bass, chord, melody;
};

class PieceMaker {
public:
    PieceMaker(const PieceRecipe &recipe, unsigned seed)
        : m_recipe(recipe),
          m_random(seed),
          m_bass({.partials = {0.55F, 0.27F, 0.15F, 0.07F}, .attack = 0.006, .decay = 0.9}),
          m_guitar({.partials = {0.3F, 0.19F, 0.13F, 0.09F, 0.06F, 0.04F}, .attack = 0.004}),
          m_pad({.partials = {0.1F, 0.04F, 0.02F}, .attack = 0.05, .decay = 6.0})
    {}

    BeatPiece make()
    {
        placeBeats();
        const auto frames = static_cast<std::size_t>(m_ends.back() + 2.0 * rate);
        m_piece.left.assign(frames, 0.0F);
        m_piece.right.assign(frames, 0.0F);
        const std::vector<Section> sections{section(), section(), section()};
        const auto order = {0, 1, 0, 2};
        for (int bar = 0; bar < m_bars; ++bar)
            playBar(bar,
                    sections[static_cast<std::size_t>(*(order.begin() + bar / sectionBars % 4))]);
        if (m_recipe.free > 0.0)
            playFreely();
        finish();
        return std::move(m_piece);
    }

private:
    double number(double from, double to)
    {
        return std::uniform_real_distribution<double>(from, to)(m_random);
    }
    bool chance(double share) { return number(0.0, 1.0) < share; }

    void placeBeats()
    {
        const double barSeconds = 60.0 / m_recipe.tempo * m_recipe.beatsPerBar;
        m_bars = std::max(2, static_cast<int>(m_recipe.seconds / barSeconds));
        const int beats = m_bars * m_recipe.beatsPerBar;
        const int middle = m_bars / 2 * m_recipe.beatsPerBar;
        double frame = number(0.1, 1.5) * rate;
        const double phase = number(0.0, 6.0);
        const double wave = number(14.0, 24.0); // seconds
        for (int beat = 0; beat < beats; ++beat) {
            if (beat == middle && m_recipe.free > 0.0) {
                m_freeFrom = frame;
                frame += m_recipe.free * rate;
                m_piece.isBeforeGap.back() = true;
            }
            m_piece.beats.push_back(frame);
            m_piece.isBeforeGap.push_back(false);
            const double share = static_cast<double>(beat) / beats;
            double tempo = m_recipe.tempo * std::pow(m_recipe.acceleration, share);
            tempo *= 1.0 + m_recipe.drift *
                               std::sin(2.0 * std::numbers::pi * frame / rate / wave + phase);
            tempo *= beat >= middle ? m_recipe.jump : 1.0;
            frame += 60.0 / tempo * rate;
            m_ends.push_back(frame);
        }
        m_piece.name = m_recipe.name;
        m_piece.beatsPerBar = m_recipe.beatsPerBar;
    }

    bool isGroupStart(int beat) const
    {
        int start = 0;
        for (const int group : m_recipe.groups) {
            if (beat == start)
                return true;
            start += group;
        }
        return beat == 0;
    }

    /// Draws what a band plays. `onBeat` and `between` are the chances of a note on a beat and
    /// between two.
    Pattern pattern(double onBeat, double between)
    {
        Pattern levels;
        for (int beat = 0; beat < m_recipe.beatsPerBar; ++beat) {
            for (int slot = 0; slot < m_recipe.slots; ++slot)
                levels.push_back(chance(slot == 0 ? onBeat : between) ? number(0.5, 1.0) : 0.0);
        }
        return levels;
    }

    Section section()
    {
        Section result{.kick = pattern(0.35, 0.2),
                       .snare = pattern(0.0, 0.06),
                       .hat = pattern(0.95, number(0.3, 1.0)),
                       .bass = pattern(0.6, 0.3),
                       .chord = pattern(0.3, number(0.1, 0.6)),
                       .melody = pattern(0.55, 0.4)};
        const auto at = [this](int beat) {
            return static_cast<std::size_t>(beat * m_recipe.slots);
        };
        result.kick[0] = 1.0;
        if (chance(0.9))
            result.bass[0] = 1.0;
        for (int beat = 1; beat < m_recipe.beatsPerBar; ++beat) {
            const bool isBackBeat = m_recipe.groups.empty()
                                        ? beat % 2 == 1 && m_recipe.beatsPerBar % 2 == 0
                                        : isGroupStart(beat);
            if (isBackBeat)
                result.snare[at(beat)] = 1.0;
        }
        if (!m_recipe.hasDrums) { // somebody has to keep the time
            result.chord = pattern(0.85, 0.5);
            result.bass = pattern(0.5, 0.1);
            result.bass[0] = 1.0;
        }
        return result;
    }

    /// The frame of a slot of a bar.
    double place(int bar, int beat, int slot) const
    {
        const auto index = static_cast<std::size_t>(bar * m_recipe.beatsPerBar + beat);
        double share = static_cast<double>(slot) / m_recipe.slots;
        if (m_recipe.slots == 2 && slot == 1)
            share += m_recipe.swing;
        return m_piece.beats[index] + share * (m_ends[index] - m_piece.beats[index]);
    }

    bool isBreak(int bar) const
    {
        const int begin = m_bars / 2;
        return bar >= begin && bar < begin + m_recipe.breakBars;
    }

    void playBar(int bar, const Section &section)
    {
        static constexpr int roots[]{45, 50, 43, 48, 52, 45, 50, 52};
        const int root = roots[(bar + m_rootShift) % 8];
        if (isBreak(bar)) {
            for (const int step : {0, 4, 7})
                add(m_pad.note(root + 12 + step), place(bar, 0, 0), 4.0, 0.0, 1.0);
            return;
        }
        const bool isFill = bar % sectionBars == sectionBars - 1;
        for (int beat = 0; beat < m_recipe.beatsPerBar; ++beat) {
            for (int slot = 0; slot < m_recipe.slots; ++slot) {
                const auto index = static_cast<std::size_t>(beat * m_recipe.slots + slot);
                const double at = place(bar, beat, slot);
                if (m_recipe.hasDrums)
                    playDrums(section, index, at, isFill && 2 * beat >= m_recipe.beatsPerBar);
                playNotes(section, index, at, root);
            }
        }
    }

    void playDrums(const Section &section, std::size_t index, double at, bool isFill)
    {
        if (isFill && chance(0.6))
            add(snareSound(m_random), at, 0.3, 0.1, number(0.4, 1.0));
        if (section.kick[index] > 0.0)
            add(kickSound(), at, 0.4, 0.0, section.kick[index]);
        if (section.snare[index] > 0.0)
            add(snareSound(m_random), at, 0.3, 0.1, section.snare[index]);
        if (section.hat[index] > 0.0)
            add(hatSound(m_random, 0.03), at, 0.2, 0.35, section.hat[index]);
    }

    void playNotes(const Section &section, std::size_t index, double at, int root)
    {
        static constexpr int scale[]{0, 3, 5, 7, 10, 12, 15};
        if (section.bass[index] > 0.0)
            add(m_bass.note(root - 12 + (chance(0.5) ? 0 : 7)), at, number(0.2, 0.5), 0.0,
                section.bass[index]);
        if (section.chord[index] > 0.0) {
            for (const int step : {0, 4, 7})
                add(m_guitar.note(root + 12 + step), at, number(0.1, 0.4), -0.4,
                    0.5 * section.chord[index]);
        }
        if (section.melody[index] > 0.0 && chance(0.8))
            add(m_guitar.note(root + 24 + scale[m_random() % 7]), at, number(0.2, 0.7), 0.3,
                section.melody[index]);
    }

    /// Notes at random places, for the time without beat.
    void playFreely()
    {
        const double end = m_freeFrom + (m_recipe.free - 0.3) * rate;
        for (double at = m_freeFrom; at < end; at += number(0.15, 0.8) * rate) {
            add(m_guitar.note(57 + static_cast<int>(m_random() % 20)), at, 1.0, 0.2, 0.8);
            add(m_pad.note(57), at, 2.0, 0.0, 0.5);
        }
    }

    /// Adds a sound, a little early or late, faded out after `seconds`.
    void add(std::span<const float> sound, double at, double seconds, double pan, double level)
    {
        std::normal_distribution<double> looseness(0.0, m_recipe.looseness * rate);
        const double limit = 2.5 * m_recipe.looseness * rate;
        const double late = std::clamp(looseness(m_random), -limit, limit);
        const auto begin = static_cast<std::size_t>(std::max(0.0, std::round(at + late)));
        const double loud = level * number(0.7, 1.0);
        const auto left = static_cast<float>(loud * std::cos((pan + 1.0) * std::numbers::pi / 4));
        const auto right = static_cast<float>(loud * std::sin((pan + 1.0) * std::numbers::pi / 4));
        constexpr float release = 0.02F * static_cast<float>(rate);
        const std::size_t count =
            std::min(sound.size(), static_cast<std::size_t>(seconds * rate + double{release}));
        for (std::size_t i = 0; i < count && begin + i < m_piece.left.size(); ++i) {
            const float gain = std::min(1.0F, static_cast<float>(count - i) / release);
            m_piece.left[begin + i] += gain * left * sound[i];
            m_piece.right[begin + i] += gain * right * sound[i];
        }
    }

    /// Adds a short echo from the other side and some noise, and brings the peak to 0.8.
    void finish()
    {
        std::vector<float> &left = m_piece.left;
        std::vector<float> &right = m_piece.right;
        const std::vector<float> dryLeft = left;
        const std::vector<float> dryRight = right;
        for (const auto &[delay, level] :
             {std::pair{1367U, 0.12F}, {2073U, 0.09F}, {3660U, 0.06F}}) {
            for (std::size_t i = delay; i < left.size(); ++i) {
                left[i] += level * dryRight[i - delay];
                right[i] += level * dryLeft[i - delay];
            }
        }
        std::uniform_real_distribution<float> noise(-0.002F, 0.002F);
        float peak = 0.0F;
        for (std::size_t i = 0; i < left.size(); ++i) {
            left[i] += noise(m_random);
            right[i] += noise(m_random);
            peak = std::max({peak, std::abs(left[i]), std::abs(right[i])});
        }
        for (std::size_t i = 0; i < left.size(); ++i) {
            left[i] *= 0.8F / peak;
            right[i] *= 0.8F / peak;
        }
    }

    const PieceRecipe &m_recipe;
    std::mt19937 m_random;
    PieceNotes m_bass;
    PieceNotes m_guitar;
    PieceNotes m_pad;
    const int m_rootShift = static_cast<int>(m_random() % 8);
    int m_bars = 0;
    double m_freeFrom = 0.0;
    std::vector<double> m_ends; ///< of the beats, in frames
    BeatPiece m_piece;
};

} // namespace

int BeatPiece::beatInBar(std::size_t index) const
{
    return static_cast<int>(index) % beatsPerBar; // gaps lie between bars
}

BeatPiece makePiece(const PieceRecipe &recipe, unsigned seed)
{
    return PieceMaker(recipe, seed).make();
}

std::vector<std::uint64_t> eightTaps(const BeatPiece &piece, std::size_t first, unsigned seed)
{
    std::mt19937 random(seed);
    std::uniform_real_distribution<double> late(-0.04 * rate, 0.04 * rate);
    std::vector<std::uint64_t> taps;
    for (std::size_t i = first; i < first + 8; ++i)
        taps.push_back(static_cast<std::uint64_t>(std::max(0.0, piece.beats.at(i) + late(random))));
    return taps;
}

} // namespace lyrabox::test
