#include "export/ExportJob.h"
#include "support/CollectingWriter.h"
#include "support/FakeSong.h"

#include <QTest>

#include <gtest/gtest.h>

#include <atomic>
#include <future>

#include <sys/resource.h>
#include <unistd.h>

namespace lyrabox {
namespace {

using namespace test;

class Exporting : public testing::Test {
protected:
    std::shared_ptr<FakeSong> song = std::make_shared<FakeSong>();
    std::shared_ptr<CollectedSong> result = std::make_shared<CollectedSong>();
    ExportRequest request{.source = QStringLiteral("/songs/a.wav"),
                          .target = QStringLiteral("/songs/b.wav")};
    std::vector<Status> finished;
    std::function<void(Status)> note = [this](Status status) { finished.push_back(status); };
    ExportJob job{{.reader = fakeSongReaderFactory(song), .writer = collectingWriters(result)}};
};

} // namespace

TEST_F(Exporting, TellsItsEndAndItsProgress)
{
    ASSERT_TRUE(job.start(request, note));
    EXPECT_TRUE(job.isRunning());
    EXPECT_FALSE(job.start(request, note));
    ASSERT_TRUE(QTest::qWaitFor([this] { return !finished.empty(); }, 60'000));
    EXPECT_EQ(finished, std::vector<Status>{0});
    EXPECT_EQ(job.progress(), 1.0);
    EXPECT_FALSE(job.isRunning());
    EXPECT_EQ(result->left.size(), song->frames);
}

TEST_F(Exporting, MayBeginTheNextOneAtTheEnd)
{
    ASSERT_TRUE(job.start(request, [this](Status) { EXPECT_TRUE(job.start(request, note)); }));
    ASSERT_TRUE(QTest::qWaitFor([this] { return !finished.empty(); }, 60'000));
    EXPECT_EQ(result->left.size(), 2 * song->frames);
}

TEST_F(Exporting, HasALowPriority)
{
    std::atomic<int> nice = 0;
    result->onWrite = [&nice] {
        nice = ::getpriority(PRIO_PROCESS, static_cast<id_t>(::gettid()));
    };
    ASSERT_TRUE(job.start(request, note));
    ASSERT_TRUE(QTest::qWaitFor([this] { return !finished.empty(); }, 60'000));
    EXPECT_GE(nice, 10);
}

TEST_F(Exporting, CanBeCancelledAndBegunAnew)
{
    std::promise<void> cancelled;
    std::promise<void> writing;
    result->onWrite = [&, future = cancelled.get_future().share()] {
        if (result->writes == 5) {
            writing.set_value();
            future.wait();
        }
    };
    ASSERT_TRUE(job.start(request, note));
    writing.get_future().wait();
    job.cancel();
    EXPECT_FALSE(job.isRunning());
    cancelled.set_value();
    bool isSecond = false;
    ASSERT_TRUE(job.start(request, [&](Status status) {
        isSecond = true;
        EXPECT_EQ(status, 0);
    }));
    ASSERT_TRUE(QTest::qWaitFor([&] { return isSecond; }, 60'000));
    EXPECT_TRUE(finished.empty());
    EXPECT_EQ(result->left.size(), song->frames + 5 * std::size_t{128});
}

TEST(ExportJob, EndsWithItsOwner)
{
    const auto song = std::make_shared<FakeSong>();
    const auto result = std::make_shared<CollectedSong>();
    std::promise<void> writing;
    song->frames = 10'000'000'000;
    result->onWrite = [&] {
        if (result->writes == 1)
            writing.set_value();
        result->left.clear();
        result->right.clear();
    };
    {
        ExportJob job({.reader = fakeSongReaderFactory(song), .writer = collectingWriters(result)});
        ASSERT_TRUE(job.start(
            {.source = QStringLiteral("/songs/a.wav"), .target = QStringLiteral("/songs/b.wav")},
            [](Status) { FAIL(); }));
        writing.get_future().wait();
    }
    EXPECT_FALSE(result->isFinished);
    EXPECT_EQ(song->readersAlive, 0);
}

TEST(ExportJob, EndsAlthoughADiskHangsAndLeavesNoSong)
{
    const auto song = std::make_shared<FakeSong>();
    const auto result = std::make_shared<CollectedSong>();
    std::promise<void> reading;
    std::promise<void> answer;
    song->onAccess = [&reading, hangs = answer.get_future().share()](const QString &,
                                                                     std::uint64_t frame) {
        if (frame == 8192) {
            reading.set_value();
            hangs.wait();
        }
    };
    {
        ExportJob job({.reader = fakeSongReaderFactory(song), .writer = collectingWriters(result)});
        ASSERT_TRUE(job.start(
            {.source = QStringLiteral("/songs/a.wav"), .target = QStringLiteral("/songs/b.wav")},
            [](Status) { FAIL(); }));
        reading.get_future().wait();
    }
    answer.set_value();
    const auto hasEnded = [&song] {
        const std::lock_guard lock(song->mutex);
        return song->readersAlive == 0;
    };
    ASSERT_TRUE(QTest::qWaitFor(hasEnded, 60'000));
    EXPECT_FALSE(result->isFinished);
}

} // namespace lyrabox
