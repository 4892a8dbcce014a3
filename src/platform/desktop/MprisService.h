#pragma once

#include "platform/desktop/MediaPlayer.h"

#include <QDBusConnection>
#include <QDBusObjectPath>
#include <QObject>
#include <QStringList>
#include <QVariantMap>

namespace lyrabox {

/// Offers the player on the session bus to media keys, desktop shells and `playerctl`. It
/// implements the interfaces org.mpris.MediaPlayer2 and org.mpris.MediaPlayer2.Player of the
/// MPRIS 2.2 specification, under the name "org.mpris.MediaPlayer2.lyrabox"; if that is taken,
/// ".instance<process id>" is appended. No call waits for the bus; without a bus nothing happens.
/// Main thread only.
class MprisService : public QObject {
    Q_OBJECT

public:
    /// `commands` must outlive the service. `mimeTypes` are the types of files that the player
    /// opens.
    MprisService(const QDBusConnection &bus, MediaPlayerCommands &commands,
                 QStringList mimeTypes = {});
    ~MprisService() override;

    /// Stores the state and sends the changes to the clients in one signal.
    void setState(const MediaPlayerState &state);
    const MediaPlayerState &state() const { return m_state; }

    /// Notifies the clients that the position has jumped to its current value.
    void tellSeeked();

    // For the adaptors.
    /// Sends the value of `property` again, after a client has set one that is not accepted.
    void resendProperty(const QString &property);
    MediaPlayerCommands &commands() { return m_commands; }
    const QStringList &mimeTypes() const { return m_mimeTypes; }

private:
    void requestName(const QString &name);
    void sendChanges(const QVariantMap &changed);

    QDBusConnection m_bus;
    MediaPlayerCommands &m_commands;
    QStringList m_mimeTypes;
    MediaPlayerState m_state;
};

/// The state as MPRIS properties by name. The position is not among them.
QVariantMap mprisProperties(const MediaPlayerState &state);

/// The MPRIS property "Metadata" of the state.
QVariantMap mprisMetadata(const MediaPlayerState &state);

/// The object path that identifies a song on the bus; see MediaPlayerState::songNumber.
QDBusObjectPath mprisTrackPath(quint64 songNumber);

} // namespace lyrabox
