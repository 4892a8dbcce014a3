#include "EngineFixture.h"
#include "support/SampleAudio.h"

#include <QFile>

#include <cstdint>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::Not;
using testing::StartsWith;

class SongDecoding : public EngineFixture {
protected:
    SongDecoding() { EXPECT_EQ(engine::buildAudioSystem(), 0); }

    /// The first channel of the sound from `frame` on.
    float sampleAt(std::uint64_t frame)
    {
        engine::setTrackHasEnded(false);
        engine::seekToFrame(frame);
        engine::setOutputRunning(true);
        const float sample = audio.pull(1).channels[0].front();
        engine::setOutputRunning(false);
        return sample;
    }
};

TEST_F(SongDecoding, CarriesOutItsStepsInOrder)
{
    song->artwork = "picture";
    EXPECT_EQ(loadSong(10000), 0);
    EXPECT_THAT(song->calls, ElementsAre("open", "fileDataFormat", "setClientDataFormat",
                                         "read(8192)", "read(8192)", "read(1808)", "dispose"));
    EXPECT_EQ(song->openedPath, QStringLiteral("/songs/a.wav"));
    EXPECT_EQ(engine::totalFrames(), 10000U);
    EXPECT_EQ(engine::currentFrame(), 0U);
    EXPECT_EQ(engine::albumArtData(), QByteArray("picture"));
    EXPECT_EQ(song->readersAlive, 0);
}

TEST_F(SongDecoding, ReportsTheSecondsOfALongLoad)
{
    std::chrono::milliseconds now{};
    std::vector<std::pair<qint64, qint64>> told;
    engine::setLoadProgressHook(
        [&](qint64 done, qint64 total) {
            EXPECT_EQ(engine::totalFrames(), 0U); // not yet playable
            told.emplace_back(done, total);
        },
        [&] { return now += std::chrono::milliseconds(30); });
    loadSong(44100 * 3); // 17 reads
    engine::setLoadProgressHook({});
    EXPECT_THAT(told, ElementsAre(std::pair(1, 3), std::pair(2, 3), std::pair(2, 3),
                                  std::pair(2, 3), std::pair(3, 3)));
    loadSong(44100 * 3);
    EXPECT_EQ(told.size(), 5U);
}

TEST_F(SongDecoding, ReportsNoTotalIfTheFileStatesNone)
{
    std::chrono::milliseconds now{};
    std::vector<qint64> totals;
    song->estimateIsKnown = false;
    engine::setLoadProgressHook([&](qint64, qint64 total) { totals.push_back(total); },
                                [&] { return now += std::chrono::milliseconds(300); });
    loadSong(10000);
    engine::setLoadProgressHook({});
    EXPECT_THAT(totals, ElementsAre(0, 0, 0));
}

TEST_F(SongDecoding, ReportsProgressWhileTheFileOpensSlowly)
{
    std::chrono::milliseconds now{};
    std::vector<std::pair<qint64, qint64>> told;
    song->waitsInOpen = 4;
    engine::setLoadProgressHook([&](qint64 done, qint64 total) { told.emplace_back(done, total); },
                                [&] { return now += std::chrono::milliseconds(100); });
    loadSong(4410);
    engine::setLoadProgressHook({});
    ASSERT_GE(told.size(), 2U);
    EXPECT_EQ(told.front(), std::pair(qint64{0}, qint64{0})); // the length is not known yet
}

TEST_F(SongDecoding, ANewSongStartsAtFrameZeroWithoutFramesOfTheOldOne)
{
    loadSong(10000);
    engine::seekToFrame(5000);
    engine::setOutputRunning(true);
    audio.pull(100); // time/pitch holds 28 more frames
    engine::setOutputRunning(false);
    loadSong(20000);
    EXPECT_EQ(engine::currentFrame(), 0U);
    engine::setOutputRunning(true);
    const PulledAudio heard = audio.pull(100);
    for (std::size_t i = 0; i < 100; ++i)
        ASSERT_EQ(heard.channels[0][i], static_cast<float>(i));
}

TEST_F(SongDecoding, EveryFrameOfALongSongIsInItsPlace)
{
    constexpr std::uint64_t frames = 3000001; // several steps of growth
    ASSERT_EQ(loadSong(frames), 0);
    EXPECT_EQ(engine::totalFrames(), frames);
    for (std::uint64_t frame = 0; frame + 1000 < frames; frame += 8191)
        ASSERT_EQ(sampleAt(frame), static_cast<float>(frame));
}

TEST_F(SongDecoding, TheNextReadAsksForAsManyFramesAsTheLastOneDelivered)
{
    song->maximumFramesPerRead = 3000;
    EXPECT_EQ(loadSong(7000), 0);
    EXPECT_THAT(song->calls, Contains("read(8192)").Times(1));
    EXPECT_THAT(song->calls, Contains("read(3000)").Times(2));
    EXPECT_THAT(song->calls, Contains("read(1000)").Times(1));
    EXPECT_EQ(engine::totalFrames(), 7000U);
}

