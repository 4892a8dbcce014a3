#pragma once

#include "export/SongExport.h"
#include "platform/audio/DecodingModule.h"
#include "support/CollectingWriter.h"
#include "support/FakeSong.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <array>
#include <vector>

namespace lyrabox::test {

using Channels = std::array<std::vector<float>, 2>;

/// The decoded song of a file, as the player has it.
inline Channels decoded(const QString &path)
{
    const auto reader = decodingModule().makeSongReader();
    EXPECT_EQ(reader->open(path, SongReader::Depth::Samples), 0);
    EXPECT_EQ(reader->setClientDataFormat(canonicalStreamFormat()), 0);
    Channels song;
    std::array<std::vector<float>, 2> piece{std::vector<float>(8192), std::vector<float>(8192)};
    for (;;) {
        AudioBufferList list;
        list.mNumberBuffers = 2;
        for (std::size_t i = 0; i < 2; ++i)
            list.mBuffers[i] = {1, 8192 * 4, piece[i].data()};
        std::uint32_t frames = 8192;
        EXPECT_EQ(reader->read(frames, list), 0);
        if (frames == 0)
            return song;
        for (std::size_t i = 0; i < 2; ++i)
            song[i].insert(song[i].end(), piece[i].begin(), piece[i].begin() + frames);
    }
}

/// Exports a made song into memory. The song's sample is its frame's number, see FakeSong.
class MadeSongExport : public testing::Test {
protected:
    Status run(std::stop_token stop = {})
    {
        return exportSong(request, {.reader = fakeSongReaderFactory(song), .writer = writer}, stop,
                          [this](double share) { shares.push_back(share); });
    }

    ExportRequest request{.source = QStringLiteral("/songs/a.wav"),
                          .target = QStringLiteral("/songs/b.wav")};
    std::shared_ptr<FakeSong> song = std::make_shared<FakeSong>();
    std::shared_ptr<CollectedSong> result = std::make_shared<CollectedSong>();
    std::function<std::unique_ptr<SongWriter>()> writer = collectingWriters(result);
    std::vector<double> shares;
};

} // namespace lyrabox::test
