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
class LB_Slider;
class LB_TrackController;

namespace lyrabox {

class StateButton;

/// Whether clients that let the position run on from `told`, at `rate`, for `elapsed`, are wrong
/// about `now`, by half a second of song or more. Times in microseconds.
bool positionHasJumped(qint64 told, qint64 now, double rate, std::chrono::microseconds elapsed);

/// Between the player and the desktop: tells the desktop what plays, carries out what its media
/// keys ask for, and keeps it awake while a song plays. A command that a control has as well works
/// through the control. Main thread.
class MediaPlayerBridge : public QObject, public MediaPlayerCommands {
    Q_OBJECT

public:
    /// Who does what; none is owned, all outlive the bridge.
    struct Player {
        LB_AudioController *audio;
        LB_QueueController *queue;
        LB_TrackController *tracks;
        LB_NavigationView *navigation;
        StateButton *playPauseButton;
        StateButton *loopButton;
        StateButton *shuffleButton;
        LB_Slider *speedSlider;
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

    /// What the desktop is told.
    MediaPlayerState currentState() const;

    /// Tells the desktop now rather than when the event loop runs next.
    void update();

private:
    void songChanged();
    void positionWasSet();
    void watchPosition();
    void rememberPosition();
    bool hasJumped() const;
    void setPlaying(bool playing);

    Player m_player;
    ArtworkFile m_artwork;
    SleepInhibitor m_inhibitor;
    MprisService m_service;
    QTimer m_updateTimer; ///< one song brings a dozen changes, which are told in one
    quint64 m_songNumber = 0;
    bool m_artworkIsOld = false;
    bool m_stopped = false; ///< by stop(): at the start and not to go on
    qint64 m_toldPosition = 0;
    std::chrono::steady_clock::time_point m_toldAt;
};

} // namespace lyrabox
