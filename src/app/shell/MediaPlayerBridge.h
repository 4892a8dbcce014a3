#pragma once

#include "platform/desktop/ArtworkFile.h"
#include "platform/desktop/MediaPlayer.h"
#include "platform/desktop/MprisService.h"
#include "platform/desktop/SleepInhibitor.h"

#include <QObject>
#include <QTimer>

#include <chrono>
#include <functional>

class LB_AudioController;
class LB_NavigationView;
class LB_QueueController;
class LB_TrackController;

namespace lyrabox {

class StateButton;

/// Whether MPRIS clients need a Seeked signal. Clients extrapolate the position from `reported`, at
/// `rate` (1 is normal speed), over `elapsed`. Returns whether that differs from `now` by half a
/// second of song or more. Positions are in microseconds.
bool positionHasJumped(qint64 reported, qint64 now, double rate, std::chrono::microseconds elapsed);

/// Connects the player with the desktop: publishes what is playing over MPRIS, carries out commands
/// of media keys, and keeps the desktop awake while a song plays. Commands that also have a control
/// go through that control. Main thread.
class MediaPlayerBridge : public QObject, public MediaPlayerCommands {
    Q_OBJECT

public:
    /// The objects and functions that carry out commands. None is owned; all must outlive the
    /// bridge.
    struct Player {
        LB_AudioController *audio;
        LB_QueueController *queue;
        LB_TrackController *tracks;
        LB_NavigationView *navigation;
        StateButton *playPauseButton;
        StateButton *shuffleButton;
        std::function<void()> raise;
        std::function<void()> quit;
        std::function<void(const QList<QUrl> &)> open;
    };

    MediaPlayerBridge(Player player, const QDBusConnection &bus);
    ~MediaPlayerBridge() override;

    void raise() override;
    void quit() override;
    void play() override;
    void pause() override;
    void playPause() override;
    void stop() override;
    void next() override;
    void previous() override;
    void seekTo(qint64 position) override;
    void setRate(double rate) override;
    void setVolume(double volume) override;
    void setShuffle(bool shuffle) override;
    void clearLoop() override;
    void open(const QUrl &file) override;
    qint64 position() const override;

    /// What the bridge publishes on the session bus.
    MediaPlayerState currentState() const;

    /// Publishes changes now instead of in the next round of the event loop.
    void update();

private:
    void songChanged();
    void positionWasSet();
    void checkPlayback();
    void rememberPosition();
    bool hasJumped() const;
    void setPlaying(bool playing);

    Player m_player;
    ArtworkFile m_artwork;
    SleepInhibitor m_inhibitor;
    MprisService m_service;
    QTimer m_playbackTimer; ///< runs while the clients believe that a song plays
    QTimer m_updateTimer;   ///< collects the dozen changes of a new song into one update
    quint64 m_songNumber = 0;
    bool m_artworkIsOld = false;
    bool m_stopped = false; ///< stop() was called; the song is paused at its start
    qint64 m_reportedPosition = 0;
    std::chrono::steady_clock::time_point m_reportedAt;
};

} // namespace lyrabox
