#pragma once

#include "engine/AudioEngine.h"
#include "platform/audio/GraphicEqualizer.h"
#include "platform/audio/TimePitch.h"
#include "sound/TimePitchSignals.h"
#include "support/FakeSong.h"
#include "support/HandPulledOutput.h"

#include <cstdint>
#include <functional>
#include <limits>
#include <memory>
#include <vector>

namespace lyrabox::test {

/// The program's whole chain without the device: engine, equalizer, time/pitch, metronome and the
/// output's fades. There can be only one at a time.
class Player {
public:
    using Song = std::function<float(std::uint32_t channel, std::uint64_t frame)>;

    /// Whether the chain has a metronome, as in the program.
    enum class Metronome { Part, Missing };

    /// Loads a song of `frames` frames. The output is stopped.
    Player(Song song, std::uint64_t frames, Metronome metronome = Metronome::Part);
    /// Loads a file.
    explicit Player(const QUrl &file);
    ~Player();
    Player(const Player &) = delete;
    Player &operator=(const Player &) = delete;

    /// Sets the sliders alternately to +`level` and -`level` dB.
    static void setUnevenEqualizer(float level);

    /// The next `frames` frames, in callbacks of `callback` frames.
    Stereo pull(std::size_t frames, std::uint32_t callback = 512);
    /// Appends them to `heard`.
    void pull(Stereo &heard, std::size_t frames, std::uint32_t callback = 512);

    HandPulledOutput &output() { return *m_output; }
    const TimePitch &timePitch() const { return *m_timePitch; }

    /// The first song frame of each slice that the equalizer has pulled since clearSlices(), up to
    /// 200,000 of them. The song's end adds none.
    const std::vector<std::uint64_t> &slices() const { return m_slices; }
    void clearSlices() { m_slices.clear(); }

private:
    class TappedEqualizer;

    void build(Metronome metronome);
    void noteSlice(std::uint64_t frame) noexcept;

    HandPulledOutput *m_output = nullptr;
    TimePitch *m_timePitch = nullptr;
    std::vector<std::uint64_t> m_slices;
};

/// The same value in both channels at every frame: `amplitude` times a sine at `hertz`.
Player::Song tone(double hertz, double amplitude = 0.5);

/// The level of the loudest click in a tone below 500 Hz: the peak of the sound beyond 2 kHz, in dB
/// of the tone's amplitude. The first and the last 3 ms are ignored.
double clickLevel(const std::vector<float> &heard, double toneAmplitude = 0.5);

} // namespace lyrabox::test
