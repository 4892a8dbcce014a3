#include "platform/desktop/SleepInhibitor.h"

#include "support/PrivateBus.h"

#include <QDBusArgument>
#include <QTest>

#include <gmock/gmock.h>

#include <memory>

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;
using testing::ElementsAre;

namespace {

using Holder = SleepInhibitor::Holder;

class KeepingAwake : public testing::Test {
protected:
    enum class Portal { Grants, Refuses, Fails, IsSilent };

    void startPortal(Portal manner)
    {
        portal = std::make_unique<FakeService>(
            services, u"org.freedesktop.portal.Desktop"_s,
            [this, manner](const QDBusMessage &call, const QDBusConnection &connection) {
                if (call.member() == u"Close"_s) {
                    calls.emplace_back("close");
                    closed.append(call.path());
                    return true;
                }
                if (call.member() != u"Inhibit"_s)
                    return false;
                calls.emplace_back("portal");
                flags = call.arguments().at(1).toUInt();
                lastCall = call;
                if (manner == Portal::IsSilent)
                    return true;
                if (manner == Portal::Fails)
                    return connection.send(
                        call.createErrorReply(QDBusError::UnknownMethod, u"no"_s));
                answerPortal(connection, manner == Portal::Grants ? 0 : 2);
                return true;
            });
    }

    void answerPortal(const QDBusConnection &connection, uint code)
    {
        const QVariantMap options = qdbus_cast<QVariantMap>(lastCall.arguments().at(2));
        request = u"/org/freedesktop/portal/desktop/request/"_s +
                  lastCall.service().mid(1).replace(u'.', u'_') + u'/' +
                  options.value(u"handle_token"_s).toString();
        connection.send(lastCall.createReply(QVariant::fromValue(QDBusObjectPath(request))));
        QDBusMessage response = QDBusMessage::createTargetedSignal(
            lastCall.service(), request, u"org.freedesktop.portal.Request"_s, u"Response"_s);
        response.setArguments({code, QVariantMap()});
        connection.send(response);
    }

    void startScreenSaver()
    {
        screenSaver = std::make_unique<FakeService>(
            saverServices, u"org.freedesktop.ScreenSaver"_s,
            [this](const QDBusMessage &call, const QDBusConnection &connection) {
                if (call.member() == u"Inhibit"_s) {
                    calls.push_back("saver " + call.arguments().at(0).toString().toStdString());
                    connection.send(call.createReply(7U));
                } else if (call.member() == u"UnInhibit"_s) {
                    calls.push_back("release " + std::to_string(call.arguments().at(0).toUInt()));
                }
                return true;
            });
    }

