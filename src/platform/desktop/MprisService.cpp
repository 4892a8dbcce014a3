#include "platform/desktop/MprisService.h"

#include "platform/desktop/MprisAdaptors.h"

#include <QCoreApplication>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox {

namespace {

const QString objectPath = u"/org/mpris/MediaPlayer2"_s;
const QString playerInterface = u"org.mpris.MediaPlayer2.Player"_s;
const QString serviceName = u"org.mpris.MediaPlayer2.lyrabox"_s;

QString playbackText(MediaPlayerState::Playback playback)
{
    switch (playback) {
    case MediaPlayerState::Playback::Playing:
        return u"Playing"_s;
    case MediaPlayerState::Playback::Paused:
        return u"Paused"_s;
    case MediaPlayerState::Playback::Stopped:
        break;
    }
    return u"Stopped"_s;
}

bool tellSameSong(const MediaPlayerState &a, const MediaPlayerState &b)
{
    return a.songNumber == b.songNumber && a.length == b.length && a.title == b.title &&
           a.artists == b.artists && a.album == b.album && a.file == b.file &&
           a.artwork == b.artwork;
}

} // namespace

QVariantMap mprisMetadata(const MediaPlayerState &state)
{
    if (state.songNumber == 0)
        return {{u"mpris:trackid"_s, QVariant::fromValue(mprisTrackPath(0))}};
    QVariantMap metadata{
        {u"mpris:trackid"_s, QVariant::fromValue(mprisTrackPath(state.songNumber))},
        {u"mpris:length"_s, state.length},
        {u"xesam:title"_s, state.title}};
    if (!state.artists.isEmpty())
        metadata.insert(u"xesam:artist"_s, state.artists);
    if (!state.album.isEmpty())
        metadata.insert(u"xesam:album"_s, state.album);
    if (!state.file.isEmpty())
        metadata.insert(u"xesam:url"_s, state.file.toString(QUrl::FullyEncoded));
    if (!state.artwork.isEmpty())
        metadata.insert(u"mpris:artUrl"_s, state.artwork.toString(QUrl::FullyEncoded));
    return metadata;
}

QDBusObjectPath mprisTrackPath(quint64 songNumber)
{
    return QDBusObjectPath(songNumber == 0 ? u"/org/mpris/MediaPlayer2/TrackList/NoTrack"_s
                                           : u"/org/lyrabox/song/%1"_s.arg(songNumber));
}

QVariantMap mprisProperties(const MediaPlayerState &state)
{
    return {{u"PlaybackStatus"_s, playbackText(state.playback)},
            {u"LoopStatus"_s, state.loop == MediaPlayerState::Loop::Song ? u"Track"_s : u"None"_s},
            {u"Shuffle"_s, state.shuffle},
            {u"Rate"_s, state.rate},
            {u"MinimumRate"_s, state.minimumRate},
            {u"MaximumRate"_s, state.maximumRate},
            {u"Volume"_s, state.volume},
            {u"Metadata"_s, mprisMetadata(state)},
            {u"CanGoNext"_s, state.canGoNext},
            {u"CanGoPrevious"_s, state.canGoPrevious},
            {u"CanPlay"_s, state.canPlay},
            {u"CanPause"_s, state.canPause},
            {u"CanSeek"_s, state.canSeek}};
}

MprisService::MprisService(const QDBusConnection &bus, MediaPlayerCommands &commands,
                           QStringList mimeTypes)
    : m_bus(bus), m_commands(commands), m_mimeTypes(std::move(mimeTypes))
{
    new MprisRootAdaptor(this);
    new MprisPlayerAdaptor(this);
    // The object comes before the name, so that clients that see the name find the object.
    if (m_bus.registerObject(objectPath, this, QDBusConnection::ExportAdaptors))
        requestName(serviceName);
}

MprisService::~MprisService()
{
    m_bus.unregisterObject(objectPath);
    QDBusMessage release =
        QDBusMessage::createMethodCall(u"org.freedesktop.DBus"_s, u"/org/freedesktop/DBus"_s,
                                       u"org.freedesktop.DBus"_s, u"ReleaseName"_s);
    release.setArguments({serviceName});
    m_bus.send(release);
}

void MprisService::requestName(const QString &name)
{
    constexpr uint doNotQueue = 4;
    constexpr uint exists = 3;
    QDBusMessage request =
        QDBusMessage::createMethodCall(u"org.freedesktop.DBus"_s, u"/org/freedesktop/DBus"_s,
                                       u"org.freedesktop.DBus"_s, u"RequestName"_s);
    request.setArguments({name, doNotQueue});
    auto *watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(request), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this,
            [this, name](QDBusPendingCallWatcher *call) {
                call->deleteLater();
                const QDBusPendingReply<uint> reply = *call;
                // Another player with a settings folder of its own may have the name.
                if (!reply.isError() && reply.value() == exists && name == serviceName)
                    requestName(serviceName +
                                u".instance%1"_s.arg(QCoreApplication::applicationPid()));
            });
}

void MprisService::setState(const MediaPlayerState &state)
{
    if (state == m_state)
        return;
    const MediaPlayerState old = std::exchange(m_state, state);
    const QVariantMap before = mprisProperties(old);
    const QVariantMap now = mprisProperties(m_state);
    // Variants with D-Bus types cannot be compared, so the fields of the song are.
    QVariantMap changed;
    for (auto property = now.begin(); property != now.end(); ++property) {
        if (property.key() != u"Metadata"_s && before.value(property.key()) != property.value())
            changed.insert(property.key(), property.value());
    }
    if (!tellSameSong(old, m_state))
        changed.insert(u"Metadata"_s, now.value(u"Metadata"_s));
    sendChanges(changed);
}

void MprisService::sendChanges(const QVariantMap &changed)
{
    if (changed.isEmpty())
        return;
    QDBusMessage signal = QDBusMessage::createSignal(
        objectPath, u"org.freedesktop.DBus.Properties"_s, u"PropertiesChanged"_s);
    signal.setArguments({playerInterface, changed, QStringList()});
    m_bus.send(signal);
}

void MprisService::resendProperty(const QString &property)
{
    sendChanges({{property, mprisProperties(m_state).value(property)}});
}

void MprisService::tellSeeked()
{
    QDBusMessage signal = QDBusMessage::createSignal(objectPath, playerInterface, u"Seeked"_s);
    signal.setArguments({m_commands.position()});
    m_bus.send(signal);
}

} // namespace lyrabox
