// What songs decoded in advance may take: memory, disks and threads.

#include "ReadySongsFixture.h"
#include "platform/foundation/Machine.h"

using namespace Qt::Literals::StringLiterals;

namespace lyrabox::test {
namespace {

using testing::Contains;
using testing::Not;
using testing::StartsWith;

using ReadySongsLimits = ReadySongsFixture;

TEST_F(ReadySongsLimits, ASongOfThreeHoursIsNotDecoded)
{
    song->frames = std::uint64_t{44100} * 3600 * 3;
    const QUrl next = file(u"next"_s);
    want({next});
    EXPECT_FALSE(ready->isReady(next));
    EXPECT_THAT(calls(), Not(Contains(StartsWith("read"))));
}

TEST_F(ReadySongsLimits, AnEndlessSongIsGivenUpAtItsShareOfTheMemory)
{
    song->frames = std::uint64_t{1} << 60;
    song->estimateIsKnown = false;
    std::atomic<std::uint64_t> furthest{0};
    song->onAccess = [&](const QString &, std::uint64_t frame) { furthest = frame; };
    engine::setAvailableMemoryProbe([&] { return 16'000'000 - furthest * 8; });
    const QUrl next = file(u"next"_s);
    want({next});
    EXPECT_FALSE(ready->isReady(next));
    EXPECT_GT(furthest, 400'000U); // 3.2 MB
    EXPECT_LE(furthest, 500'000U); // 4 MB, a quarter
    EXPECT_EQ(ready->releasableBytes(), 0U);
}

TEST_F(ReadySongsLimits, AllReadySongsTogetherTakeAQuarterOfTheMemory)
{
    const QUrl first = file(u"first"_s);
    const QUrl second = file(u"second"_s);
    available = 4 * 320'000 - 1; // each takes 160,000 bytes
    want({first, second});
    EXPECT_TRUE(ready->isReady(first));
    EXPECT_TRUE(ready->isReady(second));
    ready->setWanted({}, Work::Begin);

    available = 4 * 160'000 - 1;
    want({first});
    EXPECT_FALSE(ready->isReady(first)) << "the share is a byte too small";
    available = 4 * 170'000; // the read that finds the end needs room, too
    ready->setWanted({}, Work::Begin);
    want({first, second});
    EXPECT_FALSE(ready->isReady(second));
}

TEST_F(ReadySongsLimits, SongsAreDroppedTheLeastUrgentFirstWhenMemoryGetsTight)
{
    const QUrl first = file(u"first"_s);
    const QUrl second = file(u"second"_s);
    want({first, second});
    ready->dropIfTight();
    EXPECT_EQ(ready->readyBytes(), 320'000U);
    available = 3 * 320'000; // together with what they hold: just enough
    ready->dropIfTight();
    EXPECT_EQ(ready->readyBytes(), 320'000U);
    available = 3 * 320'000 - 4;
    ready->dropIfTight();
    EXPECT_TRUE(ready->isReady(first));
    EXPECT_FALSE(ready->isReady(second));
    available = 0;
    ready->dropIfTight();
    EXPECT_EQ(ready->readyBytes(), 0U);

    available = std::uint64_t{1} << 40;
    clearCalls();
    const QUrl third = file(u"third"_s);
    want({first, second, third});
    EXPECT_FALSE(ready->isReady(first)) << "it would come and go";
    EXPECT_TRUE(ready->isReady(third));
}

TEST_F(ReadySongsLimits, ASongThatFitsOnlyInTheirMemoryReplacesThem)
{
    const QUrl next = file(u"next"_s);
    song->frames = 100'000; // 800,000 bytes
    want({next});
    engine::setAvailableMemoryProbe(
        [this, next] { return std::uint64_t{600'000} + (ready->isReady(next) ? 0 : 800'000); });
    song->frames = 200'000;
    EXPECT_EQ(loadSong(200'000), status::notEnoughMemory);
    EXPECT_TRUE(ready->isReady(next)) << "dropping it would not have helped";
    EXPECT_EQ(loadSong(150'000), 0); // 1,200,000 bytes
    EXPECT_FALSE(ready->isReady(next));
    EXPECT_EQ(engine::totalFrames(), 150'000U);
}

TEST_F(ReadySongsLimits, ASongThatFitsBesideThemLeavesThemReady)
{
    const QUrl next = file(u"next"_s);
    want({next});
    EXPECT_EQ(loadSong(150'000), 0);
    EXPECT_TRUE(ready->isReady(next));
}

TEST_F(ReadySongsLimits, ADiskThatHangsHoldsUpNeitherOtherSongsNorTheEnd)
{
    const QUrl hanging = file(u"hanging"_s);
    const QUrl next = file(u"next"_s);
    Gate gate(*song, path(u"hanging"_s));
    ready->setWanted({hanging}, Work::Begin);
    gate.awaitArrival();
    want({next});
    EXPECT_TRUE(ready->isReady(next));
    ready->setWanted({hanging}, Work::Begin);
    gate.awaitArrival();
    ready.reset(); // returns although two threads hang
    gate.open();
}

TEST_F(ReadySongsLimits, NothingIsDecodedWhileTwoThreadsHang)
{
    const QUrl hanging = file(u"hanging"_s);
    const QUrl next = file(u"next"_s);
    Gate gate(*song, path(u"hanging"_s));
    for (int i = 0; i < engine::mostBlockedPreparations; ++i) {
        ready->setWanted({hanging}, Work::Begin);
        gate.awaitArrival();
        ready->setWanted({}, Work::Begin);
    }
    want({next});
    EXPECT_FALSE(ready->isReady(next));
    gate.open();
    awaitReaders();
}

TEST_F(ReadySongsLimits, WithoutAThreadNothingIsReadyAndSongsLoadAsUsual)
{
    limitThreads(0);
    const QUrl next = file(u"next"_s);
    ready->setWanted({next}, Work::Begin);
    limitThreads(std::nullopt);
    EXPECT_FALSE(ready->isDecoding());
    EXPECT_EQ(engine::loadAudioFile(next), 0);
}

} // namespace
} // namespace lyrabox::test
