#include "engine/AudioEngineControl.h"
#include "platform/audio/DecodingModule.h"
#include "platform/foundation/Machine.h"

#include <algorithm>
#include <cstdlib>
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

/// The channel buffers while a song is decoded into them.
class GrowingBuffers {
public:
    /// `frames`: as many as are expected, 0 when that is not known.
    GrowingBuffers(const AudioStreamBasicDescription &format, std::uint64_t frames)
        : m_bytesPerFrame(format.mBytesPerFrame),
          m_channels(std::min(format.mChannelsPerFrame, maximumChannels)),
          m_expected(frames * m_bytesPerFrame)
    {
        releaseChannelBuffers(m_channels, true);
    }

    std::uint64_t decodedBytes() const { return m_decoded; }

    /// Makes room for `frames` more and points `list` at it; false when there is no memory for it.
    /// Buffers take the expected size at once, and grow in larger steps than asked for, so that a
    /// long song is not moved at every read. Memory that is not written to costs nothing.
    bool prepareRead(std::uint32_t frames, AudioBufferList &list)
    {
        const std::uint64_t needed = m_decoded + std::uint64_t{m_bytesPerFrame} * frames + 1;
        if (needed > m_capacity) {
            const std::uint64_t step = std::clamp(m_capacity / 2, smallestStep, largestStep);
            const std::uint64_t whole = m_decoded == 0 ? m_expected + needed : needed;
            const std::uint64_t roomy = std::max(whole, m_capacity + step);
            if (!fits(roomy) || !resize(roomy)) {
                if (!fits(needed) || !resize(needed))
                    return false;
            }
        }
        list.mNumberBuffers = m_channels;
        for (std::uint32_t i = 0; i < m_channels; ++i) {
            list.mBuffers[i].mNumberChannels = 1;
            list.mBuffers[i].mDataByteSize = m_bytesPerFrame * frames;
            list.mBuffers[i].mData =
                state().channelBuffers[i].load(std::memory_order_relaxed) + m_decoded;
        }
        state().channelIndex.store(m_channels, std::memory_order_relaxed);
        return true;
    }

    void addDecoded(std::uint32_t frames) { m_decoded += std::uint64_t{m_bytesPerFrame} * frames; }

    /// Gives back what is not needed, save one byte.
    void trim() { resize(m_decoded + 1); }

private:
    static constexpr std::uint64_t smallestStep = 1U << 20;
    static constexpr std::uint64_t largestStep = 16U << 20;
    static constexpr std::uint64_t smallestLarge = 4U << 20; ///< has memory pages of its own

    /// What is decoded is in memory already, whatever the rest is.
    bool fits(std::uint64_t capacity) const
    {
        return (capacity - m_decoded) <= availableMemory() / std::max(m_channels, 1U);
    }

    bool resize(std::uint64_t capacity)
    {
        for (std::uint32_t i = 0; i < m_channels; ++i) {
            auto &slot = state().channelBuffers[i];
            void *grown = std::realloc(slot.load(std::memory_order_relaxed), capacity);
            if (!grown)
                return false;
            slot.store(static_cast<std::byte *>(grown), std::memory_order_release);
            if (capacity >= smallestLarge)
                expectToBeFilled(grown, capacity);
        }
        m_capacity = capacity;
        return true;
    }

    std::uint32_t m_bytesPerFrame;
    std::uint32_t m_channels;
    std::uint64_t m_expected;
    std::uint64_t m_capacity = 1;
    std::uint64_t m_decoded = 0;
};

