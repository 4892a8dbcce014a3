#pragma once

#include "platform/audio/AudioUnit.h"

#include <array>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace lyrabox::test {

/// The result of one pull of the fake output, per channel.
struct PulledAudio {
    std::array<std::vector<float>, maximumChannels> channels;

    /// The samples frame by frame, with the channels side by side.
    std::vector<float> interleaved() const;
    bool isSilent() const;
};

/// The steps that can be made to fail: those of a build, and the start of the output.
enum class FakeStep {
    EqualizerMissing, ///< the factory gives no unit, whatever the status
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
    OutputDevice, ///< the device of an output that was opened
};

/// A chain without a device. Its equalizer and its time/pitch stage pass everything through; the
/// latter pulls in slices like the real one. The test pulls the output, on any thread, and fires
/// the watcher. Units may outlive this object, and this object may outlive them.
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

    /// Pulls the newest living output, as a device's callback would. Gives silence if it is
    /// stopped.
    PulledAudio pull(std::uint32_t frames);

    /// Runs the watcher's listener on the calling thread. Returns whether there is one.
    bool fireDefaultOutputChanged();
    /// The same on another thread. Waits for it.
    bool fireDefaultOutputChangedOnThread();

    /// Makes the newest output report the loss of its device.
    void loseDevice();
    /// How often the watcher was asked for a call of its listener.
    int callsRequested() const;

    /// From now on the step returns `status`. 0 lets it succeed again.
    void failAt(FakeStep step, Status status);
    /// The same for the next time only.
    void failOnceAt(FakeStep step, Status status);
    void clearFailures();

    /// Frames of one pull of the time/pitch stage. The default is TimePitchUnit::sliceFrames.
    void setSliceFrames(std::uint32_t frames);

    /// Every control-side call in order: unit name, number of the unit of its kind (from 1), call,
    /// argument: "equalizer1.initialize", "output1.connect(timePitch1)",
    /// "timePitch1.setParameter(0, 0.5)", "output1.start". Reads of the stream format are in it
    /// ("equalizer1.streamFormat"), reads of parameters are
    /// ("output1.parameter(14)"), isRunning() is not.
    std::vector<std::string> calls() const;
    void clearCalls();

    /// The parameter of the newest unit of that kind. 0 if there is no unit or it was never set.
    float equalizerParameter(std::uint32_t id) const;
    float timePitchParameter(std::uint32_t id) const;
    float outputParameter(std::uint32_t id) const;
    bool outputIsRunning() const;

    /// Living units, including the watcher.
    int unitsAlive() const;
    /// The number of the equalizer's pulls.
    std::uint64_t slicesPulled() const;

    struct State;

private:
    std::shared_ptr<State> m_state;
};

} // namespace lyrabox::test
