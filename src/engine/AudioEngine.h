#pragma once

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

/// The playback engine: one decoded song in memory, played through render routine, equalizer,
/// time/pitch and output, with a frame-accurate position and an optional loop. Process-wide state
/// with plain functions over it.
///
/// Three threads come here: the main thread (everything), the audio callback thread
/// (renderCallback() only) and the device-notification thread (defaultOutputChanged() only). The
/// latter two never wait for each other; main and notification thread are serialised by one mutex,
/// so a call from the main thread may wait while the chain is rebuilt. Positions and loop points
/// are frames at the rate of streamFormat(), and no range is checked.
namespace lyrabox::engine {

/// The engine's one record. All fields start zeroed. Fields that the callback thread meets are
/// lock-free atomics.
struct AudioEngineState {
    QByteArray albumArtData; ///< null: no artwork
    std::array<std::atomic<std::byte *>, maximumChannels>
        channelBuffers{};                       ///< totalFrames frames each
    AudioStreamBasicDescription streamFormat{}; ///< changes only with no callback running
    std::atomic<std::uint32_t> channelIndex{0}; ///< where the last per-channel loop ended
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

/// buildAudioSystem(): the factory has no such unit.
constexpr Status missingComponent = -3000;

/// Frames of one read while decoding.
constexpr std::uint32_t framesPerRead = 8192;

// Seams. Each is set before the operation that uses it; an empty function restores the program's
// own.
/// Who makes the stages; platformAudioUnits() at first. Set before buildAudioSystem().
void setAudioUnitFactory(AudioUnitFactory factory);
void setSongReaderFactory(SongReaderFactory factory);
/// How many bytes a new song may take; by default what the system reports as available without
/// swapping.
void setAvailableMemoryProbe(std::function<std::uint64_t()> probe);

/// Told by loadAudioFile() how many seconds of the song are decoded, of how many as far as the file
/// tells; see ProgressPacer for when. `clock` is its clock, the monotonic one at first.
void setLoadProgressHook(ProgressHook hook, ProgressClock clock = {});

/// Makes, initialises and connects the stages, in this order: equalizer, time/pitch, output. The
/// first failing step's status is returned and the later steps are not taken. A new chain that is
/// whole replaces the old one, whose output is stopped first and whose resources are released;
/// otherwise the old one stays as it stands. The new output is stopped. Output stopped or first
/// build.
///
/// A sound server that hangs is no failure: the chain is built without a device, and rebuilt like
/// on a change of the device as soon as the server answers. See soundStatus().
Status buildAudioSystem();

/// Begins in the background what would let the first start of the output wait, for this chain and
/// every later one. Any time after buildAudioSystem(); a start that comes before waits.
void prepareForPlayback();

/// Fills the equalizer's input from the song. Audio callback thread. At the end of the song (two
/// pulls before the last frame) it stops the output instead and leaves `ioData` untouched; what
/// time/pitch still holds is played out. Frames that the song does not have, for whatever position
/// or loop point, are silence. A seek made while it runs is kept; but once the end is decided, a
/// seek made in the same call is dropped.
Status renderCallback(void *inRefCon, std::uint32_t inNumberFrames,
                      AudioBufferList &ioData) noexcept;

/// Starts or stops the output; no callback runs any more once a stop has returned. The output's
/// status is discarded. A start on a device that is lost rebuilds the chain once. While the chain
/// waits for a device (see defaultOutputChanged()), says what to do when one is there. A sound
/// server that hangs is waited for two seconds; from then on the engine goes on without sound until
/// the server answers.
void setOutputRunning(bool running);
/// Started and not stopped since, by whomever. While the chain waits for a device: whether it goes
/// on when one is there.
bool outputIsRunning();

/// Why nothing can be heard: noAudioDevice, soundServerHangs or what a rebuild has failed with;
/// otherwise noError. A server that stops in mid song is seen by calls that go on for longer than
/// OutputUnit::serverPatience.
Status soundStatus();
/// `hook` is called when what the engine itself does has changed soundStatus(), on whichever thread
/// has found that out. It must not call the engine. Returns when no earlier hook is being called.
void setSoundStatusHook(std::function<void()> hook);

/// Moves the position and drops what the stages hold, so that the new position is heard at once.
void seekToFrame(std::uint64_t frame);

/// While `kept`: what a song that has ended left in time/pitch is not cut off by
/// setOutputRunning(false), loadAudioFile() and emptyAudioBuffers(), and what is started next
/// follows it. Only for changes that follow a song's end. Main thread.
void setHeldSoundIsKept(bool kept);

/// Halts the output once what was kept has been heard and nothing plays; until then the device goes
/// on. To be called from time to time. Main thread.
void haltWhenPlayedOut();

/// Decodes the whole file into the engine, takes its artwork along and goes to frame 0. Output
/// stopped; main thread; blocks. On a failure to open or convert the engine's song is unchanged; a
/// failure while reading keeps what was decoded. notEnoughMemory: before reading, when the song
/// would not fit (the song is unchanged); while reading, when memory ran out (the engine is then
/// empty).
Status loadAudioFile(const QUrl &url);

/// Drops the song and its artwork. Output stopped; main thread.
void emptyAudioBuffers();

/// Rebuilds the chain on the new default device, or on the old one whose stream was lost, and
/// carries over the volume, rate, pitch, the ten equalizer bands in use and whether it was running.
/// When the rebuild fails (no device is left) the old chain stays, silent, with its values, and the
/// next change that succeeds takes them over and resumes. Device-notification thread.
Status defaultOutputChanged();

/// Stops the output and forgets the chain, the watcher, the song and every field. For the end of
/// the program and between tests. Main thread.
void tearDownAudioSystem();

// Fields.
std::uint64_t currentFrame();
/// The frame of the song that is heard now: currentFrame() minus what time/pitch and the output
/// hold. A loop's jump is followed back. Main thread. Exact to what the device asks for at a time,
/// about 10 ms, and to 30 ms in the first moments after a change of speed. Never beyond
/// totalFrames().
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

// Parameters; 0.0 when there is no chain.
float outputVolume();
void setOutputVolume(float volume);
float playbackRate();
void setPlaybackRate(float rate);
float pitchCents();
void setPitchCents(float cents);
float eqLevel(std::uint32_t parameterID);
void setEqLevel(std::uint32_t parameterID, float level);

} // namespace lyrabox::engine
