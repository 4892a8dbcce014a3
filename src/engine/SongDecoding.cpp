#include "engine/AudioEngineControl.h"
#include "platform/audio/DecodingModule.h"
#include "platform/foundation/Machine.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace lyrabox::engine {

namespace {

constexpr std::uint64_t unlimited = std::numeric_limits<std::uint64_t>::max();

std::uint64_t availableMemory()
{
    const auto &probe = control().availableMemoryProbe;
    return probe ? probe() : systemAvailableMemory().value_or(unlimited);
}

/// A song that is being decoded. Its buffers grow with it.
class GrowingSong {
public:
    /// `frames` is the expected length, or 0 if it is unknown.
    GrowingSong(const AudioStreamBasicDescription &format, std::uint64_t frames)
        : m_song(std::make_shared<DecodedSong>(format)),
          m_bytesPerFrame(format.mBytesPerFrame),
          m_channels(m_song->channels()),
          m_expected(frames * m_bytesPerFrame)
    {}

    std::uint64_t decodedFrames() const { return m_decoded / std::max(m_bytesPerFrame, 1U); }
    /// Whether prepareRead() has failed.
    bool isOutOfMemory() const { return m_isOutOfMemory; }

    /// Makes room for `frames` more frames and points `list` at it. Returns false if there is not
    /// enough memory. The buffers get their expected size at once and then grow in large steps, so
    /// that a long song is not moved at every read. Pages that are never written cost no memory.
    bool prepareRead(std::uint32_t frames, AudioBufferList &list)
    {
        const std::uint64_t needed = m_decoded + std::uint64_t{m_bytesPerFrame} * frames + 1;
        if (needed > m_capacity) {
            const std::uint64_t step = std::clamp(m_capacity / 2, smallestStep, largestStep);
            const std::uint64_t whole = m_decoded == 0 ? m_expected + needed : needed;
            const std::uint64_t roomy = std::max(whole, m_capacity + step);
            if (!fits(roomy) || !resize(roomy)) {
                if (!fits(needed) || !resize(needed)) {
                    m_isOutOfMemory = true;
                    return false;
                }
            }
        }
        list.mNumberBuffers = m_channels;
        for (std::uint32_t i = 0; i < m_channels; ++i) {
            list.mBuffers[i].mNumberChannels = 1;
            list.mBuffers[i].mDataByteSize = m_bytesPerFrame * frames;
            list.mBuffers[i].mData = m_song->data(i) + m_decoded;
        }
        state().channelIndex.store(m_channels, std::memory_order_relaxed);
        return true;
    }

    void addDecoded(std::uint32_t frames) { m_decoded += std::uint64_t{m_bytesPerFrame} * frames; }

    /// The song, without unused memory, except one byte per channel.
    std::shared_ptr<DecodedSong> finished()
    {
        resize(m_decoded + 1);
        m_song->setFrames(decodedFrames());
        return m_song;
    }

private:
    static constexpr std::uint64_t smallestStep = 1U << 20;
    static constexpr std::uint64_t largestStep = 16U << 20;

    /// Only the part that is not decoded yet needs new memory.
    bool fits(std::uint64_t capacity) const
    {
        return (capacity - m_decoded) <= availableMemory() / std::max(m_channels, 1U);
    }

    bool resize(std::uint64_t capacity)
    {
        if (!m_song->resize(capacity))
            return false;
        m_capacity = capacity;
        return true;
    }

