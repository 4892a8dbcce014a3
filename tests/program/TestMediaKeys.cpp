// The program as media keys and the desktop see it, through the real playerctl on a private bus.

#include "program/Places.h"
#include "support/PrivateBus.h"
#include "support/SampleAudio.h"
#include "support/program/RunningProgram.h"

#include <QDBusArgument>
#include <QDBusVariant>
#include <QDir>
#include <QTest>

#include <cmath>

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

namespace {

const QString service = u"org.mpris.MediaPlayer2.lyrabox"_s;
const QString path = u"/org/mpris/MediaPlayer2"_s;
const QString player = u"org.mpris.MediaPlayer2.Player"_s;
const QString properties = u"org.freedesktop.DBus.Properties"_s;

class SeekListener : public QObject {
    Q_OBJECT

public:
    explicit SeekListener(QDBusConnection bus)
    {
        bus.connect(QString(), path, player, u"Seeked"_s, this, SLOT(seeked(qlonglong)));
    }
    std::vector<qlonglong> positions;

private Q_SLOTS:
    void seeked(qlonglong position) { positions.push_back(position); }
};

class MediaKeys : public RunningProgram {
protected:
    MediaKeys() { busAddress = bus.address(); }

    void startWithTones(double seconds = 30.0)
    {
        folder = makeFolder(u"Tones"_s, {{u"Alpha"_s, 300.0, seconds},
                                         {u"Beta"_s, 400.0, seconds},
                                         {u"Gamma"_s, 500.0, seconds}});
        begin(3);
    }
    void startWithSteps()
    {
        folder = makeFolder(u"Tones"_s, {});
        addStepSong(folder, u"Steps"_s, 20);
        begin(1);
    }
    void begin(int songs)
    {
        showFolder(folder);
        start();
        ASSERT_TRUE(waitForSongs(songs));
        ASSERT_TRUE(waitUntil([this] { return playerctl({u"status"_s}) == u"Stopped"_s; }))
            << "no player on the bus";
    }

