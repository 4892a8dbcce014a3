#include "engine/DecodedSong.h"

#include "engine/EngineFixture.h"

namespace lyrabox::test {
namespace {

class DecodedSongTest : public EngineFixture {
protected:
    DecodedSongTest() { EXPECT_EQ(engine::buildAudioSystem(), 0); }
};

TEST_F(DecodedSongTest, HoldsTheSamplesOfEveryChannel)
{
    ASSERT_EQ(loadSong(3000), 0);
    const std::shared_ptr<const DecodedSong> decoded = engine::decodedSong();
    ASSERT_NE(decoded, nullptr);
    EXPECT_EQ(decoded->frames(), 3000U);
    EXPECT_EQ(decoded->sampleRate(), 44100.0);
    ASSERT_EQ(decoded->channels(), 2U);
    ASSERT_EQ(decoded->channel(1).size(), 3000U);
    for (std::size_t i = 0; i < 3000; ++i) {
        ASSERT_EQ(decoded->channel(0)[i], static_cast<float>(i));
        ASSERT_EQ(decoded->channel(1)[i], -static_cast<float>(i));
    }
}

TEST_F(DecodedSongTest, IsNullWithoutFrames)
{
    EXPECT_EQ(engine::decodedSong(), nullptr);
    ASSERT_EQ(loadSong(0), 0);
    EXPECT_EQ(engine::decodedSong(), nullptr);
    ASSERT_EQ(loadSong(1000), 0);
    engine::emptyAudioBuffers();
    EXPECT_EQ(engine::decodedSong(), nullptr);
}

TEST_F(DecodedSongTest, StaysWithItsReaderWhileTheEngineLoadsAnotherOne)
{
    ASSERT_EQ(loadSong(3000), 0);
    const std::shared_ptr<const DecodedSong> first = engine::decodedSong();
    song->sample = [](std::uint32_t, std::uint64_t) { return 0.25F; };
    ASSERT_EQ(loadSong(500), 0);
    EXPECT_EQ(engine::decodedSong()->frames(), 500U);
    EXPECT_EQ(engine::decodedSong()->channel(0)[499], 0.25F);
    engine::tearDownAudioSystem();
    EXPECT_EQ(first->frames(), 3000U);
    EXPECT_EQ(first->channel(0)[2999], 2999.0F);
}

TEST_F(DecodedSongTest, HeldByAReaderGivesNoMemoryToTheNextSong)
{
    ASSERT_EQ(loadSong(100000), 0);
    // Enough for 150,000 frames only together with the first song's memory.
    engine::setAvailableMemoryProbe([] { return std::uint64_t{1000000}; });
    std::shared_ptr<const DecodedSong> held = engine::decodedSong();
    EXPECT_EQ(loadSong(150000), status::notEnoughMemory);
    EXPECT_EQ(engine::totalFrames(), 100000U);
    held.reset();
    EXPECT_EQ(loadSong(150000), 0);
}

TEST_F(DecodedSongTest, IsTheSongOfAFailedLoadThatKeptIt)
{
    ASSERT_EQ(loadSong(1000), 0);
    const std::shared_ptr<const DecodedSong> first = engine::decodedSong();
    song->openStatus = status::fileNotFound;
    EXPECT_EQ(loadSong(2000), status::fileNotFound);
    EXPECT_EQ(engine::decodedSong(), first);
}

} // namespace
} // namespace lyrabox::test