    std::shared_ptr<DecodedSong> m_song;
    std::uint32_t m_bytesPerFrame;
    std::uint32_t m_channels;
    std::uint64_t m_expected;
    std::uint64_t m_capacity = 1;
    std::uint64_t m_decoded = 0;
    bool m_isOutOfMemory = false;
};

/// Whether the song fits into memory, given that the old song is released unless a reader holds it.
/// If the container does not state the length, or the stated one would not fit, the packets are
/// counted.
bool songFits(const SongReader &reader, const AudioStreamBasicDescription &format)
{
    // The highest bit rate of an MP3 is forty times the lowest.
    constexpr std::uint64_t worstGuess = 40;
    const std::uint64_t bytesPerFrame =
        std::max<std::uint64_t>(std::uint64_t{format.mBytesPerFrame} * format.mChannelsPerFrame, 1);
    const std::uint64_t available = availableMemory();
    const bool isReleased = control().song.use_count() == 1;
    const std::uint64_t returned = isReleased ? totalFrames() * bytesPerFrame : 0;
    const std::uint64_t room =
        (available > unlimited - returned ? unlimited : available + returned) / bytesPerFrame;
    const std::optional<std::uint64_t> estimate = reader.estimatedFrames();
    if (estimate && *estimate <= room / (reader.isEstimateSure() ? 1 : worstGuess))
        return true;
    if (const auto counted = reader.countedFrames(room + 1))
        return *counted <= room;
    return !estimate || *estimate <= room;
}

std::unique_ptr<SongReader> makeSongReader()
{
    const auto &factory = control().songReaderFactory;
    return factory ? factory() : decodingModule().makeSongReader();
}

/// Opens the song and checks that it fits into memory.
Status openSong(SongReader &reader, const QUrl &url, const AudioStreamBasicDescription &format)
{
    if (const Status status = reader.open(url.toLocalFile(), SongReader::Depth::Samples))
        return status;
    AudioStreamBasicDescription ownFormat{};
    if (const Status status = reader.fileDataFormat(ownFormat))
        return status;
    if (const Status status = reader.setClientDataFormat(format))
        return status;
    return songFits(reader, format) ? status::noError : status::notEnoughMemory;
}

/// Reads until the end of the song or the first failure. Calls `advanced` with the number of
/// decoded frames after every read.
Status decodeInto(GrowingSong &song, SongReader &reader,
                  const std::function<void(std::uint64_t)> &advanced)
{
    AudioBufferList list;
    std::uint32_t frames = framesPerRead;
    do {
        if (!song.prepareRead(frames, list))
            return status::notEnoughMemory;
        const std::uint32_t asked = frames;
        if (const Status status = reader.read(frames, list))
            return status;
        frames = std::min(frames, asked);
        song.addDecoded(frames);
        advanced(song.decodedFrames());
    } while (frames > 0);
    return status::noError;
}

} // namespace

void setSongReaderFactory(SongReaderFactory factory)
{
    control().songReaderFactory = std::move(factory);
}

void setAvailableMemoryProbe(std::function<std::uint64_t()> probe)
{
    control().availableMemoryProbe = std::move(probe);
}

void setLoadProgressHook(ProgressHook hook, ProgressClock clock)
{
    control().loadProgressHook = std::move(hook);
    control().loadProgressClock = std::move(clock);
}

void installSong(std::shared_ptr<DecodedSong> song)
{
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
    ProgressPacer progress(control().loadProgressHook, control().loadProgressClock);
    qint64 secondsDecoded = 0;
    const std::unique_ptr<SongReader> reader = makeSongReader();
    reader->setWaitHook([&] { progress.advance(secondsDecoded); });
    const AudioStreamBasicDescription format = streamFormat();
    if (const Status status = openSong(*reader, url, format))
        return status;

    const auto secondsOf = [&format](std::uint64_t count) {
        return static_cast<qint64>(wholeSeconds(count, format.mSampleRate));
    };
    const std::uint64_t estimate = reader->estimatedFrames().value_or(0);
    progress.setTotal(secondsOf(estimate));
    installSong(std::make_shared<DecodedSong>(format)); // Frees the old song.
    GrowingSong song(format, estimate);
    const Status result = decodeInto(song, *reader, [&](std::uint64_t frames) {
        secondsDecoded = secondsOf(frames);
        progress.advance(secondsDecoded);
    });
    if (!song.isOutOfMemory())
        installSong(song.finished());
    const QByteArray artwork = reader->albumArtwork();
    state().albumArtData = artwork.isEmpty() ? QByteArray() : artwork;
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
