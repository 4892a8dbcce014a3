#pragma once

#include "engine/AudioEngine.h"
#include "engine/Chain.h"
#include "engine/DecodedSong.h"
#include "engine/ReadingPoint.h"

#include <mutex>

/// Shared by the engine's own source files. Other folders don't include it.
namespace lyrabox::engine {

/// The engine's state that the callback thread does not use.
struct Control {
    std::mutex mutex; ///< for the main and the notification thread, never the callback
    Chain chain;
    /// Lives as long as the engine. A rebuild runs on the watcher's thread and can't replace it.
    std::unique_ptr<DefaultOutputWatcher> watcher;
    /// The output could not be rebuilt or started. The next device change starts it if
    /// runOnNextDevice is set.
    bool waitsForDevice = false;
    bool runOnNextDevice = false;
    Status soundStatus = status::noError; ///< of the engine's own operations
    std::function<void()> soundStatusHook;
    bool isPrepared = false; ///< prepareForPlayback() was called: later chains are prepared, too
    bool heldSoundIsKept = false;
    bool haltIsDue = false; ///< the device stops when the ended song has been played out

    // Main thread.
    std::shared_ptr<DecodedSong> song; ///< the memory behind AudioEngineState::channelBuffers

    // Main thread. Set before use.
    AudioUnitFactory factory;
    SongReaderFactory songReaderFactory;
    std::function<std::uint64_t()> availableMemoryProbe;
    ProgressHook loadProgressHook;
    ProgressClock loadProgressClock;
    ReadySongs *readySongs = nullptr;
};

AudioEngineState &state();

/// What the callback thread and the control side tell each other about reading the song.
ReadingPointExchange &reading();

/// Takes the newest reading point that the callback has published. The caller holds the mutex.
const ReadingPoint &newestReadingPoint();

/// The frames of the song that time/pitch and the output hold. The caller holds the mutex.
std::uint64_t heldSongFrames();

/// heardFrame() for a caller that holds the mutex.
std::uint64_t heardFrameLocked();

/// Switches off the clicks and lead-ins, which belong to the song. The output must be stopped.
void dropClicksAndLeadIns();

/// Sets the position and counts as a seek. Does not reset the stages.
void placeAtFrame(std::uint64_t frame);

/// Never destroyed, because threads of the sound system may outlive static objects.
Control &control();

/// Makes the reader of a song: the replaced one, or the program's own.
SongReaderFactory songReaderFactory();

/// Returns how many bytes of memory the system can give now. The function belongs to the caller and
/// may be called on any thread.
std::function<std::uint64_t()> availableMemoryProbe();

/// Replaces the engine's song. Null leaves no channel buffers at all. The output must be stopped.
void installSong(std::shared_ptr<DecodedSong> song);

} // namespace lyrabox::engine
