#include "platform/foundation/DiskPatience.h"

#include <gtest/gtest.h>

#include <atomic>
#include <future>
#include <thread>

using namespace lyrabox;
using namespace std::chrono_literals;
using namespace Qt::Literals::StringLiterals;

namespace {

Mount mounted(const QString &path, const QString &fileSystem)
{
    Mount mount;
    mount.path = path;
    mount.fileSystem = fileSystem;
    return mount;
}

/// A mount table with a network disk at /far, whose questions the test answers.
class DiskPatience : public testing::Test {
protected:
    DiskPatience()
    {
        files::setMountsThatMayHang(
            [] {
                return std::vector<Mount>{mounted(u"/"_s, u"ext4"_s), mounted(u"/far"_s, u"nfs4"_s),
                                          mounted(u"/far/near"_s, u"xfs"_s),
                                          mounted(u"/run/gvfs"_s, u"fuse.gvfsd-fuse"_s)};
            },
            100ms);
    }
    ~DiskPatience() override
    {
        files::setSilenceEndHandler({});
        files::setMountsThatMayHang({});
    }
};

TEST_F(DiskPatience, OnlyDisksOfOtherMachinesAndProcessesMayHang)
{
    EXPECT_EQ(files::mountThatMayHang(u"/far/songs/a.flac"_s), u"/far"_s);
    EXPECT_EQ(files::mountThatMayHang(u"/far"_s), u"/far"_s);
    EXPECT_EQ(files::mountThatMayHang(u"/run/gvfs/smb"_s), u"/run/gvfs"_s);
    EXPECT_EQ(files::mountThatMayHang(u"/far/near/a.flac"_s), std::nullopt);
    EXPECT_EQ(files::mountThatMayHang(u"/farther/a.flac"_s), std::nullopt);
    EXPECT_EQ(files::mountThatMayHang(u"/home/a.flac"_s), std::nullopt);
}

TEST_F(DiskPatience, ALocalDiskIsAskedOnTheCallingThread)
{
    const auto thread =
        files::askPatiently<std::thread::id>(u"/home"_s, [] { return std::this_thread::get_id(); });
    EXPECT_EQ(thread, std::this_thread::get_id());
}

TEST_F(DiskPatience, TheAnswerOfADiskThatMayHangIsReturned)
{
    EXPECT_EQ(files::askPatiently<int>(u"/far/a"_s, [] { return 7; }), 7);
}

TEST_F(DiskPatience, ASilentDiskIsNotAskedUntilItAnswersAndItsAnswerIsReported)
{
    std::promise<void> answer;
    std::promise<void> ended;
    files::setSilenceEndHandler([&ended] { ended.set_value(); });
    const auto isAnswered = answer.get_future().share();
    EXPECT_EQ(files::askPatiently<int>(u"/far/a"_s, [isAnswered] { return isAnswered.wait(), 1; }),
              std::nullopt);

    const auto isAsked = std::make_shared<std::atomic<bool>>(false);
    const auto question = [isAsked] { return isAsked->exchange(true) ? 3 : 2; };
    EXPECT_EQ(files::askPatiently<int>(u"/far/b"_s, question), std::nullopt);
    EXPECT_FALSE(*isAsked) << "the disk must not be asked again";
    EXPECT_EQ(files::askPatiently<int>(u"/run/gvfs/a"_s, question), 2)
        << "other disks must be asked";

    answer.set_value();
    ended.get_future().wait();
    EXPECT_EQ(files::askPatiently<int>(u"/far/b"_s, question), 3);
}

TEST_F(DiskPatience, WorkIsAbandonedWhenTheCallerStopsWaiting)
{
    std::promise<void> answer;
    const auto isAnswered = answer.get_future().share();
    const auto isDone = std::make_shared<std::promise<void>>();
    int asked = 0;
    EXPECT_FALSE(files::runAbandonable(
        [isAnswered, isDone] {
            isAnswered.wait();
            isDone->set_value();
        },
        [&asked] { return ++asked < 2; }));
    EXPECT_EQ(asked, 2);
    answer.set_value();
    isDone->get_future().wait(); // the abandoned work ends by itself
    EXPECT_TRUE(files::runAbandonable([] {}, [] { return false; }));
}

} // namespace
