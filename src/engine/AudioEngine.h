#pragma once

#include "engine/DecodedSong.h"
#include "platform/audio/AudioUnit.h"
#include "platform/audio/SongReader.h"
#include "platform/audio/StreamFormat.h"
#include "platform/foundation/ProgressPacer.h"
#include "platform/foundation/Status.h"

#include <QByteArray>
#include <QUrl>

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>

/// The playback engine. It holds one decoded song in memory and plays it through a chain of stages:
/// the render routine, the equalizer, time/pitch and the output. It has a frame-accurate position
/// and an optional loop. The engine is process-wide state with free functions;
/// docs/kept-on-purpose.md says why it is not a class.
///
/// The audio callback thread calls only renderCallback(). The device-notification thread calls only
/// defaultOutputChanged(). Everything else belongs to the main thread. One mutex serialises the
/// main and the notification thread, so a call on the main thread may wait while the chain is
/// rebuilt. The callback thread never takes the mutex.
///
/// Positions and loop points are frames at the rate of streamFormat(). Their range is not checked.
namespace lyrabox::engine {

class ReadySongs;

/// The engine's only record. All fields start zeroed. Fields that the callback thread uses are
/// lock-free atomics. `eqUnit` and `channelIndex` only mirror other state; see
/// docs/kept-on-purpose.md.
struct AudioEngineState {
    QByteArray albumArtData; ///< null without artwork
    std::array<std::atomic<std::byte *>, maximumChannels>
        channelBuffers{}; ///< totalFrames frames each; decodedSong() owns them
    AudioStreamBasicDescription streamFormat{}; ///< changes only while no callback runs
    std::atomic<std::uint32_t> channelIndex{0}; ///< how many channels the last callback filled
    std::atomic<std::uint64_t> currentFrame{0}; ///< the next frame to render
    EqualizerUnit *eqUnit = nullptr;
    std::atomic<bool> isLooping{false};
    std::atomic<std::uint64_t> loopEndFrame{0};
    std::atomic<std::uint64_t> loopStartFrame{0};
    std::atomic<OutputUnit *> outputUnit{nullptr};
    std::atomic<TimePitchUnit *> timePitchUnit{nullptr};
    std::atomic<std::uint64_t> totalFrames{0};
    std::atomic<bool> trackHasEnded{
        false}; ///< the render routine stopped the output at the end of the song
};
static_assert(std::atomic<std::uint64_t>::is_always_lock_free &&
              std::atomic<bool>::is_always_lock_free &&
              std::atomic<std::byte *>::is_always_lock_free);

/// buildAudioSystem() returns this if the factory could not make a unit.
constexpr Status missingComponent = -3000;

// Replaceable parts, for tests. Set each before the operation that uses it. An empty function
// restores the program's own part.
/// Makes the stages. The default is platformAudioUnits(). Set it before buildAudioSystem().
void setAudioUnitFactory(AudioUnitFactory factory);
/// Makes the reader of a song. The default is DecodingModule::makeSongReader().
void setSongReaderFactory(SongReaderFactory factory);
/// Returns how many bytes a new song may take. The default is the memory that the system can give
/// without swapping.
void setAvailableMemoryProbe(std::function<std::uint64_t()> probe);

/// Reports the seconds decoded and, if known, the total, while loadAudioFile() runs, as often as
/// ProgressPacer allows. An empty `clock` means the monotonic clock.
void setLoadProgressHook(ProgressHook hook, ProgressClock clock = {});

/// Lets loadAudioFile() take over songs that were decoded in advance. Null: every load decodes. Not
/// owned; ReadySongs sets and removes itself.
void setReadySongs(ReadySongs *songs);
ReadySongs *readySongs();

/// Makes, initialises and connects the stages in this order: equalizer, time/pitch, output. Stops
/// at the first step that fails and returns its status. A complete new chain replaces the old one,
/// which is stopped and released. After a failure the old chain stays. The new output is stopped.
/// Call it for the first build, or while the output is stopped.
///
/// A sound server that hangs does not count as a failure. The chain is then built without a device,
/// and rebuilt as soon as the server answers. See soundStatus().
Status buildAudioSystem();

/// Starts work in the background that the first start of the output would otherwise wait for.
/// Applies to this chain and every later one. Call it after buildAudioSystem().
void prepareForPlayback();

/// Audio callback thread. Fills the equalizer's input from the song. `inRefCon` is not used. If no
/// more than 2 * `inNumberFrames` frames are left, the song ends: the call stops the output instead
/// and leaves `ioData` untouched. The time/pitch stage then plays out the frames that it holds.
/// Frames outside the song are silence. A seek during the call wins, unless the song has just
/// ended: then the seek is dropped.
Status renderCallback(void *inRefCon, std::uint32_t inNumberFrames,
                      AudioBufferList &ioData) noexcept;

/// Call it before a song is loaded that will be played at once. The device then starts with
/// silence during the load, so that the song is heard sooner. Does not wait for the device.
void expectOutputStart();

/// Starts or stops the output. After a stop has returned, no callback pulls the song. If the device
/// is lost, a start rebuilds the chain once. While the chain waits for a device (see
/// defaultOutputChanged()), this says whether to run when there is one. The call waits at most two
/// seconds for a sound server that hangs; the engine then runs without sound until the server
/// answers. Failures show in soundStatus().
void setOutputRunning(bool running);
/// Whether the output was started and not stopped since. While the chain waits for a device:
/// whether it will run when there is one.
bool outputIsRunning();

/// The reason why nothing can be heard: noAudioDevice, soundServerHangs or the status of a failed
/// rebuild. noError otherwise. To find a server that hangs in the middle of a song, ask repeatedly:
/// the status changes after OutputUnit::serverPatience.
Status soundStatus();
/// The engine calls `hook` when one of its own operations has changed soundStatus(). The hook runs
/// on the thread of that operation and must not call the engine. When this function returns, the
/// former hook is not running.
void setSoundStatusHook(std::function<void()> hook);

/// Moves the position and drops the frames that the stages hold, so that the new position is heard
/// at once.
void seekToFrame(std::uint64_t frame);

/// The same. But if the output runs and a start has a lead-in (setLeadInAtStart()), the output
/// stops, moves, and starts again with the lead-in.
void startAtFrame(std::uint64_t frame);

/// Whether the last frames of an ended song, which time/pitch still holds, are kept. While they are
/// kept, setOutputRunning(false), loadAudioFile() and emptyAudioBuffers() do not cut them off, and
/// the next song follows them. Set it only for changes that follow the end of a song.
void setHeldSoundIsKept(bool kept);

/// Halts the output if the kept frames have been heard and nothing plays. Until then the device
/// runs on. Call it repeatedly, for example with the display's timer.
void haltWhenPlayedOut();

/// Decodes the whole file into the engine, takes its artwork and moves to frame 0. If the song is
/// ready (see ReadySongs), takes it over instead, with the same result. Blocks. The output must be
/// stopped. If the file can't be opened or converted, or would not fit into memory
/// (notEnoughMemory), the engine keeps its song. A failure while reading keeps the part that was
/// decoded. If memory runs out while reading, the engine is empty afterwards (notEnoughMemory).
Status loadAudioFile(const QUrl &url);

/// The song that loadAudioFile() decoded last, or null if the engine holds no frames. The caller
/// may keep it while the engine loads another one. Its memory is freed with the last reference. Any
/// thread may read it.
std::shared_ptr<const DecodedSong> decodedSong();

/// Drops the song and its artwork. The output must be stopped.
void emptyAudioBuffers();

/// Rebuilds the chain on the new default device, or on the old one if only its stream was lost.
/// Keeps the volume, the rate, the pitch, the ten equalizer bands with a control, and whether the
/// output runs. If the rebuild fails because there is no device, the old chain stays silent with
/// its values. The next change that succeeds takes them over and resumes. Device-notification
/// thread.
Status defaultOutputChanged();

/// Stops the output and drops the chain, the watcher, the song and every field. For the end of the
/// program and between tests.
void tearDownAudioSystem();

// Fields.
/// The next frame to render. It is ahead of what is heard, see heardFrame().
std::uint64_t currentFrame();
/// The frame of the song that is heard now: currentFrame() minus the frames that time/pitch and the
/// output hold. It goes back over a loop's jump, stands still in a lead-in, and never exceeds
/// totalFrames(). Main thread. It is accurate to one request of the device, about 10 ms. Right
/// after a change of speed it may be off by up to 35 ms, because the device still holds frames of
/// the former speed.
std::uint64_t heardFrame();
std::uint64_t totalFrames();
std::uint64_t loopStartFrame();
void setLoopStartFrame(std::uint64_t frame);
std::uint64_t loopEndFrame();
void setLoopEndFrame(std::uint64_t frame);
bool isLooping();
void setIsLooping(bool looping);
bool trackHasEnded();
void setTrackHasEnded(bool ended);
QByteArray albumArtData();
AudioStreamBasicDescription streamFormat();

/// Whole seconds, truncated toward zero; 0 for a rate that is not positive.
std::int64_t wholeSeconds(std::uint64_t frames, double sampleRate);

// Parameters, with the units of namespace `parameter`. 0.0 without a chain.
float outputVolume();
void setOutputVolume(float volume);
float playbackRate();
void setPlaybackRate(float rate);
float pitchCents();
void setPitchCents(float cents);
float eqLevel(std::uint32_t parameterID);
void setEqLevel(std::uint32_t parameterID, float level);

} // namespace lyrabox::engine
