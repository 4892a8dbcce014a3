#pragma once

#include "export/SongExport.h"
#include "platform/audio/SongWriter.h"

#include <functional>
#include <memory>
#include <vector>

namespace lyrabox::test {

/// What a writer was given.
struct CollectedSong {
    QString path;
    SongFormat format{};
    SongDetails details;
    std::vector<float> left;
    std::vector<float> right;
    int writes = 0;
    bool isFinished = false;
    Status writeStatus = 0;        ///< result of every write
    std::function<void()> onWrite; ///< called by every write, on the thread that exports
};

/// Collects a song in memory instead of writing a file.
inline std::function<std::unique_ptr<SongWriter>()>
collectingWriters(std::shared_ptr<CollectedSong> song)
{
    class Writer : public SongWriter {
    public:
        explicit Writer(std::shared_ptr<CollectedSong> theSong) : m_song(std::move(theSong)) {}
        Status open(const QString &path, SongFormat format, const SongDetails &details) override
        {
            m_song->path = path;
            m_song->format = format;
            m_song->details = details;
            return 0;
        }
        Status write(const float *left, const float *right, std::uint32_t frames) override
        {
            ++m_song->writes;
            m_song->left.insert(m_song->left.end(), left, left + frames);
            m_song->right.insert(m_song->right.end(), right, right + frames);
            if (m_song->onWrite)
                m_song->onWrite();
            return m_song->writeStatus;
        }
        Status finish() override
        {
            m_song->isFinished = true;
            return 0;
        }

    private:
        std::shared_ptr<CollectedSong> m_song;
    };
    return [song = std::move(song)] { return std::make_unique<Writer>(song); };
}

} // namespace lyrabox::test