    QString playerctl(const QStringList &arguments) const
    {
        QProcess process;
        dieWithTheTest(process);
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"DBUS_SESSION_BUS_ADDRESS"_s, busAddress);
        process.setProcessEnvironment(environment);
        process.start(u"playerctl"_s, QStringList{u"--player=lyrabox"_s} + arguments);
        EXPECT_TRUE(process.waitForFinished(20'000)) << "playerctl hangs";
        return QString::fromUtf8(process.readAllStandardOutput()).trimmed();
    }
    QString tag(const QString &name) const { return playerctl({u"metadata"_s, name}); }
    bool comesToStatus(const QString &status) const
    {
        return waitUntil([&] { return playerctl({u"status"_s}) == status; });
    }

    QVariant get(const QString &name)
    {
        const QDBusMessage reply =
            PrivateBus::call(client, service, path, properties, u"Get"_s, {player, name});
        return qvariant_cast<QDBusVariant>(reply.arguments().value(0)).variant();
    }
    void set(const QString &name, const QVariant &value)
    {
        PrivateBus::call(client, service, path, properties, u"Set"_s,
                         {player, name, QVariant::fromValue(QDBusVariant(value))});
    }
    std::pair<bool, bool> canGo()
    {
        return {get(u"CanGoPrevious"_s).toBool(), get(u"CanGoNext"_s).toBool()};
    }

    PrivateBus bus;
    QDBusConnection client = bus.connect(u"client"_s);
    QString folder;
};

TEST_F(MediaKeys, PlayPauseAndStop)
{
    startWithTones();
    EXPECT_TRUE(get(u"CanPlay"_s).toBool());
    EXPECT_FALSE(get(u"CanPause"_s).toBool());
    playerctl({u"play-pause"_s}); // like the button when no song is loaded
    EXPECT_TRUE(hears(300.0));
    EXPECT_TRUE(comesToStatus(u"Playing"_s));
    playerctl({u"play-pause"_s});
    EXPECT_TRUE(hearsSilence());
    EXPECT_TRUE(comesToStatus(u"Paused"_s));
    playerctl({u"pause"_s});
    EXPECT_TRUE(comesToStatus(u"Paused"_s));
    playerctl({u"play"_s});
    playerctl({u"play"_s});
    EXPECT_TRUE(hears(300.0));
    playerctl({u"stop"_s});
    EXPECT_TRUE(hearsSilence());
    EXPECT_TRUE(comesToStatus(u"Stopped"_s));
    EXPECT_EQ(playerctl({u"position"_s}).toDouble(), 0.0);
    display.key(u"space"_s);
    EXPECT_TRUE(hears(300.0));
    EXPECT_TRUE(comesToStatus(u"Playing"_s));
}

TEST_F(MediaKeys, MoveThroughTheListAndReportItsEnds)
{
    startWithTones();
    EXPECT_EQ(canGo(), std::pair(false, false));
    doubleClickSong(0);
    EXPECT_TRUE(hears(300.0));
    EXPECT_EQ(canGo(), std::pair(false, true));
    playerctl({u"previous"_s});
    EXPECT_EQ(tag(u"title"_s), u"Alpha"_s);
    playerctl({u"next"_s});
    EXPECT_TRUE(hears(400.0));
    EXPECT_EQ(canGo(), std::pair(true, true));
    playerctl({u"next"_s});
    EXPECT_TRUE(hears(500.0));
    EXPECT_EQ(canGo(), std::pair(true, false));
    playerctl({u"next"_s});
    EXPECT_EQ(tag(u"title"_s), u"Gamma"_s);
    EXPECT_EQ(canGo(), std::pair(true, false));
    playerctl({u"previous"_s});
    EXPECT_TRUE(hears(400.0));
    click(place::titleHeader); // reverses the list
    EXPECT_TRUE(waitUntil([this] {
        playerctl({u"next"_s});
        return tag(u"title"_s) == u"Alpha"_s;
    }));
    EXPECT_EQ(canGo(), std::pair(true, false));
}

TEST_F(MediaKeys, PublishTheSong)
{
    folder = makeFolder(u"Tones"_s, {{u"Beta"_s, 400.0}});
    ASSERT_TRUE(makeSampleAt(
        QDir(folder).filePath(u"alpha.flac"_s),
        {.extension = u"flac"_s,
         .frequency = 300.0,
         .seconds = 10.0,
         .tags = {{u"title"_s, u"Alpha"_s}, {u"artist"_s, u"The Band"_s}, {u"album"_s, u"One"_s}},
         .artwork = true}));
    begin(2);
    EXPECT_EQ(tag(u"title"_s), QString());
    doubleClickSong(0);
    EXPECT_TRUE(hears(300.0));
    EXPECT_EQ(tag(u"title"_s), u"Alpha"_s);
    EXPECT_EQ(tag(u"artist"_s), u"The Band"_s);
    EXPECT_EQ(tag(u"album"_s), u"One"_s);
    EXPECT_EQ(tag(u"mpris:length"_s), u"10000000"_s);
    EXPECT_EQ(tag(u"xesam:url"_s), u"file://"_s + folder + u"/alpha.flac"_s);
    const QString picture = QUrl(tag(u"mpris:artUrl"_s)).toLocalFile();
    EXPECT_EQ(QImage(picture).size(), QSize(64, 64));

    const QString song = tag(u"mpris:trackid"_s);
    doubleClickSong(1);
    EXPECT_TRUE(hears(400.0));
    EXPECT_NE(tag(u"mpris:trackid"_s), song);
    EXPECT_EQ(tag(u"mpris:artUrl"_s), QString());
    EXPECT_FALSE(QFile::exists(picture));

    doubleClickSong(0);
    EXPECT_TRUE(hears(300.0));
    const QString again = QUrl(tag(u"mpris:artUrl"_s)).toLocalFile();
    EXPECT_TRUE(QFile::exists(again));
    EXPECT_EQ(quit(), 0);
    EXPECT_FALSE(QFile::exists(again));
}

TEST_F(MediaKeys, SeekInSongTimeAndAnnounceEveryJump)
{
    SeekListener listener(client);
    startWithSteps();
    doubleClickSong(0);
    EXPECT_TRUE(hears(stepFrequency(0)));
    playerctl({u"position"_s, u"10"_s});
    EXPECT_TRUE(hears(stepFrequency(10)));
    playerctl({u"pause"_s});
    EXPECT_TRUE(comesToStatus(u"Paused"_s));
    const double position = playerctl({u"position"_s}).toDouble();
    EXPECT_NEAR(position, 10.6, 0.6);
    playerctl({u"position"_s, u"5-"_s});
    EXPECT_NEAR(playerctl({u"position"_s}).toDouble(), position - 5.0, 0.01);
    // If a busy machine delays the song, that is announced, too.
    const auto tells = [&listener](double seconds, double tolerance) {
        return QTest::qWaitFor(
            [&] {
                return !listener.positions.empty() &&
                       std::abs(static_cast<double>(listener.positions.back()) / 1e6 - seconds) <
                           tolerance;
            },
            20'000);
    };
    EXPECT_TRUE(tells(position - 5.0, 0.01));
    click(navigationBar().center()); // the user's own seek
    EXPECT_TRUE(tells(10.0, 0.5));
}

TEST_F(MediaKeys, AnnounceALoopAndItsJumps)
{
    SeekListener listener(client);
    startWithSteps();
    doubleClickSong(0);
    EXPECT_TRUE(hears(stepFrequency(1)));
    display.key(u"l"_s);
    EXPECT_EQ(playerctl({u"loop"_s}), u"None"_s);
    EXPECT_TRUE(hears(stepFrequency(3)));
    display.key(u"l"_s);
    EXPECT_TRUE(waitUntil([this] { return playerctl({u"loop"_s}) == u"Track"_s; }));
    ASSERT_TRUE(QTest::qWaitFor([&] { return listener.positions.size() >= 2; }, 20'000));
    EXPECT_LT(listener.positions.back(), 3'500'000);
    EXPECT_GT(listener.positions.back(), 900'000);
    playerctl({u"loop"_s, u"None"_s});
    EXPECT_EQ(playerctl({u"loop"_s}), u"None"_s);
    EXPECT_TRUE(hears(stepFrequency(5), 20.0));
}

TEST_F(MediaKeys, SetSpeedVolumeAndOrder)
{
    startWithSteps();
    EXPECT_EQ(get(u"MinimumRate"_s).toDouble(), 0.1);
    EXPECT_EQ(get(u"MaximumRate"_s).toDouble(), 2.0);
    doubleClickSong(0);
    EXPECT_TRUE(hears(stepFrequency(0)));
    set(u"Rate"_s, 0.5);
    EXPECT_EQ(get(u"Rate"_s).toDouble(), 0.5);
    EXPECT_TRUE(hears(stepFrequency(2)));
    const std::size_t first = recorder->size();
    EXPECT_TRUE(hears(stepFrequency(3)));
    EXPECT_NEAR(static_cast<double>(recorder->size() - first) / Recorder::sampleRate, 2.0, 0.3);
    display.key(u"ctrl+s"_s); // keeps this speed for the song
    set(u"Rate"_s, 99.0);
    EXPECT_EQ(get(u"Rate"_s).toDouble(), 2.0);
    set(u"Rate"_s, 1.0);
    doubleClickSong(0);
    EXPECT_TRUE(hears(stepFrequency(0)));
    EXPECT_EQ(get(u"Rate"_s).toDouble(), 0.5);

    playerctl({u"volume"_s, u"0"_s});
    EXPECT_TRUE(hearsSilence());
    playerctl({u"volume"_s, u"0.5"_s});
    EXPECT_TRUE(hearsAnything());
    EXPECT_EQ(playerctl({u"shuffle"_s}), u"Off"_s);
    playerctl({u"shuffle"_s, u"On"_s});
    EXPECT_EQ(playerctl({u"shuffle"_s}), u"On"_s);
}

TEST_F(MediaKeys, OpenRaiseAndQuit)
{
    startWithTones();
    playerctl({u"open"_s, u"file://"_s + folder + u"/gamma.flac"_s});
    EXPECT_TRUE(hears(500.0));
    if (!display.isWayland()) { // the Wayland compositor cannot minimize windows
        display.minimize(mainWindow());
        ASSERT_TRUE(waitUntil([this] { return !display.hasWindow(u"^Lyrabox$"_s); }));
    }
    const auto ask = [this](const QString &what) {
        PrivateBus::call(client, service, path, u"org.mpris.MediaPlayer2"_s, what);
    };
    ask(u"Raise"_s);
    EXPECT_TRUE(waitUntil([this] { return display.activeWindow() == mainWindow(); }));
    ask(u"Quit"_s);
    EXPECT_EQ(sendSignalAndWait(0), 0); // 0 sends no signal, only waits
}

TEST_F(MediaKeys, TheDesktopIsKeptAwakeOnlyWhileASongPlays)
{
    std::vector<std::string> calls;
    QDBusConnection saverBus = bus.connect(u"saver"_s);
    const FakeService saver(saverBus, u"org.freedesktop.ScreenSaver"_s,
                            [&](const QDBusMessage &call, const QDBusConnection &connection) {
                                calls.push_back(call.member().toStdString());
                                return call.member() != u"Inhibit"_s ||
                                       connection.send(call.createReply(4U));
                            });
    const auto comesTo = [&](const std::vector<std::string> &expected) {
        return QTest::qWaitFor([&] { return calls == expected; }, 20'000);
    };
    startWithTones();
    EXPECT_TRUE(calls.empty());
    display.key(u"space"_s);
    EXPECT_TRUE(comesTo({"Inhibit"}));
    playerctl({u"next"_s});
    EXPECT_TRUE(hears(400.0));
    EXPECT_TRUE(comesTo({"Inhibit"})); // not released between songs
    display.key(u"space"_s);
    EXPECT_TRUE(comesTo({"Inhibit", "UnInhibit"}));
    display.key(u"space"_s);
    EXPECT_TRUE(comesTo({"Inhibit", "UnInhibit", "Inhibit"}));
    EXPECT_EQ(quit(), 0);
    EXPECT_TRUE(comesTo({"Inhibit", "UnInhibit", "Inhibit", "UnInhibit"}));
}

TEST_F(MediaKeys, TheProgramSurvivesTheEndOfTheBus)
{
    startWithTones();
    doubleClickSong(0);
    EXPECT_TRUE(hears(300.0));
    bus.kill();
    doubleClickSong(1);
    EXPECT_TRUE(hears(400.0));
    display.key(u"space"_s);
    EXPECT_TRUE(hearsSilence());
    EXPECT_EQ(quit(), 0);
}

TEST_F(MediaKeys, ABusThatNeverAnswersDoesNotBlockTheStart)
{
    const SilentSocket silent(QDir(homeFolder()).filePath(u"silent"_s));
    busAddress = u"unix:path="_s + silent.path();
    folder = makeFolder(u"Tones"_s, {{u"Alpha"_s, 300.0}});
    showFolder(folder);
    start();
    ASSERT_TRUE(waitForSongs(1));
    doubleClickSong(0);
    EXPECT_TRUE(hears(300.0));
}

} // namespace

#include "TestMediaKeys.moc"