/// Whether the song fits. The song it replaces makes room for it. Where the container does not tell
/// the length, or tells one that the song is refused for, its packets are counted.
bool songFits(const SongReader &reader, const AudioStreamBasicDescription &format)
{
    // Between the most and the least bits per second that an MP3 spends lie forty times.
    constexpr std::uint64_t worstGuess = 40;
    const std::uint64_t bytesPerFrame =
        std::max<std::uint64_t>(std::uint64_t{format.mBytesPerFrame} * format.mChannelsPerFrame, 1);
    const std::uint64_t available = availableMemory();
    const std::uint64_t returned = totalFrames() * bytesPerFrame;
    const std::uint64_t room =
        (available > unlimited - returned ? unlimited : available + returned) / bytesPerFrame;
    const std::optional<std::uint64_t> estimate = reader.estimatedFrames();
    if (estimate && *estimate <= room / (reader.isEstimateSure() ? 1 : worstGuess))
        return true;
    if (const auto counted = reader.countedFrames(room + 1))
        return *counted <= room;
    return !estimate || *estimate <= room;
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

void releaseChannelBuffers(std::uint32_t channels, bool placeholder)
{
    // No song, whatever a callback that should not be there finds.
    state().totalFrames.store(0, std::memory_order_release);
    for (std::uint32_t i = 0; i < std::min(channels, maximumChannels); ++i) {
        auto &slot = state().channelBuffers[i];
        std::free(slot.exchange(nullptr, std::memory_order_acq_rel));
        if (placeholder)
            slot.store(static_cast<std::byte *>(std::calloc(1, 1)), std::memory_order_release);
        state().channelIndex.store(i + 1, std::memory_order_relaxed);
    }
}

Status loadAudioFile(const QUrl &url)
{
    ProgressPacer progress(control().loadProgressHook, control().loadProgressClock);
    const auto &factory = control().songReaderFactory;
    qint64 secondsDecoded = 0;
    const std::unique_ptr<SongReader> reader =
        factory ? factory() : decodingModule().makeSongReader();
    reader->setWaitHook([&] { progress.advance(secondsDecoded); });
    if (const Status status = reader->open(url.toLocalFile(), SongReader::Depth::Samples))
        return status;
    AudioStreamBasicDescription ownFormat{};
    if (const Status status = reader->fileDataFormat(ownFormat))
        return status;
    const AudioStreamBasicDescription format = streamFormat();
    if (const Status status = reader->setClientDataFormat(format))
        return status;
    if (!songFits(*reader, format))
        return status::notEnoughMemory;

    const auto secondsOf = [&format](std::uint64_t count) {
        return static_cast<qint64>(wholeSeconds(count, format.mSampleRate));
    };
    const std::uint64_t estimate = reader->estimatedFrames().value_or(0);
    progress.setTotal(secondsOf(estimate));
    GrowingBuffers buffers(format, estimate);
    AudioBufferList list;
    Status result = status::noError;
    std::uint32_t frames = framesPerRead;
    bool outOfMemory = false;
    do {
        if (!buffers.prepareRead(frames, list)) {
            outOfMemory = true;
            result = status::notEnoughMemory;
            break;
        }
        const std::uint32_t asked = frames;
        result = reader->read(frames, list);
        if (result != status::noError)
            break;
        frames = std::min(frames, asked);
        buffers.addDecoded(frames);
        secondsDecoded = secondsOf(buffers.decodedBytes() / std::max(format.mBytesPerFrame, 1U));
        progress.advance(secondsDecoded);
    } while (frames > 0);

    if (outOfMemory) {
        releaseChannelBuffers(format.mChannelsPerFrame, true);
    } else {
        buffers.trim();
        state().totalFrames.store(buffers.decodedBytes() / std::max(format.mBytesPerFrame, 1U),
                                  std::memory_order_release);
    }
    const QByteArray artwork = reader->albumArtwork();
    state().albumArtData = artwork.isEmpty() ? QByteArray() : artwork;
    seekToFrame(0);
    return result;
}

void emptyAudioBuffers()
{
    placeAtFrame(0);
    state().channelIndex.store(0, std::memory_order_relaxed);
    releaseChannelBuffers(streamFormat().mChannelsPerFrame, true);
    state().albumArtData = {};
}

} // namespace lyrabox::engine
