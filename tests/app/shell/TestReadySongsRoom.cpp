// Songs decoded in advance, in the whole program.

#include "WholeProgram.h"
#include "app/shell/Room.h"
#include "engine/ReadySongs.h"
#include "support/PrivateBus.h"
#include "support/SampleAudio.h"

#include <QTemporaryDir>
#include <QTest>

#include <optional>

using namespace Qt::Literals::StringLiterals;
using namespace lyrabox;
using namespace lyrabox::test;

namespace {

class ProgramWithReadySongs : public testing::Test {
protected:
    ProgramWithReadySongs()
    {
        qputenv("DBUS_SYSTEM_BUS_ADDRESS", bus.address().toUtf8());
        for (const QString &name : {u"a.flac"_s, u"b.flac"_s}) {
            const QString path = disk.filePath(name);
            EXPECT_TRUE(makeSampleAt(path, {.extension = u"flac"_s, .seconds = 0.1}));
            songs.append(QUrl::fromLocalFile(path));
        }
    }

    ~ProgramWithReadySongs() override
    {
        program.reset();
        QDBusConnection::disconnectFromBus(u"lyrabox-system"_s);
        qunsetenv("DBUS_SYSTEM_BUS_ADDRESS");
        qunsetenv(readySongsVariable);
    }

    void start()
    {
        program.emplace();
        program->composition->launch();
    }

    static bool isReady(const QUrl &song)
    {
        return engine::readySongs() != nullptr && engine::readySongs()->isReady(song);
    }

    PrivateBus bus;
    QTemporaryDir disk;
    QList<QUrl> songs;
    std::optional<WholeProgram> program;
};

TEST_F(ProgramWithReadySongs, MakesTheSecondOfTheOpenedSongsReadyAndDropsItAtTheEnd)
{
    start();
    program->composition->open(songs);
    EXPECT_TRUE(QTest::qWaitFor([this] { return isReady(songs[1]); }, 30'000));
    program->composition->terminate();
    EXPECT_EQ(engine::readySongs(), nullptr);
}

TEST_F(ProgramWithReadySongs, HasNoneIfTheEnvironmentTurnsItOff)
{
    qputenv(readySongsVariable, "0");
    start();
    EXPECT_EQ(engine::readySongs(), nullptr);
    program->composition->open(songs);
}

TEST_F(ProgramWithReadySongs, HasNoneWhileTheBatteryIsLow)
{
    const QString battery = u"/org/freedesktop/UPower/devices/DisplayDevice"_s;
    QDBusConnection services = bus.connect(u"services"_s);
    int questions = 0;
    const FakeService upower(
        services, u"org.freedesktop.UPower"_s,
        [&](const QDBusMessage &call, const QDBusConnection &connection) {
            ++questions;
            return connection.send(call.createReply(QVariantMap{
                {u"OnBattery"_s, true}, {u"IsPresent"_s, true}, {u"Percentage"_s, 10.0}}));
        });
    start();
    ASSERT_TRUE(QTest::qWaitFor([&] { return questions >= 2; }, 30'000));
    // The bus answers the service when it has the answers of the service. What it then answers the
    // program comes after those.
    for (const QDBusConnection &connection : {services, QDBusConnection(u"lyrabox-system"_s)})
        PrivateBus::call(connection, u"org.freedesktop.DBus"_s, u"/org/freedesktop/DBus"_s,
                         u"org.freedesktop.DBus"_s, u"GetId"_s);
    program->composition->open(songs);
    for (int i = 0; i < 5; ++i)
        QCoreApplication::processEvents();
    EXPECT_FALSE(engine::readySongs()->isDecoding());
    EXPECT_FALSE(isReady(songs[1]));

    QDBusMessage charged = QDBusMessage::createSignal(battery, u"org.freedesktop.DBus.Properties"_s,
                                                      u"PropertiesChanged"_s);
    charged.setArguments(
        {u"org.freedesktop.UPower.Device"_s, QVariantMap{{u"Percentage"_s, 30.0}}, QStringList()});
    services.send(charged);
    EXPECT_TRUE(QTest::qWaitFor([this] { return isReady(songs[1]); }, 30'000));
}

} // namespace
