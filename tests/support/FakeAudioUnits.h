#pragma once

#include "platform/audio/AudioUnit.h"

#include <array>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace lyrabox::test {

/// What one pull of the fake output delivered, per channel.
struct PulledAudio {
    std::array<std::vector<float>, maximumChannels> channels;

    /// Frame by frame, channel by channel.
    std::vector<float> interleaved() const;
    bool isSilent() const;
};

/// The steps of a build that can be made to fail, and starting the output.
enum class FakeStep {
    EqualizerMissing, ///< the factory gives no unit; the status set is not used
    EqualizerInitialize,
    TimePitchMissing,
    TimePitchInitialize,
    OutputMissing,
    OutputInitialize,
    OutputConnect,
    TimePitchConnect,
    SetRenderCallback,
    WatcherMissing,
    Listen,
    EqualizerFixedParameter,
    OutputStart,
    OutputDevice, ///< the device behind an output that was opened
};

/// A chain without a device: an equalizer and a time/pitch stage that pass everything through (the
/// latter pulling in slices as the real one does), an output that is pulled by hand on whatever
/// thread, and a watcher that fires by hand. The units that the factory made may outlive this
/// object and the other way round.
///
///     FakeAudio audio;
///     engine::setAudioUnitFactory(audio.factory());
///     engine::buildAudioSystem();
///     ... load, setOutputRunning(true) ...
///     const PulledAudio heard = audio.pull(512);
class FakeAudio {
public:
    FakeAudio();
    ~FakeAudio();

    AudioUnitFactory factory() const;

    /// Pulls the newest output that is alive: what the device's callback would do. Silence when it
    /// is stopped.
    PulledAudio pull(std::uint32_t frames);

    /// Runs the watcher's listener on the calling thread; returns whether there was one.
    bool fireDefaultOutputChanged();
    /// The same on a thread of its own, and waits for its end.
    bool fireDefaultOutputChangedOnThread();

    /// The newest output tells that it has lost its device; whoever serves that is for the test to
    /// fire. How often the watcher was then asked for a call.
    void loseDevice();
    int callsRequested() const;

    /// From now on the step returns `status` (other than 0); 0 lets it succeed again.
    void failAt(FakeStep step, Status status);
    /// The same for the next time only.
    void failOnceAt(FakeStep step, Status status);
    void clearFailures();

    /// Frames that the time/pitch stage asks for at once; TimePitchUnit::sliceFrames at first.
    void setSliceFrames(std::uint32_t frames);

    /// Every control-side call in order: unit name, number of the unit of its kind (from 1), call,
    /// argument: "equalizer1.initialize", "output1.connect(timePitch1)",
    /// "timePitch1.setParameter(0, 0.5)", "output1.start". Reads of the stream format are in it
    /// ("equalizer1.streamFormat"), reads of parameters are
    /// ("output1.parameter(14)"), isRunning() is not.
    std::vector<std::string> calls() const;
    void clearCalls();

    /// Of the newest unit of the kind; 0 when there is none or it was never set.
    float equalizerParameter(std::uint32_t id) const;
    float timePitchParameter(std::uint32_t id) const;
    float outputParameter(std::uint32_t id) const;
    bool outputIsRunning() const;

    /// Units made and not yet destroyed, watcher included.
    int unitsAlive() const;
    /// How often the equalizer was pulled.
    std::uint64_t slicesPulled() const;

    struct State;

private:
    std::shared_ptr<State> m_state;
};

} // namespace lyrabox::test
