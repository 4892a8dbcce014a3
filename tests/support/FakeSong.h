#pragma once

#include "platform/audio/SongReader.h"

#include <algorithm>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

namespace lyrabox::test {

/// The song that a fake reader decodes, whatever the path. Channel 0 holds the frame's index as a
/// float (exact to 2^24), and channel 1 its negative. So a sample shows its place in the song.
struct FakeSong {
    std::uint64_t frames = 441000;
    std::optional<std::uint64_t> estimatedFrames; ///< `frames` when empty and estimateIsKnown
    bool estimateIsKnown = true;
    bool estimateIsSure = true;
    std::optional<std::uint64_t> countedFrames;
    QByteArray artwork;
    int waitsInOpen = 0; ///< how often open() waits for the file
    Status openStatus = 0;
    Status fileDataFormatStatus = 0;
    Status clientFormatStatus = 0;
    Status readStatus = 0; ///< result of the read at readFailsAtFrame
    std::uint64_t readFailsAtFrame = 0;
    std::uint32_t maximumFramesPerRead = 0xffffffff;
    /// Replaces `frames` if songs at different paths need different lengths. Called on any thread.
    std::function<std::uint64_t(const QString &path)> framesOf;
    /// Replaces the samples if a test needs a real sound.
    std::function<float(std::uint32_t channel, std::uint64_t frame)> sample;

    // The engine's calls.
    QString openedPath;
    std::vector<std::string>
        calls; ///< "open", "fileDataFormat", "setClientDataFormat", "read(8192)", …
    int readersAlive = 0;

    /// Called by every open() and read(), on the thread that decodes, with the frame that is next.
    std::function<void(const QString &path, std::uint64_t frame)> onAccess;

    /// Guards what the readers write, because a song may also be decoded in advance on a thread.
    std::mutex mutex;
};

/// Reads `song` while decoding. It may change between two loads.
inline SongReaderFactory fakeSongReaderFactory(std::shared_ptr<FakeSong> song)
{
    class Reader : public SongReader {
    public:
        explicit Reader(std::shared_ptr<FakeSong> theSong) : m_song(std::move(theSong))
        {
            const std::lock_guard lock(m_song->mutex);
            ++m_song->readersAlive;
        }
        ~Reader() override
        {
            note("dispose");
            const std::lock_guard lock(m_song->mutex);
            --m_song->readersAlive;
        }

        void setWaitHook(std::function<void()> hook) override { m_waitHook = std::move(hook); }
        Status open(const QString &path, Depth) override
        {
            for (int piece = 0; piece < m_song->waitsInOpen; ++piece)
                m_waitHook();
            note("open");
            if (m_song->onAccess)
                m_song->onAccess(path, 0);
            m_path = path;
            const std::lock_guard lock(m_song->mutex);
            m_song->openedPath = path;
            return m_song->openStatus;
        }
        Status fileDataFormat(AudioStreamBasicDescription &format) const override
        {
            note("fileDataFormat");
            format = canonicalStreamFormat();
            return m_song->fileDataFormatStatus;
        }
        Status setClientDataFormat(const AudioStreamBasicDescription &format) override
        {
            note("setClientDataFormat");
            m_format = format;
            return m_song->clientFormatStatus;
        }
        Status read(std::uint32_t &frames, AudioBufferList &list) override
        {
            note("read(" + std::to_string(frames) + ")");
            if (m_song->onAccess)
                m_song->onAccess(m_path, m_position);
            if (m_song->readStatus != 0 && m_position >= m_song->readFailsAtFrame)
                return m_song->readStatus;
            const std::uint64_t most = std::min(frames, m_song->maximumFramesPerRead);
            frames = static_cast<std::uint32_t>(std::min(most, frameCount() - m_position));
            for (std::uint32_t channel = 0; channel < list.mNumberBuffers; ++channel) {
                auto *samples = static_cast<float *>(list.mBuffers[channel].mData);
                const float sign = channel == 0 ? 1.0F : -1.0F;
                for (std::uint32_t i = 0; i < frames; ++i)
                    samples[i] = m_song->sample ? m_song->sample(channel, m_position + i)
                                                : sign * static_cast<float>(m_position + i);
                list.mBuffers[channel].mDataByteSize = frames * m_format.mBytesPerFrame;
            }
            m_position += frames;
            return 0;
        }
        std::optional<std::uint64_t> estimatedFrames() const override
        {
            if (!m_song->estimateIsKnown)
                return std::nullopt;
            return m_song->estimatedFrames.value_or(frameCount());
        }
        bool isEstimateSure() const override { return m_song->estimateIsSure; }
        std::optional<std::uint64_t> countedFrames(std::uint64_t most) const override
        {
            note("count");
            return m_song->countedFrames ? std::optional(std::min(*m_song->countedFrames, most))
                                         : std::nullopt;
        }
        QByteArray albumArtwork() const override { return m_song->artwork; }

    private:
        std::uint64_t frameCount() const
        {
            return m_song->framesOf ? m_song->framesOf(m_path) : m_song->frames;
        }

        void note(const std::string &call) const
        {
            const std::lock_guard lock(m_song->mutex);
            m_song->calls.push_back(call);
        }

        std::shared_ptr<FakeSong> m_song;
        QString m_path;
        std::function<void()> m_waitHook;
        AudioStreamBasicDescription m_format;
        std::uint64_t m_position = 0;
    };
    return [song = std::move(song)] { return std::make_unique<Reader>(song); };
}

} // namespace lyrabox::test
