#pragma once

#include "platform/audio/StreamFormat.h"
#include "platform/foundation/Status.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>

namespace lyrabox {

/// The IDs of the stages' parameters.
namespace parameter {
constexpr std::uint32_t outputVolume = 14; ///< output: linear, 0.0 to 1.0
constexpr std::uint32_t rate = 0;          ///< time/pitch: 1.0 is normal speed
constexpr std::uint32_t pitch = 1;         ///< time/pitch: cents, 0.0 is unchanged
constexpr std::uint32_t equalizerBands =
    31; ///< equalizer: IDs 0 to 30, dB, ISO 266 from 20 Hz to 20 kHz
constexpr std::uint32_t equalizerFixed =
    31; ///< equalizer: set to 0.0 at every build, without effect
} // namespace parameter

/// Fills `ioData` with the next `inNumberFrames` frames of a stage's input. `inRefCon` is the
/// context that was set with the callback. Runs on the audio callback thread, so it must not
/// allocate, lock or log. Returns 0. Any other status makes the pull deliver silence.
using RenderCallback = Status (*)(void *inRefCon, std::uint32_t inNumberFrames,
                                  AudioBufferList &ioData) noexcept;

/// A stage of the chain. Members belong to the control side unless they name another thread. The
/// control side is the main thread or the device-notification thread, and the caller serialises the
/// two.
class AudioUnit {
public:
    AudioUnit() = default;
    AudioUnit(const AudioUnit &) = delete;
    AudioUnit &operator=(const AudioUnit &) = delete;
    virtual ~AudioUnit() = default;

    /// Allocates everything that the stage will ever need, so that the callback thread allocates
    /// nothing.
    virtual Status initialize() = 0;

    /// The value that was set last. 0.0 if the stage has no such parameter.
    virtual float parameter(std::uint32_t id) const = 0;

    /// Takes effect at the next pull. Returns invalidParameter if the stage has no such parameter,
    /// or if the value is not finite.
    virtual Status setParameter(std::uint32_t id, float value) = 0;

    /// Asks the stage to drop the frames and the filter state that it holds. The callback thread
    /// does so before it renders again. Parameters stay.
    virtual void reset() = 0;
};

/// A stage that another stage pulls from.
class RenderingUnit : public AudioUnit {
public:
    /// Callback thread. Writes exactly `frames` frames into `ioData`. The caller owns the buffers:
    /// one per channel, each of `frames` * 4 bytes.
    virtual void render(std::uint32_t frames, AudioBufferList &ioData) noexcept = 0;

    /// Callback thread. True after the source has ended, while the unit still holds frames of it.
    /// The next render() delivers those frames and does not pull the source.
    virtual bool isPlayingOut() const noexcept { return false; }
};

/// The 31-band graphic equalizer. It pulls as many frames from its render callback as it is asked
/// for.
class EqualizerUnit : public RenderingUnit {
public:
    /// The input format, which the whole chain adopts.
    virtual AudioStreamBasicDescription streamFormat() const = 0;

    /// Call it once, before the chain renders. `callback` and `context` must outlive the unit.
    virtual Status setRenderCallback(RenderCallback callback, void *context) = 0;
};

/// Stretches time and shifts pitch. It pulls its source in slices of sliceFrames, never more at
/// once.
class TimePitchUnit : public RenderingUnit {
public:
    static constexpr std::uint32_t sliceFrames = 128;

    /// Call it once, before the chain renders. The unit does not own the source, which must outlive
    /// it.
    virtual Status connect(RenderingUnit *source) = 0;

    /// Callback thread. The source calls it inside its render() when the song has ended: the frames
    /// of this pull and of later ones are not part of the song.
    virtual void sourceHasEnded() noexcept {}

    /// Like reset(), but frames of an ended song are played out first, with the parameters that the
    /// song ended with.
    virtual void resetAfterPlayOut() { reset(); }

    /// Any thread. Source frames that were pulled but not delivered yet. render() next delivers the
    /// frame at the source's position minus this.
    virtual double latencyFrames() const noexcept { return 0.0; }

    /// Callback thread, between two calls of render().
    struct Account {
        double held = 0.0; ///< as latencyFrames(); a reset counts when render() has carried it out
        std::uint64_t resets = 0; ///< how often render() has dropped what the unit held
    };
    virtual Account account() const noexcept { return {}; }