TEST_F(SongDecoding, AnEmptyFileLoadsWithNoFrames)
{
    loadSong(5000);
    EXPECT_EQ(loadSong(0), 0);
    EXPECT_EQ(engine::totalFrames(), 0U);
    EXPECT_EQ(sampleAt(0), 0.0F);
    EXPECT_TRUE(engine::trackHasEnded());
}

TEST_F(SongDecoding, AFailureToOpenOrConvertKeepsTheSong)
{
    song->artwork = "first";
    loadSong(50000);
    engine::seekToFrame(1000);
    song->artwork = "second";
    const auto expectUnchanged = [this](Status expected) {
        EXPECT_EQ(loadSong(100), expected);
        EXPECT_EQ(engine::totalFrames(), 50000U);
        EXPECT_EQ(engine::currentFrame(), 1000U);
        EXPECT_EQ(engine::albumArtData(), QByteArray("first"));
        EXPECT_EQ(song->readersAlive, 0);
    };
    song->clientFormatStatus = status::unsupportedDataFormat;
    expectUnchanged(status::unsupportedDataFormat);
    song->fileDataFormatStatus = status::invalidFile;
    expectUnchanged(status::invalidFile);
    song->openStatus = status::fileNotFound;
    expectUnchanged(status::fileNotFound);
    EXPECT_EQ(sampleAt(20000), 20000.0F);
}

TEST_F(SongDecoding, AFailureWhileReadingKeepsTheDecodedPartAndReturnsTheStatus)
{
    song->readStatus = status::invalidFile;
    song->readFailsAtFrame = 16384;
    song->artwork = "picture";
    EXPECT_EQ(loadSong(100000), status::invalidFile);
    EXPECT_EQ(engine::totalFrames(), 16384U);
    EXPECT_EQ(engine::currentFrame(), 0U);
    EXPECT_EQ(engine::albumArtData(), QByteArray("picture"));
    EXPECT_EQ(sampleAt(16000), 16000.0F);
}

TEST_F(SongDecoding, TheLastSongsArtworkIsDropped)
{
    song->artwork = "picture";
    loadSong(1000);
    song->artwork.clear();
    loadSong(1000);
    EXPECT_TRUE(engine::albumArtData().isNull());
}

TEST_F(SongDecoding, ASongThatDoesNotFitIsRefusedBeforeAnythingIsRead)
{
    loadSong(1000);
    song->calls.clear();
    engine::setAvailableMemoryProbe([] { return std::uint64_t{1000000}; });
    EXPECT_EQ(loadSong(200000), status::notEnoughMemory); // 1.6 MB
    EXPECT_THAT(song->calls, Not(Contains(StartsWith("read"))));
    EXPECT_EQ(engine::totalFrames(), 1000U);
    EXPECT_EQ(sampleAt(500), 500.0F);
}

TEST_F(SongDecoding, TheOldSongsMemoryCountsAsAvailable)
{
    loadSong(200000);
    // Enough for 150,000 frames only together with the first song's memory.
    auto available = std::make_shared<std::uint64_t>(10);
    engine::setAvailableMemoryProbe([available] {
        const std::uint64_t now = *available;
        *available = 10000000;
        return now;
    });
    EXPECT_EQ(loadSong(150000), 0);
}

TEST_F(SongDecoding, AnEstimateThatOverflowsIsRefused)
{
    for (const std::uint64_t frames :
         {UINT64_MAX, UINT64_MAX / 8 + 1, UINT64_MAX / 4, std::uint64_t{1} << 61}) {
        song->estimatedFrames = frames;
        EXPECT_EQ(loadSong(1000), status::notEnoughMemory) << frames;
    }
}

TEST_F(SongDecoding, AWrongLengthIsCheckedByCountingPackets)
{
    engine::setAvailableMemoryProbe([] { return std::uint64_t{10000000}; });
    song->estimatedFrames = 5000000;
    song->countedFrames = 1000;
    EXPECT_EQ(loadSong(1000), 0);
    song->countedFrames = 4000000;
    EXPECT_EQ(loadSong(4000000), status::notEnoughMemory);
    song->countedFrames.reset(); // the packets can't be counted
    EXPECT_EQ(loadSong(1000), status::notEnoughMemory);
}

TEST_F(SongDecoding, AGuessedLengthIsCountedIfItMatters)
{
    loadSong(10);
    song->calls.clear();
    engine::setAvailableMemoryProbe([] { return std::uint64_t{8000000}; }); // 1,000,000 frames
    song->estimateIsSure = false;
    song->estimatedFrames = 100000;
    song->countedFrames = 2000000;
    EXPECT_EQ(loadSong(2000000), status::notEnoughMemory);
    EXPECT_THAT(song->calls, Not(Contains(StartsWith("read"))));

    song->estimatedFrames = 1000; // fits in any case
    song->calls.clear();
    EXPECT_EQ(loadSong(1000), 0);
    EXPECT_THAT(song->calls, Not(Contains("count")));
}

