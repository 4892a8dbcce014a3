#include "export/SongSource.h"

#include "platform/foundation/Machine.h"

#include <algorithm>
#include <new>
#include <utility>

namespace lyrabox {

namespace {

constexpr std::uint32_t framesPerRead = 8192;
/// Frames are forgotten in large pieces, because the rest is moved.
constexpr std::uint64_t forgottenAtOnce = 1U << 18;
/// The memory is looked at when the kept part grows by so many frames.
constexpr std::uint64_t memoryStep = 1U << 20;

} // namespace

SongSource::SongSource(std::unique_ptr<SongReader> reader, std::stop_token stop)
    : m_reader(std::move(reader)), m_stop(std::move(stop))
{
    m_reader->setStopToken(m_stop);
}

Status SongSource::open(const QString &path)
{
    if (const Status status = m_reader->open(path, SongReader::Depth::Samples))
        return status;
    AudioStreamBasicDescription ownFormat{};
    if (const Status status = m_reader->fileDataFormat(ownFormat))
        return status;
    return m_reader->setClientDataFormat(canonicalStreamFormat());
}

std::uint32_t SongSource::copy(std::uint64_t position, std::uint32_t frames, float *left,
                               float *right)
{
    readUpTo(position + frames);
    if (position < m_first || position >= keptEnd())
        return 0;
    const auto count =
        static_cast<std::uint32_t>(std::min<std::uint64_t>(frames, keptEnd() - position));
    const auto from = static_cast<std::ptrdiff_t>(position - m_first);
    std::copy_n(m_channels[0].begin() + from, count, left);
    std::copy_n(m_channels[1].begin() + from, count, right);
    return count;
}

float SongSource::sample(std::uint32_t channel, std::uint64_t frame)
{
    constexpr std::uint64_t belowZero = 1ULL << 63; // a fade before the song's start counts there
    if (frame >= keptEnd() && frame < belowZero)
        readUpTo(frame + 1);
    if (frame < m_first || frame >= keptEnd())
        return 0.0F;
    return m_channels[channel][static_cast<std::size_t>(frame - m_first)];
}

void SongSource::forgetBefore(std::uint64_t frame)
{
    m_needed = frame > margin ? frame - margin : 0;
}

/// False if the song ends before `end`, after a failure and after a request to stop.
bool SongSource::readUpTo(std::uint64_t end)
{
    while (keptEnd() < end) {
        if (m_isAtEnd || m_error != status::noError || m_stop.stop_requested() || !readMore())
            return false;
    }
    return true;
}

bool SongSource::readMore()
{
    const std::uint64_t unneeded = m_needed > m_first ? std::min(m_needed, keptEnd()) - m_first : 0;
    if (unneeded >= forgottenAtOnce) {
        for (std::vector<float> &channel : m_channels)
            channel.erase(channel.begin(), channel.begin() + static_cast<std::ptrdiff_t>(unneeded));
        m_first += unneeded;
    }
    const std::size_t kept = m_channels[0].size();
    if (!hasMemory()) {
        m_error = status::notEnoughMemory;
        return false;
    }
    std::uint32_t frames = framesPerRead;
    AudioBufferList list;
    list.mNumberBuffers = 2;
    try {
        for (std::uint32_t i = 0; i < 2; ++i) {
            m_channels[i].resize(kept + frames);
            list.mBuffers[i] = {1, frames * static_cast<std::uint32_t>(sizeof(float)),
                                m_channels[i].data() + kept};
        }
        m_error = m_reader->read(frames, list);
    } catch (const std::bad_alloc &) {
        m_error = status::notEnoughMemory;
    }
    const std::size_t read = m_error == status::noError ? std::min(frames, framesPerRead) : 0;
    for (std::vector<float> &channel : m_channels)
        channel.resize(std::min(channel.size(), kept + read));
    m_isAtEnd = read == 0;
    return read > 0;
}

/// Whether there is memory for the kept part to grow. A vector that grows may need its size twice.
bool SongSource::hasMemory() const
{
    const std::uint64_t kept = m_channels[0].size();
    if (kept / memoryStep == (kept + framesPerRead) / memoryStep)
        return true;
    const std::optional<std::uint64_t> available = systemAvailableMemory();
    return !available || 2 * (kept + memoryStep) * 2 * sizeof(float) < *available;
}

} // namespace lyrabox
