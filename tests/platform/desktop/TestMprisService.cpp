#include "platform/desktop/MprisService.h"

#include "support/PrivateBus.h"

#include <QDBusArgument>
#include <QDBusVariant>
#include <QGuiApplication>
#include <QTest>

#include <gmock/gmock.h>

#include <functional>
#include <limits>

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;
using testing::ElementsAre;

namespace {

const QString service = u"org.mpris.MediaPlayer2.lyrabox"_s;
const QString path = u"/org/mpris/MediaPlayer2"_s;
const QString root = u"org.mpris.MediaPlayer2"_s;
const QString player = u"org.mpris.MediaPlayer2.Player"_s;
const QString properties = u"org.freedesktop.DBus.Properties"_s;

class Commands : public MediaPlayerCommands {
public:
    void raise() override { calls.emplace_back("raise"); }
    void quit() override { calls.emplace_back("quit"); }
    void play() override { calls.emplace_back("play"); }
    void pause() override { calls.emplace_back("pause"); }
    void playPause() override { calls.emplace_back("playPause"); }
    void stop() override { calls.emplace_back("stop"); }
    void next() override { calls.emplace_back("next"); }
    void previous() override { calls.emplace_back("previous"); }
    void seekTo(qint64 at) override { calls.push_back("seek " + std::to_string(at)); }
    void setRate(double rate) override { calls.push_back("rate " + text(rate)); }
    void setVolume(double volume) override { calls.push_back("volume " + text(volume)); }
    void setShuffle(bool on) override { calls.emplace_back(on ? "shuffle" : "in order"); }
    void clearLoop() override { calls.emplace_back("clear loop"); }
    void open(const QUrl &file) override { calls.push_back("open " + file.path().toStdString()); }
    qint64 position() const override { return now; }

    static std::string text(double number) { return QString::number(number).toStdString(); }

    std::vector<std::string> calls;
    qint64 now = 0;
};

/// A client on the bus, such as a media key handler.
class Listener : public QObject {
    Q_OBJECT

public:
    explicit Listener(QDBusConnection bus)
    {
        bus.connect(QString(), path, properties, u"PropertiesChanged"_s, this,
                    SLOT(propertiesChanged(QString, QVariantMap, QStringList)));
        bus.connect(QString(), path, player, u"Seeked"_s, this, SLOT(seeked(qlonglong)));
    }

    std::vector<QVariantMap> changes;
    std::vector<qint64> seeks;

private Q_SLOTS:
    void propertiesChanged(const QString &interface, const QVariantMap &changed,
                           const QStringList &)
    {
        EXPECT_EQ(interface, player);
        changes.push_back(changed);
    }
    void seeked(qlonglong position) { seeks.push_back(position); }
};

class Mpris : public testing::Test {
protected:
    Mpris() { awaitName(); }