TEST_F(SongDecoding, AnUnknownLengthIsCounted)
{
    engine::setAvailableMemoryProbe([] { return std::uint64_t{8000000}; });
    song->estimateIsKnown = false;
    song->countedFrames = 2000000;
    EXPECT_EQ(loadSong(2000000), status::notEnoughMemory);
    EXPECT_THAT(song->calls, Not(Contains(StartsWith("read"))));
    song->countedFrames = 1000;
    EXPECT_EQ(loadSong(1000), 0);
}

TEST_F(SongDecoding, JunkInAnMp3DoesNotMakeItTooLong)
{
    const QString path = test::sampleFolder() + u"/junk.mp3"_s;
    const QString sound =
        test::sampleFile({.extension = u"mp3"_s,
                          .seconds = 4.0,
                          .options = {u"-write_xing"_s, u"0"_s, u"-b:a"_s, u"128k"_s}});
    QFile source(sound);
    ASSERT_TRUE(source.open(QIODevice::ReadOnly));
    const QByteArray bytes = source.readAll();
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes + QByteArray(12 << 20, '\0') + bytes);
    file.close();
    engine::setSongReaderFactory({}); // the program's reader
    // Eight seconds take 2.8 MB. The file's size suggests thirteen minutes.
    engine::setAvailableMemoryProbe([] { return std::uint64_t{40000000}; });
    EXPECT_EQ(engine::loadAudioFile(QUrl::fromLocalFile(path)), 0);
    EXPECT_NEAR(static_cast<double>(engine::totalFrames()), 8.0 * 44100, 5000.0);
    engine::emptyAudioBuffers();
    engine::setAvailableMemoryProbe([] { return std::uint64_t{2000000}; });
    EXPECT_EQ(engine::loadAudioFile(QUrl::fromLocalFile(path)), status::notEnoughMemory);
}

TEST_F(SongDecoding, MemoryThatRunsOutWhileReadingLeavesTheEngineEmpty)
{
    loadSong(1000);
    song->estimateIsKnown = false;
    engine::setAvailableMemoryProbe([left = std::uint64_t{20000000}]() mutable {
        left /= 2;
        return left;
    });
    EXPECT_EQ(loadSong(10000000), status::notEnoughMemory);
    EXPECT_EQ(engine::totalFrames(), 0U);
    EXPECT_EQ(engine::currentFrame(), 0U);
    EXPECT_EQ(sampleAt(0), 0.0F);
}

TEST_F(SongDecoding, OnlyTheNextReadsMemoryIsRequired)
{
    // The first read needs 8,192 frames and a byte for each channel, 65,538 bytes in all.
    song->estimateIsKnown = false;
    engine::setAvailableMemoryProbe([] { return std::uint64_t{65537}; });
    EXPECT_EQ(loadSong(1000), status::notEnoughMemory);
    EXPECT_THAT(song->calls, Not(Contains(StartsWith("read"))));
    engine::setAvailableMemoryProbe([] { return std::uint64_t{65538}; });
    EXPECT_EQ(loadSong(1000), 0);
    EXPECT_EQ(engine::totalFrames(), 1000U);
}

TEST_F(SongDecoding, DecodedFramesNeedNoFurtherMemory)
{
    // Half of the song plus one read is less than the decoded part.
    song->estimateIsKnown = false;
    engine::setAvailableMemoryProbe([] { return std::uint64_t{200000}; });
    EXPECT_EQ(loadSong(100000), 0); // 800,000 bytes
    EXPECT_EQ(engine::totalFrames(), 100000U);
}

TEST_F(SongDecoding, AWrongEstimateDoesNotCutTheSong)
{
    song->estimatedFrames = 10;
    EXPECT_EQ(loadSong(30000), 0);
    EXPECT_EQ(engine::totalFrames(), 30000U);
}

TEST_F(SongDecoding, EmptyingDropsFramesPositionAndArtwork)
{
    song->artwork = "picture";
    loadSong(10000);
    engine::seekToFrame(100);
    engine::setLoopStartFrame(5);
    engine::emptyAudioBuffers();
    EXPECT_EQ(engine::totalFrames(), 0U);
    EXPECT_EQ(engine::currentFrame(), 0U);
    EXPECT_TRUE(engine::albumArtData().isNull());
    EXPECT_EQ(engine::loopStartFrame(), 5U);
    engine::emptyAudioBuffers();
    EXPECT_EQ(loadSong(10000), 0);
    EXPECT_EQ(sampleAt(9000), 9000.0F);
}

TEST_F(SongDecoding, ASongMayBeLoadedBeforeThereIsAChain)
{
    engine::tearDownAudioSystem();
    EXPECT_EQ(loadSong(1000), 0);
    engine::emptyAudioBuffers();
    EXPECT_EQ(engine::totalFrames(), 0U);
}

TEST_F(SongDecoding, TheProgramsReaderReportsAMissingFile)
{
    engine::setSongReaderFactory({});
    EXPECT_EQ(engine::loadAudioFile(QUrl::fromLocalFile(QStringLiteral("/nowhere/song.flac"))),
              status::fileNotFound);
    EXPECT_NE(engine::loadAudioFile(QUrl()), 0);
    EXPECT_NE(engine::loadAudioFile(QUrl(QStringLiteral("http://localhost/song.mp3"))), 0);
}

} // namespace
} // namespace lyrabox::test
