#include "platform/desktop/BatteryWatch.h"

#include "support/PrivateBus.h"

#include <QTest>

#include <gtest/gtest.h>

#include <memory>

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

namespace {

const QString machine = u"/org/freedesktop/UPower"_s;
const QString battery = u"/org/freedesktop/UPower/devices/DisplayDevice"_s;

/// A machine whose UPower the test plays.
class Battery : public testing::Test {
protected:
    void startUPower(bool onBattery, double percentage, bool isPresent = true)
    {
        state = {{machine, {{u"OnBattery"_s, onBattery}}},
                 {battery, {{u"Percentage"_s, percentage}, {u"IsPresent"_s, isPresent}}}};
        upower = std::make_unique<FakeService>(
            services, u"org.freedesktop.UPower"_s,
            [this](const QDBusMessage &call, const QDBusConnection &connection) {
                if (call.member() != u"GetAll"_s)
                    return false;
                ++questions;
                return connection.send(call.createReply(state.value(call.path())));
            });
    }

    void change(const QString &path, const QString &name, const QVariant &value)
    {
        state[path][name] = value;
        QDBusMessage signal = QDBusMessage::createSignal(path, u"org.freedesktop.DBus.Properties"_s,
                                                         u"PropertiesChanged"_s);
        signal.setArguments(
            {path == machine ? u"org.freedesktop.UPower"_s : u"org.freedesktop.UPower.Device"_s,
             QVariantMap{{name, value}}, QStringList()});
        services.send(signal);
    }

    static bool becomes(const BatteryWatch &watch, bool low)
    {
        return QTest::qWaitFor([&] { return watch.isLow() == low; }, 20'000);
    }

    /// Waits until both questions of the watch were asked and answered.
    void awaitAnswers(int count)
    {
        EXPECT_TRUE(QTest::qWaitFor([&] { return questions >= count; }, 20'000));
        PrivateBus::call(watching, u"org.freedesktop.DBus"_s, u"/org/freedesktop/DBus"_s,
                         u"org.freedesktop.DBus"_s, u"GetId"_s); // answered after them
    }

    PrivateBus bus;
    QDBusConnection services = bus.connect(u"services"_s);
    QDBusConnection watching = bus.connect(u"watching"_s);
    QHash<QString, QVariantMap> state;
    std::unique_ptr<FakeService> upower;
    int questions = 0;
};

TEST_F(Battery, IsLowBelow20PercentWhenInUse)
{
    startUPower(true, 19.9);
    const BatteryWatch watch(watching);
    EXPECT_FALSE(watch.isLow()) << "nothing was answered yet";
    EXPECT_TRUE(becomes(watch, true));
}

TEST_F(Battery, IsNotLowFrom20PercentOnNorWithMainsNorIfThereIsNone)
{
    startUPower(true, 20.0);
    const BatteryWatch watch(watching);
    awaitAnswers(2);
    EXPECT_FALSE(watch.isLow());
    upower.reset();
    startUPower(false, 5.0);
    awaitAnswers(4);
    EXPECT_FALSE(watch.isLow());
    upower.reset();
    startUPower(true, 0.0, false);
    awaitAnswers(6);
    EXPECT_FALSE(watch.isLow());
}

TEST_F(Battery, FollowsItsChanges)
{
    startUPower(true, 50.0);
    const BatteryWatch watch(watching);
    awaitAnswers(2);
    EXPECT_FALSE(watch.isLow());
    change(battery, u"Percentage"_s, 10.0);
    EXPECT_TRUE(becomes(watch, true));
    change(machine, u"OnBattery"_s, false);
    EXPECT_TRUE(becomes(watch, false));
}

TEST_F(Battery, IsNotLowWithoutUPowerAndFollowsOneThatStartsAndEnds)
{
    const BatteryWatch watch(watching);
    PrivateBus::call(watching, u"org.freedesktop.DBus"_s, u"/org/freedesktop/DBus"_s,
                     u"org.freedesktop.DBus"_s, u"GetId"_s);
    EXPECT_FALSE(watch.isLow());
    startUPower(true, 10.0);
    EXPECT_TRUE(becomes(watch, true));
    upower.reset();
    EXPECT_TRUE(becomes(watch, false));
}

} // namespace
