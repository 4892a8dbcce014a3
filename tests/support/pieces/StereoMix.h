#pragma once

#include <cstddef>
#include <vector>

/// Music whose parts are known one by one: what was mixed into the middle, and what was not.
namespace lyrabox::test {

/// A part of a mix, at 44,100 Hz.
struct StereoPart {
    std::vector<float> left;
    std::vector<float> right;

    std::size_t frames() const { return left.size(); }
    StereoPart &operator+=(const StereoPart &other);
};

/// Parts that are equally long. The sum of all is the mix.
struct StereoMix {
    StereoPart voice;  ///< dry, in the middle: notes of 220 to 520 Hz with vibrato, up to 8 kHz
    StereoPart room;   ///< its reverberation, different in both channels
    StereoPart bass;   ///< in the middle, nearly all of it below 150 Hz
    StereoPart kick;   ///< in the middle
    StereoPart guitar; ///< chords, on the left only
    StereoPart shaker; ///< on the right only
    StereoPart keys;   ///< chords, half right
    StereoPart organ;  ///< a second voice, half left
    StereoPart pad;    ///< wide: different phases in both channels

    /// All but the voice and its room.
    StereoPart rest() const;
    StereoPart whole() const;
};

/// Makes a mix of so many seconds. The same seed gives the same mix.
StereoMix makeStereoMix(unsigned seed, double seconds);

/// How loud a part is, in dB of full scale: the mean power of both channels. The first and the
/// last 50 ms are left out.
double levelOf(const StereoPart &part);

/// How much louder `wanted` is than what `heard` has besides it, in dB.
double distortionRatio(const StereoPart &heard, const StereoPart &wanted);

} // namespace lyrabox::test
