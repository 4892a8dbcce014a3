#include "engine/AudioEngineControl.h"
#include "engine/ReadySongs.h"
#include "engine/SongChannels.h"
#include "engine/SongDecoder.h"
#include "engine/SongPreparation.h"
#include "platform/audio/DecodingModule.h"
#include "platform/foundation/Machine.h"

#include <limits>
#include <utility>

namespace lyrabox::engine {

namespace {

constexpr std::uint64_t unlimited = std::numeric_limits<std::uint64_t>::max();

std::uint64_t sum(std::uint64_t a, std::uint64_t b)
{
    return a > unlimited - b ? unlimited : a + b;
}

std::uint64_t availableMemory()
{
    const auto &probe = control().availableMemoryProbe;
    return probe ? probe() : systemAvailableMemory().value_or(unlimited);
}

/// How many bytes the next song may take. The old song is released unless a reader holds it, and
/// songs that are ready are dropped if the next one needs their memory.
std::uint64_t memoryForSong(const AudioStreamBasicDescription &format)
{
    const bool isReleased = control().song.use_count() == 1;
    const std::uint64_t old = isReleased ? totalFrames() * bytesPerFrameOf(format) : 0;
    const std::uint64_t ready = readySongs() ? readySongs()->releasableBytes() : 0;
    return sum(availableMemory(), sum(old, ready));
}

bool dropReadySongs()
{
    return readySongs() && readySongs()->drop();
}

void setArtwork(const QByteArray &artwork)
{
    state().albumArtData = artwork.isEmpty() ? QByteArray() : artwork;
}

/// Makes a song that was decoded in advance the engine's song. Returns false if there is none.
bool takeReadySong(const QUrl &url, const AudioStreamBasicDescription &format)
{
    const auto ready = readySongs() ? readySongs()->take(url, format) : std::nullopt;
    if (!ready)
        return false;
    ready->song->setFile(ready->file.stamp);
    installSong(ready->song);
    setArtwork(ready->artwork);
    seekToFrame(0);
    return true;
}

} // namespace

void setSongReaderFactory(SongReaderFactory factory)
{
    control().songReaderFactory = std::move(factory);
}

SongReaderFactory songReaderFactory()
{
    if (const SongReaderFactory &factory = control().songReaderFactory)
        return factory;
    return [] { return decodingModule().makeSongReader(); };
}

void setAvailableMemoryProbe(std::function<std::uint64_t()> probe)
{
    control().availableMemoryProbe = std::move(probe);
}

std::function<std::uint64_t()> availableMemoryProbe()
{
    if (const auto &probe = control().availableMemoryProbe)
        return probe;
    return [] { return systemAvailableMemory().value_or(unlimited); };
}

void setReadySongs(ReadySongs *songs)
{
    control().readySongs = songs;
}

ReadySongs *readySongs()
{
    return control().readySongs;
}

void setLoadProgressHook(ProgressHook hook, ProgressClock clock)
{
    control().loadProgressHook = std::move(hook);
    control().loadProgressClock = std::move(clock);
}

void installSong(std::shared_ptr<DecodedSong> song)
{
    dropClicksAndLeadIns();
    setChannelTools({});
    // If a callback runs by mistake, it must find no song.
    state().totalFrames.store(0, std::memory_order_release);
    for (std::uint32_t i = 0; i < maximumChannels; ++i) {
        std::byte *data = song && i < song->channels() ? song->data(i) : nullptr;
        state().channelBuffers[i].store(data, std::memory_order_release);
    }
    state().channelIndex.store(song ? song->channels() : 0, std::memory_order_relaxed);
    state().totalFrames.store(song ? song->frames() : 0, std::memory_order_release);
    control().song = std::move(song);
}

std::shared_ptr<const DecodedSong> decodedSong()
{
    const auto &song = control().song;
    return song && song->frames() > 0 ? song : nullptr;
}

Status loadAudioFile(const QUrl &url)
{
    const AudioStreamBasicDescription format = streamFormat();
    if (takeReadySong(url, format))
        return status::noError;

    ProgressPacer progress(control().loadProgressHook, control().loadProgressClock);
    qint64 secondsDecoded = 0;
    const auto room = [](std::uint64_t) { return availableMemory(); };
    SongDecoder decoder(songReaderFactory()(), format, {.room = room, .makeRoom = &dropReadySongs});
    decoder.setWaitHook([&] { progress.advance(secondsDecoded); });
    const std::optional<files::FileIdentity> file = identityOf(url.toLocalFile());
    if (const Status status = decoder.open(url.toLocalFile()))
        return status;
    if (!decoder.fits(memoryForSong(format)))
        return status::notEnoughMemory;

    const auto secondsOf = [&format](std::uint64_t count) {
        return static_cast<qint64>(wholeSeconds(count, format.mSampleRate));
    };
    progress.setTotal(secondsOf(decoder.estimatedFrames().value_or(0)));
    installSong(std::make_shared<DecodedSong>(format)); // Frees the old song.
    const Status result = decoder.decode([&](std::uint64_t frames) {
        secondsDecoded = secondsOf(frames);
        progress.advance(secondsDecoded);
    });
    if (std::shared_ptr<DecodedSong> song = decoder.song()) {
        if (file)
            song->setFile(file->stamp);
        installSong(std::move(song));
    }
    setArtwork(decoder.artwork());
    seekToFrame(0);
    return result;
}

void emptyAudioBuffers()
{
    placeAtFrame(0);
    state().channelIndex.store(0, std::memory_order_relaxed);
    installSong(std::make_shared<DecodedSong>(streamFormat()));
    state().albumArtData = {};
}

} // namespace lyrabox::engine
