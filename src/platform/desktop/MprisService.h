#pragma once

#include "platform/desktop/MediaPlayer.h"

#include <QDBusConnection>
#include <QDBusObjectPath>
#include <QObject>
#include <QStringList>
#include <QVariantMap>

namespace lyrabox {

/// The player as media keys, desktop shells and `playerctl` see it: the interfaces
/// org.mpris.MediaPlayer2 and org.mpris.MediaPlayer2.Player on the session bus, under
/// "org.mpris.MediaPlayer2.lyrabox", or with ".instance<process id>" where that name is taken. No
/// call waits for the bus; without one nothing happens. Main thread.
class MprisService : public QObject {
    Q_OBJECT

public:
    /// `commands` outlives the service. `mimeTypes` are the kinds of files that can be opened.
    MprisService(const QDBusConnection &bus, MediaPlayerCommands &commands,
                 QStringList mimeTypes = {});
    ~MprisService() override;

    /// Tells the clients what has changed, in one signal.
    void setState(const MediaPlayerState &state);
    const MediaPlayerState &state() const { return m_state; }

    /// Tells them that the position has jumped to where it is now.
    void tellSeeked();

    // For the adaptors.
    /// For a client that has set a property to what it cannot become.
    void tellAgain(const QString &property);
    MediaPlayerCommands &commands() { return m_commands; }
    const QStringList &mimeTypes() const { return m_mimeTypes; }

private:
    void requestName(const QString &name);
    void tellChanged(const QVariantMap &changed);

    QDBusConnection m_bus;
    MediaPlayerCommands &m_commands;
    QStringList m_mimeTypes;
    MediaPlayerState m_state;
};

/// The values of the state under the names that clients know; without the position.
QVariantMap mprisProperties(const MediaPlayerState &state);

/// The "Metadata" of the state.
QVariantMap mprisMetadata(const MediaPlayerState &state);

/// How a song is called on the bus.
QDBusObjectPath mprisTrackPath(quint64 songNumber);

} // namespace lyrabox
