#include "platform/desktop/SessionBus.h"

#include "support/PrivateBus.h"

#include <QCoreApplication>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

using namespace lyrabox;
using namespace lyrabox::test;
using namespace std::chrono_literals;
using namespace Qt::Literals::StringLiterals;

TEST(SessionBus, ARunningBusAnswers)
{
    const PrivateBus bus;
    EXPECT_TRUE(busAnswers(bus.address().toUtf8(), 20s));
}

TEST(SessionBus, ASilentBusDoesNotAnswer)
{
    const QTemporaryDir folder;
    const SilentSocket silent(folder.filePath(u"bus"_s));
    EXPECT_FALSE(busAnswers("unix:path=" + silent.path().toUtf8(), 20ms));
}

TEST(SessionBus, AMissingBusDoesNotAnswer)
{
    const QTemporaryDir folder;
    EXPECT_FALSE(busAnswers("unix:path=" + folder.filePath(u"bus"_s).toUtf8(), 20s));
}

TEST(SessionBus, AnAddressOfAnotherKindCountsAsOneThatAnswers)
{
    for (const char *address : {"", "disabled:", "tcp:host=localhost", "unix:abstract=/x",
                                "unix:path=/a;unix:path=/b", "unix:path=/a%20b"})
        EXPECT_TRUE(busAnswers(address, 0ms)) << address;
}

TEST(SessionBus, ConnectsWithoutBlocking)
{
    const PrivateBus bus;
    qputenv("DBUS_SESSION_BUS_ADDRESS", bus.address().toUtf8());
    bool isThere = false;
    QObject context;
    connectToSessionBus(&context, [&](const QDBusConnection &own) { isThere = own.isConnected(); });
    EXPECT_FALSE(isThere);
    EXPECT_TRUE(QTest::qWaitFor([&] { return isThere; }, 20'000));
    QDBusConnection::disconnectFromBus(u"lyrabox-desktop"_s);
    qunsetenv("DBUS_SESSION_BUS_ADDRESS");
}
