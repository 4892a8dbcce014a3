#pragma once

#include "platform/audio/StreamFormat.h"
#include "platform/foundation/Status.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>

namespace lyrabox {

/// Parameter IDs, in the units that each stage documents.
namespace parameter {
constexpr std::uint32_t outputVolume = 14; ///< output: linear, 0.0 to 1.0
constexpr std::uint32_t rate = 0;          ///< time/pitch: 1.0 is normal speed
constexpr std::uint32_t pitch = 1;         ///< time/pitch: cents, 0.0 is unchanged
constexpr std::uint32_t equalizerBands =
    31; ///< equalizer: IDs 0 to 30, dB, ISO 266 from 20 Hz to 20 kHz
constexpr std::uint32_t equalizerFixed =
    31; ///< equalizer: set to 0.0 at every build, without effect
} // namespace parameter

/// Fills `ioData` with the next `inNumberFrames` frames of a stage's input. Called on the audio
/// callback thread: no allocation, no lock, no logging. Returns 0, or a status that makes the pull
/// deliver silence.
using RenderCallback = Status (*)(void *inRefCon, std::uint32_t inNumberFrames,
                                  AudioBufferList &ioData) noexcept;

/// A stage of the chain. Control side (main or device-notification thread, serialised by the
/// caller) unless a member says "callback thread".
class AudioUnit {
public:
    AudioUnit() = default;
    AudioUnit(const AudioUnit &) = delete;
    AudioUnit &operator=(const AudioUnit &) = delete;
    virtual ~AudioUnit() = default;

    /// Allocates everything that the stage will ever need; after it nothing on the callback thread
    /// allocates.
    virtual Status initialize() = 0;

    /// The value last set; 0.0 for an ID that the stage does not have.
    virtual float parameter(std::uint32_t id) const = 0;

    /// Takes effect at the next pull. invalidParameter for an ID that the stage does not have; a
    /// value that is not finite is refused with invalidParameter as well.
    virtual Status setParameter(std::uint32_t id, float value) = 0;

    /// Drops what the stage holds of the signal; parameters stay. Requested here, carried out by
    /// the callback thread before it renders again.
    virtual void reset() = 0;
};

/// A stage that others pull from.
class RenderingUnit : public AudioUnit {
public:
    /// Callback thread. Delivers exactly `frames` frames into `ioData` (one buffer per channel,
    /// each of `frames` * 4 bytes, allocated by the caller).
    virtual void render(std::uint32_t frames, AudioBufferList &ioData) noexcept = 0;

    /// Callback thread: the source has ended, and what the next render() gives is what the unit
    /// still holds of it. While that is so render() does not pull the source.
    virtual bool isPlayingOut() const noexcept { return false; }
};

/// The 31-band graphic equalizer. Pulls its input from the render callback in exactly the frames it
/// is asked for.
class EqualizerUnit : public RenderingUnit {
public:
    /// The input format, which the whole chain adopts.
    virtual AudioStreamBasicDescription streamFormat() const = 0;

    /// Set once, before the chain renders. `callback` and `context` must outlive the unit.
    virtual Status setRenderCallback(RenderCallback callback, void *context) = 0;
};

/// Time stretching and pitch shifting. Pulls its source in slices of sliceFrames, never more at
/// once.
class TimePitchUnit : public RenderingUnit {
public:
    static constexpr std::uint32_t sliceFrames = 128;

    /// Set once, before the chain renders; the source is not owned and must outlive the unit.
    virtual Status connect(RenderingUnit *source) = 0;

    /// Callback thread, from inside the source's render(): what the source gives from here on is no
    /// part of the song.
    virtual void sourceHasEnded() noexcept {}

    /// As reset(), but what the unit plays out is rendered first, at the parameters it ended with.
    virtual void resetAfterPlayOut() { reset(); }

    /// Any thread. Source frames that were pulled but not delivered yet: what render() gives next
    /// is the source's position minus this.
    virtual double latencyFrames() const noexcept { return 0.0; }

    /// Begins what initialize() has put off, on a thread of the unit's own.
    virtual void prepare() {}

    /// Blocks until render() gives more than silence: what prepare() begins is done. Once, before
    /// the output is started; prepare() need not have been called.
    virtual void awaitReady() {}
};

/// The output device. It pulls its source on a thread of its own, the audio callback thread.
///
/// No call waits longer than serverPatience for a sound server that hangs. From then on the unit is
/// without its device for good: calls return at once, and deviceStatus() is soundServerHangs.
class OutputUnit : public AudioUnit {
public:
    static constexpr std::chrono::milliseconds serverPatience{2000};

    /// `listener` is called when the unit has lost its device or has given up waiting for the
    /// server, so that a new unit can be made once the server answers. It runs on a thread of the
    /// sound system, or inside the call here that gave up. It must neither block nor call the unit.
    /// Set before initialize(); not called any more once the unit is destroyed.
    virtual void setLossListener(std::function<void()> /*listener*/) {}

    /// Control side. Why nothing can be heard: noAudioDevice when the device is missing or lost,
    /// soundServerHangs when the server did not answer; otherwise noError.
    virtual Status deviceStatus() const noexcept { return status::noError; }

    /// Set once, before the first start; the source is not owned and must outlive the unit.
    virtual Status connect(RenderingUnit *source) = 0;

    /// Counts as running afterwards, even if it fails for want of a device.
    virtual Status start() = 0;

    /// Control side: returns when no callback runs or will run. From inside the callback it only
    /// marks the unit as stopped, and what its source still holds is played out; the device is
    /// halted from outside later.
    virtual Status stop() noexcept = 0;

    /// Any thread.
    virtual bool isRunning() const noexcept = 0;

    /// Any thread: stopped from inside the callback, and what the source held is still sounding.
    /// start(), stop() from outside and reset() end it.
    virtual bool isPlayingOut() const noexcept { return false; }

    /// Control side. Frames of the source that were pulled but not heard yet, in the unit and in
    /// its device. Frames from before the last start() or reset() don't count.
    virtual std::uint32_t heldFrames() const noexcept { return 0; }
};

/// Tells when the default output device changes, or when the sound server came back after it had
/// gone.
class DefaultOutputWatcher {
public:
    DefaultOutputWatcher() = default;
    DefaultOutputWatcher(const DefaultOutputWatcher &) = delete;
    DefaultOutputWatcher &operator=(const DefaultOutputWatcher &) = delete;
    virtual ~DefaultOutputWatcher() = default;

    /// `listener` runs on the device-notification thread, one call at a time. A second listen()
    /// replaces the listener. Returns noAudioDevice where changes can't be watched.
    virtual Status listen(std::function<void()> listener) = 0;

    /// The listener is to be called once more, as on a change: when the server answers, at once
    /// where there is none. Any thread; takes no lock and does not wait. May come before listen().
    virtual void requestCall() noexcept {}
};

/// Makes the stages of a chain; a test replaces the output by one that is pulled by hand. A null
/// result is a missing component.
struct AudioUnitFactory {
    std::function<std::unique_ptr<EqualizerUnit>()> equalizer;
    std::function<std::unique_ptr<TimePitchUnit>()> timePitch;
    std::function<std::unique_ptr<OutputUnit>()> output;
    std::function<std::unique_ptr<DefaultOutputWatcher>()> defaultOutputWatcher;
};

/// The stages that the program plays through: GraphicEqualizer, TimePitch, CubebOutput and the
/// watcher.
AudioUnitFactory platformAudioUnits();

} // namespace lyrabox
