#pragma once

#include "engine/AudioEngine.h"
#include "engine/ReadingPoint.h"

#include <mutex>

/// What the engine's own source files share; nobody else includes it.
namespace lyrabox::engine {

/// The stages that belong together. The output goes first when a chain is destroyed.
struct Chain {
    std::unique_ptr<EqualizerUnit> equalizer;
    std::unique_ptr<TimePitchUnit> timePitch;
    std::unique_ptr<OutputUnit> output;
    AudioStreamBasicDescription format{};
};

/// The control side of the engine: everything that the callback thread does not meet.
struct Control {
    std::mutex mutex; ///< held by main and notification thread, never by the callback thread
    Chain chain;
    /// One for the life of the engine: a rebuild runs on its thread, so it can't be replaced by
    /// one.
    std::unique_ptr<DefaultOutputWatcher> watcher;
    /// The output could not be rebuilt or started; the next device change decides by
    /// runOnNextDevice.
    bool waitsForDevice = false;
    bool runOnNextDevice = false;
    Status soundStatus = status::noError; ///< as soundStatus() gives it
    std::function<void()> soundStatusHook;
    bool isPrepared = false; ///< and so is every chain to come
    bool heldSoundIsKept = false;
    bool haltIsDue = false; ///< a stop was put off, so that what was held is heard

    // Main thread, set before use.
    AudioUnitFactory factory;
    SongReaderFactory songReaderFactory;
    std::function<std::uint64_t()> availableMemoryProbe;
    ProgressHook loadProgressHook;
    ProgressClock loadProgressClock;
};

AudioEngineState &state();

/// How playback came to where it is; for heardFrame().
ReadingPointExchange &reading();

/// Sets the position and counts that as a seek, without touching the stages.
void placeAtFrame(std::uint64_t frame);

/// Never destroyed: threads of the sound system may still be running when static objects go.
Control &control();

/// Frees the samples of the first `channels` channels; `placeholder`: each gets one byte instead,
/// as an empty song has.
void releaseChannelBuffers(std::uint32_t channels, bool placeholder);

} // namespace lyrabox::engine
