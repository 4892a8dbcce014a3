#pragma once

#include "platform/audio/SongReader.h"

#include <algorithm>
#include <functional>
#include <memory>
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
    /// Replaces the samples if a test needs a real sound.
    std::function<float(std::uint32_t channel, std::uint64_t frame)> sample;

    // The engine's calls.
    QString openedPath;
    std::vector<std::string>
        calls; ///< "open", "fileDataFormat", "setClientDataFormat", "read(8192)", …
    int readersAlive = 0;
};

/// Reads `song` while decoding. It may change between two loads.
inline SongReaderFactory fakeSongReaderFactory(std::shared_ptr<FakeSong> song)
{
    class Reader : public SongReader {
    public:
        explicit Reader(std::shared_ptr<FakeSong> theSong) : m_song(std::move(theSong))
        {
            ++m_song->readersAlive;
        }
        ~Reader() override
        {
            m_song->calls.emplace_back("dispose");
            --m_song->readersAlive;
        }

        void setWaitHook(std::function<void()> hook) override { m_waitHook = std::move(hook); }
        Status open(const QString &path, Depth) override
        {
            for (int piece = 0; piece < m_song->waitsInOpen; ++piece)
                m_waitHook();
            m_song->calls.emplace_back("open");
            m_song->openedPath = path;
            return m_song->openStatus;
        }
        Status fileDataFormat(AudioStreamBasicDescription &format) const override
        {
            m_song->calls.emplace_back("fileDataFormat");
            format = canonicalStreamFormat();
            return m_song->fileDataFormatStatus;
        }
        Status setClientDataFormat(const AudioStreamBasicDescription &format) override
        {
            m_song->calls.emplace_back("setClientDataFormat");
            m_format = format;
            return m_song->clientFormatStatus;
        }
        Status read(std::uint32_t &frames, AudioBufferList &list) override
        {
            m_song->calls.push_back("read(" + std::to_string(frames) + ")");
            if (m_song->readStatus != 0 && m_position >= m_song->readFailsAtFrame)
                return m_song->readStatus;
            const std::uint64_t most = std::min(frames, m_song->maximumFramesPerRead);
            frames = static_cast<std::uint32_t>(std::min(most, m_song->frames - m_position));
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
            return m_song->estimatedFrames.value_or(m_song->frames);
        }
        bool isEstimateSure() const override { return m_song->estimateIsSure; }
        std::optional<std::uint64_t> countedFrames(std::uint64_t most) const override
        {
            m_song->calls.emplace_back("count");
            return m_song->countedFrames ? std::optional(std::min(*m_song->countedFrames, most))
                                         : std::nullopt;
        }
        QByteArray albumArtwork() const override { return m_song->artwork; }

    private:
        std::shared_ptr<FakeSong> m_song;
        std::function<void()> m_waitHook;
        AudioStreamBasicDescription m_format;
        std::uint64_t m_position = 0;
    };
    return [song = std::move(song)] { return std::make_unique<Reader>(song); };
}

} // namespace lyrabox::test