    /// Begins the work that initialize() has deferred, on a thread of the unit's own.
    virtual void prepare() {}

    /// Blocks until the work that prepare() begins is done. Until then render() delivers silence.
    /// Call it before the output is started. It calls prepare() if that was not called.
    virtual void awaitReady() {}
};

class ClickSchedule;

/// Mixes the clicks of a metronome into the sound of time/pitch. Until it is connected it delivers
/// silence.
class ClickUnit : public RenderingUnit {
public:
    /// Call it once, before the chain renders. The unit owns neither, and both must outlive it.
    /// `schedule` is filled while `source` pulls its own source.
    virtual Status connect(TimePitchUnit *source, ClickSchedule *schedule) = 0;
};

/// The output device. It pulls its source on a thread of its own, the audio callback thread.
///
/// No call waits longer than serverPatience for a sound server that hangs. After that the unit has
/// lost its device for good: calls return at once, and deviceStatus() is soundServerHangs.
class OutputUnit : public AudioUnit {
public:
    static constexpr std::chrono::milliseconds serverPatience{2000};

    /// `listener` is called when the unit has lost its device or has given up waiting for the
    /// server, so that a new unit can be made once the server answers. It runs on a thread of the
    /// sound system, or inside the member function that gave up. It must neither block nor call the
    /// unit. Set it before initialize(). It is never called after the unit's destruction.
    virtual void setLossListener(std::function<void()> /*listener*/) {}

    /// Control side. The reason why nothing can be heard: noAudioDevice if the device is missing or
    /// lost, soundServerHangs if the server did not answer, otherwise noError.
    virtual Status deviceStatus() const noexcept { return status::noError; }

    /// Call it once, before the first start. The unit does not own the source, which must outlive
    /// it.
    virtual Status connect(RenderingUnit *source) = 0;

    /// A start is expected within seconds. The device may begin to play silence, so that the start
    /// is heard sooner. Does not wait for the device.
    virtual void expectStart() noexcept {}

    /// The unit counts as running afterwards, even if there is no device.
    virtual Status start() = 0;

    /// On the control side: returns when no callback pulls the source or will pull it. Inside the callback: only
    /// marks the unit as stopped. The frames that the source still holds are then played out, and
    /// the control side halts the device later.
    virtual Status stop() noexcept = 0;

    /// Any thread.
    virtual bool isRunning() const noexcept = 0;

    /// Any thread. True after a stop inside the callback, while the frames that the source held are
    /// still sounding. start(), a stop on the control side and reset() end it.
    virtual bool isPlayingOut() const noexcept { return false; }

    /// Control side. Frames of the source that were pulled but not heard yet, in the unit and in
    /// its device. Frames from before the last start() or reset() don't count.
    virtual std::uint32_t heldFrames() const noexcept { return 0; }
};

/// Reports that the default output device has changed, or that the sound server has come back.
class DefaultOutputWatcher {
public:
    DefaultOutputWatcher() = default;
    DefaultOutputWatcher(const DefaultOutputWatcher &) = delete;
    DefaultOutputWatcher &operator=(const DefaultOutputWatcher &) = delete;
    virtual ~DefaultOutputWatcher() = default;

    /// `listener` runs on the device-notification thread, one call at a time. A second listen()
    /// replaces the listener. Returns noAudioDevice if changes can't be watched.
    virtual Status listen(std::function<void()> listener) = 0;

    /// Asks for one more call of the listener: when the server answers, or at once if there is no
    /// server. Any thread. Takes no lock and does not wait. May be called before listen().
    virtual void requestCall() noexcept {}
};

/// Makes the stages of a chain. A null result means that the component is missing. Tests replace
/// the output with one that they pull themselves.
struct AudioUnitFactory {
    std::function<std::unique_ptr<EqualizerUnit>()> equalizer;
    std::function<std::unique_ptr<TimePitchUnit>()> timePitch;
    /// Empty: the chain has no metronome, and the output pulls time/pitch itself.
    std::function<std::unique_ptr<ClickUnit>()> click = {};
    std::function<std::unique_ptr<OutputUnit>()> output;
    std::function<std::unique_ptr<DefaultOutputWatcher>()> defaultOutputWatcher;
};

/// The program's own stages: GraphicEqualizer, TimePitch, ClickMixer, CubebOutput and its watcher.
AudioUnitFactory platformAudioUnits();

} // namespace lyrabox
