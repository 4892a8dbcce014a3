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

TEST(SessionBus, ConnectsToBothBusesWithoutBlocking)
{
    // One test, because the library reads both addresses once per process.
    const PrivateBus session;
    const PrivateBus system;
    qputenv("DBUS_SESSION_BUS_ADDRESS", session.address().toUtf8());
    qputenv("DBUS_SYSTEM_BUS_ADDRESS", system.address().toUtf8());
    bool isSessionThere = false;
    bool isSystemThere = false;
    QObject context;
    connectToSessionBus(&context,
                        [&](const QDBusConnection &own) { isSessionThere = own.isConnected(); });
    connectToSystemBus(&context,
                       [&](const QDBusConnection &own) { isSystemThere = own.isConnected(); });
    EXPECT_FALSE(isSessionThere || isSystemThere);
    EXPECT_TRUE(QTest::qWaitFor([&] { return isSessionThere && isSystemThere; }, 20'000));
    QDBusConnection::disconnectFromBus(u"lyrabox-desktop"_s);
    QDBusConnection::disconnectFromBus(u"lyrabox-system"_s);
    qunsetenv("DBUS_SESSION_BUS_ADDRESS");
    qunsetenv("DBUS_SYSTEM_BUS_ADDRESS");
}