    bool comesTo(Holder holder)
    {
        return QTest::qWaitFor([&] { return inhibitor.holder() == holder; }, 20'000);
    }
    bool comesToCalls(std::size_t count)
    {
        return QTest::qWaitFor([&] { return calls.size() >= count; }, 20'000);
    }

    PrivateBus bus;
    QDBusConnection services = bus.connect(u"services"_s);
    QDBusConnection saverServices = bus.connect(u"saver"_s);
    QDBusConnection own = bus.connect(u"own"_s);
    std::unique_ptr<FakeService> portal;
    std::unique_ptr<FakeService> screenSaver;
    QDBusMessage lastCall;
    QString request;
    uint flags = 0;
    std::vector<std::string> calls;
    QStringList closed;
    SleepInhibitor inhibitor{own, u"Lyrabox"_s, u"A song is playing"_s};
};

TEST_F(KeepingAwake, AsksNoServiceUntilItIsWanted)
{
    startPortal(Portal::Grants);
    startScreenSaver();
    PrivateBus::call(own, u"org.freedesktop.DBus"_s, u"/"_s, u"org.freedesktop.DBus"_s,
                     u"GetId"_s); // all earlier calls have arrived
    QCoreApplication::processEvents();
    EXPECT_TRUE(calls.empty());
    EXPECT_EQ(inhibitor.holder(), Holder::Nobody);
}

TEST_F(KeepingAwake, AsksThePortalFirstAndReleasesByClosingTheRequest)
{
    startPortal(Portal::Grants);
    startScreenSaver();
    inhibitor.setWanted(true);
    EXPECT_TRUE(comesTo(Holder::Portal));
    EXPECT_EQ(flags, 12U); // inhibits suspend (4) and idle (8)
    inhibitor.setWanted(true);
    inhibitor.setWanted(false);
    EXPECT_EQ(inhibitor.holder(), Holder::Nobody);
    ASSERT_TRUE(comesToCalls(2));
    EXPECT_THAT(calls, ElementsAre("portal", "close"));
    EXPECT_EQ(closed, QStringList{request});
}

TEST_F(KeepingAwake, AsksTheScreenSaverWithoutAPortal)
{
    startScreenSaver();
    inhibitor.setWanted(true);
    EXPECT_TRUE(comesTo(Holder::ScreenSaver));
    inhibitor.setWanted(false);
    ASSERT_TRUE(comesToCalls(2));
    EXPECT_THAT(calls, ElementsAre("saver Lyrabox", "release 7"));
}

TEST_F(KeepingAwake, AsksTheScreenSaverIfThePortalFails)
{
    startPortal(Portal::Fails);
    startScreenSaver();
    inhibitor.setWanted(true);
    EXPECT_TRUE(comesTo(Holder::ScreenSaver));
}

TEST_F(KeepingAwake, AsksTheScreenSaverIfThePortalRefuses)
{
    startPortal(Portal::Refuses);
    startScreenSaver();
    inhibitor.setWanted(true);
    EXPECT_TRUE(comesTo(Holder::ScreenSaver));
    inhibitor.setWanted(false);
    EXPECT_TRUE(QTest::qWaitFor([this] { return calls.back() == "release 7"; }, 20'000));
}

TEST_F(KeepingAwake, DoesNotWaitForAPortalThatDoesNotAnswer)
{
    startPortal(Portal::IsSilent);
    startScreenSaver();
    inhibitor.setPatience(50);
    inhibitor.setWanted(true);
    EXPECT_EQ(inhibitor.holder(), Holder::Nobody); // the call did not wait
    EXPECT_TRUE(comesTo(Holder::ScreenSaver));
    ASSERT_TRUE(comesToCalls(3));
    EXPECT_THAT(calls, testing::UnorderedElementsAre("portal", "close", "saver Lyrabox"));
}

TEST_F(KeepingAwake, ReleasesWhatIsGrantedTooLate)
{
    startPortal(Portal::IsSilent);
    inhibitor.setWanted(true);
    ASSERT_TRUE(comesToCalls(1));
    inhibitor.setWanted(false);
    answerPortal(services, 0);
    ASSERT_TRUE(comesToCalls(2));
    EXPECT_EQ(closed, QStringList{request});
    EXPECT_EQ(inhibitor.holder(), Holder::Nobody);
}

TEST_F(KeepingAwake, DoesNothingIfNoServiceCanHelp)
{
    inhibitor.setWanted(true);
    PrivateBus::call(own, u"org.freedesktop.DBus"_s, u"/"_s, u"org.freedesktop.DBus"_s,
                     u"GetId"_s); // all earlier calls are answered
    EXPECT_EQ(inhibitor.holder(), Holder::Nobody);
    inhibitor.setWanted(false);
}

TEST_F(KeepingAwake, AsksAgainWhenTheHoldingServiceIsReplaced)
{
    startScreenSaver();
    inhibitor.setWanted(true);
    ASSERT_TRUE(comesTo(Holder::ScreenSaver));
    screenSaver.reset();
    ASSERT_TRUE(comesTo(Holder::Nobody));
    calls.clear();
    startScreenSaver();
    EXPECT_TRUE(comesTo(Holder::ScreenSaver));
    EXPECT_THAT(calls, ElementsAre("saver Lyrabox"));
}

TEST_F(KeepingAwake, SurvivesTheEndOfTheBus)
{
    startScreenSaver();
    inhibitor.setWanted(true);
    ASSERT_TRUE(comesTo(Holder::ScreenSaver));
    bus.kill();
    ASSERT_TRUE(QTest::qWaitFor([this] { return !own.isConnected(); }, 20'000));
    inhibitor.setWanted(false);
    inhibitor.setWanted(true);
    QCoreApplication::processEvents();
    EXPECT_NE(inhibitor.holder(), Holder::Portal);
}

TEST(SleepInhibitor, DoesNothingWithoutABus)
{
    SleepInhibitor inhibitor(QDBusConnection(u"there is none"_s), u"Lyrabox"_s, u"x"_s);
    inhibitor.setWanted(true);
    QCoreApplication::processEvents();
    EXPECT_EQ(inhibitor.holder(), Holder::Nobody);
    inhibitor.setWanted(false);
}

} // namespace
