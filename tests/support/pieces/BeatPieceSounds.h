#pragma once

#include <map>
#include <random>
#include <span>
#include <utility>
#include <vector>

namespace lyrabox::test {

/// A pitched instrument: the levels of its partials, and how its notes begin and fade.
struct PieceInstrument {
    std::vector<float> partials;
    double attack = 0.005; ///< seconds until it is at its full level
    double decay = 0.8;    ///< seconds until the first partial has faded by the factor e
};

std::vector<float> kickSound();
std::vector<float> snareSound(std::mt19937 &random);
std::vector<float> hatSound(std::mt19937 &random, double seconds);

/// The notes of an instrument, each made once.
class PieceNotes {
public:
    explicit PieceNotes(PieceInstrument instrument) : m_instrument(std::move(instrument)) {}

    /// The note of that number, 69 being 440 Hz. It lasts for four seconds.
    std::span<const float> note(int midi);

private:
    PieceInstrument m_instrument;
    std::map<int, std::vector<float>> m_notes;
};

} // namespace lyrabox::test