    void awaitName()
    {
        EXPECT_TRUE(QTest::qWaitFor(
            [this] {
                return PrivateBus::call(client, u"org.freedesktop.DBus"_s, u"/"_s,
                                        u"org.freedesktop.DBus"_s, u"NameHasOwner"_s, {service})
                    .arguments()
                    .value(0)
                    .toBool();
            },
            20'000));
    }

    QDBusMessage call(const QString &interface, const QString &method,
                      const QVariantList &arguments = {})
    {
        return PrivateBus::call(client, service, path, interface, method, arguments);
    }
    QVariant get(const QString &interface, const QString &name)
    {
        const QDBusMessage reply = call(properties, u"Get"_s, {interface, name});
        EXPECT_EQ(reply.type(), QDBusMessage::ReplyMessage) << qPrintable(reply.errorMessage());
        return qvariant_cast<QDBusVariant>(reply.arguments().value(0)).variant();
    }
    void set(const QString &name, const QVariant &value)
    {
        const QDBusMessage reply =
            call(properties, u"Set"_s, {player, name, QVariant::fromValue(QDBusVariant(value))});
        EXPECT_EQ(reply.type(), QDBusMessage::ReplyMessage) << qPrintable(reply.errorMessage());
    }
    QVariantMap metadata() { return qdbus_cast<QVariantMap>(get(player, u"Metadata"_s)); }

    static MediaPlayerState aSong()
    {
        MediaPlayerState state;
        state.playback = MediaPlayerState::Playback::Playing;
        state.minimumRate = 0.1;
        state.maximumRate = 2.0;
        state.canSeek = true;
        state.songNumber = 3;
        state.length = 60'000'000;
        state.title = u"Étude"_s;
        state.artists = QStringList{u"The Band"_s};
        state.album = u"One"_s;
        state.file = QUrl::fromLocalFile(u"/music/a b.flac"_s);
        state.artwork = QUrl::fromLocalFile(u"/run/cover.png"_s);
        return state;
    }

    bool comes(const std::function<bool()> &condition)
    {
        return QTest::qWaitFor(condition, 20'000);
    }

    PrivateBus bus;
    QDBusConnection own = bus.connect(u"own"_s);
    QDBusConnection client = bus.connect(u"client"_s);
    Commands commands;
    Listener listener{client};
    MprisService mpris{own, commands, {u"audio/flac"_s}};
};

TEST_F(Mpris, IdentifiesTheProgram)
{
    QGuiApplication::setDesktopFileName(u"org.lyrabox.Lyrabox"_s);
    EXPECT_EQ(get(root, u"DesktopEntry"_s).toString(), u"org.lyrabox.Lyrabox"_s);
    EXPECT_TRUE(get(root, u"CanRaise"_s).toBool());
    EXPECT_TRUE(get(root, u"CanQuit"_s).toBool());
    EXPECT_FALSE(get(root, u"HasTrackList"_s).toBool());
    EXPECT_EQ(get(root, u"SupportedUriSchemes"_s).toStringList(), QStringList{u"file"_s});
    EXPECT_EQ(get(root, u"SupportedMimeTypes"_s).toStringList(), QStringList{u"audio/flac"_s});
    call(root, u"Raise"_s);
    call(root, u"Quit"_s);
    EXPECT_THAT(commands.calls, ElementsAre("raise", "quit"));
}

TEST_F(Mpris, WithoutASongThereIsNoTrack)
{
    EXPECT_EQ(get(player, u"PlaybackStatus"_s).toString(), u"Stopped"_s);
    const QVariantMap song = metadata();
    EXPECT_EQ(song.keys(), QStringList{u"mpris:trackid"_s});
    EXPECT_EQ(qvariant_cast<QDBusObjectPath>(song.first()).path(),
              u"/org/mpris/MediaPlayer2/TrackList/NoTrack"_s);
}

TEST_F(Mpris, ReportsTheSong)
{
    mpris.setState(aSong());
    const QVariantMap song = metadata();
    EXPECT_EQ(qvariant_cast<QDBusObjectPath>(song.value(u"mpris:trackid"_s)).path(),
              u"/org/lyrabox/song/3"_s);
    EXPECT_EQ(song.value(u"mpris:length"_s).typeId(), QMetaType::LongLong);
    EXPECT_EQ(song.value(u"mpris:length"_s).toLongLong(), 60'000'000);
    EXPECT_EQ(song.value(u"xesam:title"_s).toString(), u"Étude"_s);
    EXPECT_EQ(song.value(u"xesam:artist"_s).toStringList(), QStringList{u"The Band"_s});
    EXPECT_EQ(song.value(u"xesam:album"_s).toString(), u"One"_s);
    EXPECT_EQ(song.value(u"xesam:url"_s).toString(), u"file:///music/a%20b.flac"_s);
    EXPECT_EQ(song.value(u"mpris:artUrl"_s).toString(), u"file:///run/cover.png"_s);
}

TEST_F(Mpris, ReportsOnlyChangedProperties)
{
    mpris.setState(aSong());
    ASSERT_TRUE(comes([this] { return listener.changes.size() == 1; }));
    EXPECT_TRUE(listener.changes.front().contains(u"Metadata"_s));
    EXPECT_FALSE(listener.changes.front().contains(u"Position"_s));
    EXPECT_FALSE(listener.changes.front().contains(u"Volume"_s));

    MediaPlayerState state = aSong();
    state.playback = MediaPlayerState::Playback::Paused;
    state.rate = 0.5;
    mpris.setState(state);
    mpris.setState(state);
    mpris.tellSeeked(); // once this signal is here, all earlier ones are
    ASSERT_TRUE(comes([this] { return !listener.seeks.empty(); }));
    ASSERT_EQ(listener.changes.size(), 2U);
    EXPECT_EQ(listener.changes.back(),
              (QVariantMap{{u"PlaybackStatus"_s, u"Paused"_s}, {u"Rate"_s, 0.5}}));
}

TEST_F(Mpris, ReportsASongAgainWhenItsArtworkArrives)
{
    mpris.setState(aSong());
    MediaPlayerState state = aSong();
    state.artwork.clear();
    mpris.setState(state);
    ASSERT_TRUE(comes([this] { return listener.changes.size() == 2; }));
    EXPECT_EQ(listener.changes.back().keys(), QStringList{u"Metadata"_s});
}

TEST_F(Mpris, ReportsThePosition)
{
    commands.now = 12'345'678;
    EXPECT_EQ(get(player, u"Position"_s).toLongLong(), 12'345'678);
    mpris.tellSeeked();
    ASSERT_TRUE(comes([this] { return !listener.seeks.empty(); }));
    EXPECT_THAT(listener.seeks, ElementsAre(12'345'678));
}

TEST_F(Mpris, PassesOnTheMediaKeys)
{
    for (const QString &key :
         {u"Play"_s, u"Pause"_s, u"PlayPause"_s, u"Stop"_s, u"Next"_s, u"Previous"_s})
        call(player, key);
    EXPECT_THAT(commands.calls,
                ElementsAre("play", "pause", "playPause", "stop", "next", "previous"));
}

TEST_F(Mpris, SeeksWithinTheSongAndPastItsEndToTheNext)
{
    call(player, u"Seek"_s, {qlonglong{1}}); // no song is loaded
    mpris.setState(aSong());
    commands.now = 10'000'000;
    call(player, u"Seek"_s, {qlonglong{5'000'000}});
    call(player, u"Seek"_s, {qlonglong{-5'000'000}});
    call(player, u"Seek"_s, {qlonglong{-50'000'000}});
    call(player, u"Seek"_s, {qlonglong{50'000'000}});
    call(player, u"Seek"_s, {qlonglong{50'000'001}});
    call(player, u"Seek"_s, {std::numeric_limits<qlonglong>::min()});
    call(player, u"Seek"_s, {std::numeric_limits<qlonglong>::max()});
    EXPECT_THAT(commands.calls, ElementsAre("seek 15000000", "seek 5000000", "seek 0",
                                            "seek 60000000", "next", "seek 0", "next"));
}

TEST_F(Mpris, SetsThePositionOfTheCurrentSongOnly)
{
    mpris.setState(aSong());
    const auto go = [this](const QString &song, qlonglong to) {
        call(player, u"SetPosition"_s, {QVariant::fromValue(QDBusObjectPath(song)), to});
    };
    go(u"/org/lyrabox/song/2"_s, 1);
    go(u"/org/lyrabox/song/3"_s, -1);
    go(u"/org/lyrabox/song/3"_s, 60'000'001);
    EXPECT_TRUE(commands.calls.empty());
    go(u"/org/lyrabox/song/3"_s, 60'000'000);
    EXPECT_THAT(commands.calls, ElementsAre("seek 60000000"));
}

TEST_F(Mpris, LimitsTheValuesThatClientsSet)
{
    mpris.setState(aSong());
    for (const double rate : {0.5, 9.0, 0.01, -1.0, std::numeric_limits<double>::quiet_NaN()})
        set(u"Rate"_s, rate);
    for (const double volume : {0.5, 1.5, -0.5, std::numeric_limits<double>::infinity()})
        set(u"Volume"_s, volume);
    EXPECT_THAT(commands.calls, ElementsAre("rate 0.5", "rate 2", "rate 0.1", "rate 0.1",
                                            "volume 0.5", "volume 1", "volume 0"));
}

TEST_F(Mpris, PausesAtARateOfZero)
{
    set(u"Rate"_s, 0.0);
    EXPECT_THAT(commands.calls, ElementsAre("pause"));
}

TEST_F(Mpris, ClientsCanClearALoopButNotMakeOne)
{
    MediaPlayerState state = aSong();
    state.loop = MediaPlayerState::Loop::Song;
    mpris.setState(state);
    EXPECT_EQ(get(player, u"LoopStatus"_s).toString(), u"Track"_s);
    set(u"LoopStatus"_s, u"Playlist"_s);
    EXPECT_TRUE(commands.calls.empty());
    ASSERT_TRUE(comes([this] { return listener.changes.size() == 2; }));
    EXPECT_EQ(listener.changes.back(), (QVariantMap{{u"LoopStatus"_s, u"Track"_s}}));
    set(u"LoopStatus"_s, u"None"_s);
    EXPECT_THAT(commands.calls, ElementsAre("clear loop"));
}

TEST_F(Mpris, ShufflesAndOpensLocalFiles)
{
    set(u"Shuffle"_s, true);
    call(player, u"OpenUri"_s, {u"file:///music/a%20b.flac"_s});
    call(player, u"OpenUri"_s, {u"https://example.org/a.flac"_s});
    EXPECT_THAT(commands.calls, ElementsAre("shuffle", "open /music/a b.flac"));
}

TEST_F(Mpris, ASecondPlayerGetsANameOfItsOwn)
{
    QDBusConnection another = bus.connect(u"another"_s);
    MprisService second(another, commands);
    const QString name =
        service + u".instance"_s + QString::number(QCoreApplication::applicationPid());
    EXPECT_TRUE(comes([&] {
        return PrivateBus::call(client, name, path, properties, u"Get"_s, {root, u"CanQuit"_s})
                   .type() == QDBusMessage::ReplyMessage;
    }));
}

TEST_F(Mpris, SurvivesTheEndOfTheBus)
{
    bus.kill();
    ASSERT_TRUE(comes([this] { return !own.isConnected(); }));
    mpris.setState(aSong());
    mpris.tellSeeked();
    EXPECT_EQ(mpris.state(), aSong());
}

TEST(MprisService, DoesNothingWithoutABus)
{
    Commands commands;
    MprisService mpris(QDBusConnection(u"there is none"_s), commands);
    MediaPlayerState state;
    state.volume = 0.5;
    mpris.setState(state);
    mpris.tellSeeked();
    EXPECT_EQ(mpris.state(), state);
}

} // namespace

#include "TestMprisService.moc"
