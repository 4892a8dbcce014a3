#include "engine/SongDecoder.h"

#include <algorithm>
#include <utility>

namespace lyrabox::engine {

/// A song that is being decoded. Its buffers grow with it.
class SongDecoder::GrowingSong {
public:
    /// `frames` is the expected length, or 0 if it is unknown.
    GrowingSong(const AudioStreamBasicDescription &format, std::uint64_t frames,
                const SongMemory &memory)
        : m_song(std::make_shared<DecodedSong>(format)),
          m_memory(memory),
          m_bytesPerFrame(format.mBytesPerFrame),
          m_channels(m_song->channels()),
          m_expected(frames * m_bytesPerFrame)
    {}

    std::uint64_t decodedFrames() const { return m_decoded / std::max(m_bytesPerFrame, 1U); }

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
            if (!grow(roomy) && !(m_memory.makeRoom && m_memory.makeRoom() && grow(roomy)) &&
                !grow(needed)) {
                m_isOutOfMemory = true;
                return false;
            }
        }
        list.mNumberBuffers = m_channels;
        for (std::uint32_t i = 0; i < m_channels; ++i) {
            list.mBuffers[i].mNumberChannels = 1;
            list.mBuffers[i].mDataByteSize = m_bytesPerFrame * frames;
            list.mBuffers[i].mData = m_song->data(i) + m_decoded;
        }
        return true;
    }

    void addDecoded(std::uint32_t frames) { m_decoded += std::uint64_t{m_bytesPerFrame} * frames; }

    std::shared_ptr<DecodedSong> finished()
    {
        if (m_isOutOfMemory)
            return nullptr;
        resize(m_decoded + 1);
        m_song->setFrames(decodedFrames());
        return m_song;
    }

private:
    static constexpr std::uint64_t smallestStep = 1U << 20;
    static constexpr std::uint64_t largestStep = 16U << 20;

    bool grow(std::uint64_t capacity) { return hasRoom(capacity) && resize(capacity); }

    /// Only the part that is not decoded yet needs new memory.
    bool hasRoom(std::uint64_t capacity) const
    {
        const std::uint64_t channels = std::max(m_channels, 1U);
        return (capacity - m_decoded) <= m_memory.room(m_decoded * channels) / channels;
    }

    bool resize(std::uint64_t capacity)
    {
        if (!m_song->resize(capacity))
            return false;
        m_capacity = capacity;
        return true;
    }

    std::shared_ptr<DecodedSong> m_song;
    const SongMemory &m_memory;
    std::uint32_t m_bytesPerFrame;
    std::uint32_t m_channels;
    std::uint64_t m_expected;
    std::uint64_t m_capacity = 1; ///< in bytes of one channel, as the other sizes
    std::uint64_t m_decoded = 0;
    bool m_isOutOfMemory = false;
};

SongDecoder::SongDecoder(std::unique_ptr<SongReader> reader,
                         const AudioStreamBasicDescription &format, SongMemory memory)
    : m_reader(std::move(reader)), m_format(format), m_memory(std::move(memory))
{}

SongDecoder::~SongDecoder() = default;

void SongDecoder::setWaitHook(std::function<void()> hook)
{
    m_reader->setWaitHook(std::move(hook));
}

void SongDecoder::setStopToken(const std::stop_token &stop)
{
    m_stop = stop;
    m_reader->setStopToken(stop);
}

Status SongDecoder::open(const QString &path)
{
    if (const Status status = m_reader->open(path, SongReader::Depth::Samples))
        return status;
    AudioStreamBasicDescription ownFormat{};
    if (const Status status = m_reader->fileDataFormat(ownFormat))
        return status;
    return m_reader->setClientDataFormat(m_format);
}

bool SongDecoder::fits(std::uint64_t bytes) const
{
    // The highest bit rate of an MP3 is forty times the lowest.
    constexpr std::uint64_t worstGuess = 40;
    const std::uint64_t room = bytes / bytesPerFrameOf(m_format);
    const std::optional<std::uint64_t> estimate = m_reader->estimatedFrames();
    if (estimate && *estimate <= room / (m_reader->isEstimateSure() ? 1 : worstGuess))
        return true;
    if (const auto counted = m_reader->countedFrames(room + 1))
        return *counted <= room;
    return !estimate || *estimate <= room;
}

Status SongDecoder::decode(const std::function<void(std::uint64_t frames)> &advanced)
{
    m_song =
        std::make_unique<GrowingSong>(m_format, m_reader->estimatedFrames().value_or(0), m_memory);
    AudioBufferList list;
    std::uint32_t frames = framesPerRead;
    do {
        if (m_stop.stop_requested())
            return status::unspecified;
        if (!m_song->prepareRead(frames, list))
            return status::notEnoughMemory;
        const std::uint32_t asked = frames;
        if (const Status status = m_reader->read(frames, list))
            return status;
        frames = std::min(frames, asked);
        m_song->addDecoded(frames);
        advanced(m_song->decodedFrames());
    } while (frames > 0);
    return status::noError;
}

std::shared_ptr<DecodedSong> SongDecoder::song()
{
    return m_song ? m_song->finished() : nullptr;
}

std::uint64_t bytesPerFrameOf(const AudioStreamBasicDescription &format)
{
    return std::max<std::uint64_t>(std::uint64_t{format.mBytesPerFrame} * format.mChannelsPerFrame,
                                   1);
}

} // namespace lyrabox::engine
