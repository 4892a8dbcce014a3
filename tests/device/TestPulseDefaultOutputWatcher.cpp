#include "platform/output/PulseDefaultOutputWatcher.h"

#include "support/PrivateSoundServer.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstdlib>
#include <mutex>
#include <thread>

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

namespace {

/// A listener that counts its calls and lets the test wait for them.
class Calls {
public:
    std::function<void()> listener()
    {
        return [this] { add(); };
    }
    void add()
    {
        const std::lock_guard lock(m_mutex);
        ++m_count;
        m_thread = std::this_thread::get_id();
        m_called.notify_all();
    }
    int count() const
    {
        const std::lock_guard lock(m_mutex);
        return m_count;
    }
    std::thread::id thread() const
    {
        const std::lock_guard lock(m_mutex);
        return m_thread;
    }
    /// A test that waits longer fails.
    bool waitFor(int count, std::chrono::milliseconds patience = std::chrono::seconds(20))
    {
        std::unique_lock lock(m_mutex);
        return m_called.wait_for(lock, patience, [&] { return m_count >= count; });
    }

private:
    mutable std::mutex m_mutex;
    std::condition_variable m_called;
    int m_count = 0;
    std::thread::id m_thread;
};

/// Returns when the watcher has connected. To find that out, changes the default between "a" and
/// `other` until the watcher notices a change, and then waits for the remaining calls. Afterwards
/// the default is "a".
void settle(PrivateSoundServer &server, Calls &calls, const QString &other = u"b"_s)
{
    for (int i = 0; i < 100 && calls.count() == 0; ++i) {
        server.setDefaultSink(i % 2 == 0 ? other : u"a"_s);
        calls.waitFor(1, std::chrono::milliseconds(100));
    }
    ASSERT_GT(calls.count(), 0);
    server.setDefaultSink(u"a"_s);
    while (calls.waitFor(calls.count() + 1, std::chrono::milliseconds(200))) {
    }
}

/// Changes the default and returns how many calls came until the watcher noticed the change.
int callsUpToAChange(PrivateSoundServer &server, Calls &calls, const QString &newDefault)
{
    const int before = calls.count();
    server.setDefaultSink(newDefault);
    EXPECT_TRUE(calls.waitFor(before + 1));
    return calls.count() - before;
}

TEST(PulseDefaultOutputWatcher, NoticesANewDefaultDeviceWithinASecondOnAThreadOfItsOwn)
{
    PrivateSoundServer server;
    Calls calls;
    PulseDefaultOutputWatcher watcher;
    ASSERT_EQ(watcher.listen(calls.listener()), status::noError);
    settle(server, calls);
    for (const QString &sink : {u"b"_s, u"a"_s, u"b"_s}) {
        const int before = calls.count();
        server.setDefaultSink(sink);
        EXPECT_TRUE(calls.waitFor(before + 1, std::chrono::seconds(1))) << sink.toStdString();
    }
    EXPECT_NE(calls.thread(), std::this_thread::get_id());
}

TEST(PulseDefaultOutputWatcher, IgnoresVolumesAndOtherDevices)
{
    PrivateSoundServer server;
    Calls calls;
    PulseDefaultOutputWatcher watcher;
    watcher.listen(calls.listener());
    settle(server, calls);
    server.setSinkVolume(u"a"_s, 30);
    server.setSinkVolume(u"b"_s, 40);
    const int module = server.loadModule(u"module-null-sink"_s, {u"sink_name=c"_s});
    server.unloadModule(module);
    // Events arrive in order, so calls caused by the lines above would have been counted.
    EXPECT_EQ(callsUpToAChange(server, calls, u"b"_s), 1);
}

TEST(PulseDefaultOutputWatcher, NoticesADefaultDeviceThatWasRemovedAndAdded)
{
    PrivateSoundServer server;
    Calls calls;
    const int module = server.loadModule(u"module-null-sink"_s, {u"sink_name=c"_s});
    PulseDefaultOutputWatcher watcher;
    watcher.listen(calls.listener());
    settle(server, calls, u"c"_s);
    callsUpToAChange(server, calls, u"c"_s);

    int before = calls.count();
    server.unloadModule(module);
    EXPECT_TRUE(calls.waitFor(before + 1));
    before = calls.count();
    server.loadModule(u"module-null-sink"_s, {u"sink_name=c"_s});
    server.setDefaultSink(u"c"_s);
    EXPECT_TRUE(calls.waitFor(before + 1));
}

TEST(PulseDefaultOutputWatcher, NoticesAServerThatCameBack)
{
    PrivateSoundServer server;
    Calls calls;
    PulseDefaultOutputWatcher watcher;
    watcher.listen(calls.listener());
    settle(server, calls);
    for (int round = 0; round < 3; ++round) {
        const int before = calls.count();
        server.kill();
        EXPECT_EQ(calls.count(), before);
        server.restart();
        EXPECT_TRUE(calls.waitFor(before + 1));
    }
}

TEST(PulseDefaultOutputWatcher, NoticesAServerThatWasNotThereAtFirst)
{
    PrivateSoundServer server(PrivateSoundServer::At::Later);
    Calls calls;
    PulseDefaultOutputWatcher watcher;
    EXPECT_EQ(watcher.listen(calls.listener()), status::noError);
    EXPECT_FALSE(calls.waitFor(1, std::chrono::milliseconds(300)));
    server.restart();
    EXPECT_TRUE(calls.waitFor(1));
}

TEST(PulseDefaultOutputWatcher, CallsOnceMoreOnRequest)
{
    PrivateSoundServer server;
    Calls calls;
    PulseDefaultOutputWatcher watcher;
    watcher.requestCall(); // before there is a listener
    watcher.listen(calls.listener());
    EXPECT_TRUE(calls.waitFor(1));
    settle(server, calls);
    const int before = calls.count();
    watcher.requestCall();
    EXPECT_TRUE(calls.waitFor(before + 1));
    EXPECT_EQ(callsUpToAChange(server, calls, u"b"_s), 1);
}

TEST(PulseDefaultOutputWatcher, AListenerThatRequestsACallIsCalledAgainOnlyWhileThereIsADevice)
{
    PrivateSoundServer server;
    Calls calls;
    std::atomic<bool> isFailing{false};
    PulseDefaultOutputWatcher watcher;
    watcher.listen([&] {
        if (isFailing)
            watcher.requestCall();
        calls.add();
    });
    settle(server, calls);
    isFailing = true;
    const int before = calls.count();
    server.setDefaultSink(u"b"_s);
    EXPECT_TRUE(calls.waitFor(before + 3));

    ASSERT_TRUE(server.removeSinks());
    int more = 0;
    while (more < 20 && calls.waitFor(calls.count() + 1, std::chrono::seconds(5)))
        ++more;
    EXPECT_LT(more, 20) << "the listener was called without a device";
}

TEST(PulseDefaultOutputWatcher, AListenerThatCanUseTheNextDeviceIsNotCalledAgain)
{
    PrivateSoundServer server;
    Calls calls;
    std::atomic<bool> isFailing{false};
    PulseDefaultOutputWatcher watcher;
    watcher.listen([&] {
        if (isFailing.exchange(false)) {
            watcher.requestCall();
            // By the shell, because the fixture of the server is for the main thread only.
            EXPECT_EQ(std::system("pactl set-default-sink a"), 0);
        }
        calls.add();
    });
    settle(server, calls);
    isFailing = true;
    const int before = calls.count();
    server.setDefaultSink(u"b"_s);
    EXPECT_TRUE(calls.waitFor(before + 2));
    EXPECT_FALSE(calls.waitFor(before + 3, std::chrono::milliseconds(800)));
}

TEST(PulseDefaultOutputWatcher, FindsADeviceThatOnlyANewConnectionSees)
{
    // Old and new connections reach different servers through one link.
    const QTemporaryDir folder;
    const QString link = folder.filePath(u"link"_s);
    const auto pointTo = [&](const QByteArray &server) {
        QFile::remove(link);
        ASSERT_TRUE(QFile::link(QFile::decodeName(server.mid(qstrlen("unix:"))), link));
    };
    PrivateSoundServer full;
    const QByteArray addressOfFull = qgetenv("PULSE_SERVER");
    PrivateSoundServer empty;
    ASSERT_TRUE(empty.removeSinks());
    pointTo(qgetenv("PULSE_SERVER"));
    qputenv("PULSE_SERVER", "unix:" + QFile::encodeName(link));

    Calls calls;
    PulseDefaultOutputWatcher watcher;
    watcher.listen(calls.listener());
    watcher.requestCall();
    ASSERT_TRUE(calls.waitFor(1)) << "the watcher has not looked for a device";
    EXPECT_FALSE(calls.waitFor(2, std::chrono::milliseconds(1000))) << "there is no device";
    pointTo(addressOfFull);
    EXPECT_TRUE(calls.waitFor(2));
    EXPECT_TRUE(empty.isServing());
}

TEST(PulseDefaultOutputWatcher, ARequestWaitsForAServerThatHangs)
{
    PrivateSoundServer server;
    Calls calls;
    PulseDefaultOutputWatcher watcher;
    watcher.listen(calls.listener());
    settle(server, calls);
    const int before = calls.count();
    server.hang();
    watcher.requestCall();
    EXPECT_FALSE(calls.waitFor(before + 1, std::chrono::milliseconds(500)));
    server.resume();
    EXPECT_TRUE(calls.waitFor(before + 1));
}

TEST(PulseDefaultOutputWatcher, ARequestIsAnsweredOnceAServerThatHungFromTheFirstAnswers)
{
    PrivateSoundServer server;
    server.hang();
    Calls calls;
    PulseDefaultOutputWatcher watcher;
    watcher.listen(calls.listener());
    watcher.requestCall();
    EXPECT_FALSE(calls.waitFor(1, std::chrono::milliseconds(500)));
    server.resume();
    EXPECT_TRUE(calls.waitFor(1));
}

TEST(PulseDefaultOutputWatcher, ARequestIsAnsweredAtOnceIfThereIsNoServer)
{
    const PrivateSoundServer server(PrivateSoundServer::At::Later);
    Calls calls;
    PulseDefaultOutputWatcher watcher;
    watcher.listen(calls.listener());
    watcher.requestCall();
    EXPECT_TRUE(calls.waitFor(1));
}

TEST(PulseDefaultOutputWatcher, ARequestIsAnsweredIfTheServerHasNoDevice)
{
    PrivateSoundServer server;
    Calls calls;
    PulseDefaultOutputWatcher watcher;
    watcher.listen(calls.listener());
    settle(server, calls);
    ASSERT_TRUE(server.removeSinks());
    while (calls.waitFor(calls.count() + 1, std::chrono::milliseconds(200))) {
    }
    const int before = calls.count();
    watcher.requestCall();
    EXPECT_TRUE(calls.waitFor(before + 1));
}

TEST(PulseDefaultOutputWatcher, IsDestroyedAtOnceWhileTheServerHangs)
{
    PrivateSoundServer server;
    Calls calls;
    PulseDefaultOutputWatcher watcher;
    watcher.listen(calls.listener());
    settle(server, calls);
    server.hang();
    watcher.requestCall();
}

TEST(PulseDefaultOutputWatcher, TheListenerMayReplaceItself)
{
    PrivateSoundServer server;
    Calls first;
    Calls second;
    PulseDefaultOutputWatcher watcher;
    watcher.listen([&] {
        watcher.listen(second.listener());
        first.add();
    });
    settle(server, first);
    EXPECT_EQ(first.count(), 1);
    const int before = second.count();
    server.setDefaultSink(u"b"_s);
    EXPECT_TRUE(second.waitFor(before + 1));
    EXPECT_EQ(first.count(), 1);
}

TEST(PulseDefaultOutputWatcher, TheListenerMayDestroyTheWatcher)
{
    PrivateSoundServer server;
    Calls calls;
    auto watcher = std::make_unique<PulseDefaultOutputWatcher>();
    watcher->listen([&] {
        watcher.reset();
        calls.add();
    });
    for (int i = 0; i < 100 && calls.count() == 0; ++i) {
        server.setDefaultSink(i % 2 == 0 ? u"b"_s : u"a"_s);
        calls.waitFor(1, std::chrono::milliseconds(100));
    }
    EXPECT_EQ(calls.count(), 1);
    EXPECT_EQ(watcher, nullptr);
}

TEST(PulseDefaultOutputWatcher, IsDestroyedAtOnceWhetherItListensOrNotAndWithoutAServer)
{
    const PrivateSoundServer server(PrivateSoundServer::At::Later);
    {
        const PulseDefaultOutputWatcher idle;
    }
    for (int i = 0; i < 20; ++i) {
        PulseDefaultOutputWatcher watcher;
        EXPECT_EQ(watcher.listen([] {}), status::noError);
    }
}

TEST(PulseDefaultOutputWatcher, IsDestroyedAtOnceDuringAnyAnswerOfTheServer)
{
    // The end may be requested between two answers. If the request were lost, the test would hang.
    const PrivateSoundServer server;
    for (int i = 0; i < 300; ++i) {
        PulseDefaultOutputWatcher watcher;
        ASSERT_EQ(watcher.listen([] {}), status::noError);
        std::this_thread::sleep_for(std::chrono::microseconds((i * 37) % 10'000));
    }
}

} // namespace
