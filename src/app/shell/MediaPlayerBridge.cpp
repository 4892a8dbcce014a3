#include "app/shell/MediaPlayerBridge.h"

#include "engine/LB_AudioController.h"
#include "library/LB_QueueController.h"
#include "library/LB_TrackController.h"
#include "navigation/LB_NavigationView.h"
#include "platform/foundation/NotificationCenter.h"
#include "platform/foundation/Notifications.h"
#include "platform/ui/StateButton.h"

#include <QGuiApplication>

#include <cmath>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox {

namespace {

constexpr double microseconds = 1e6;
constexpr std::chrono::milliseconds playbackCheckInterval{250};
constexpr double jumpThreshold = 0.5e6; ///< microseconds

QStringList mimeTypes()
{
    return QStringLiteral(LYRABOX_MIME_TYPES).split(u' ', Qt::SkipEmptyParts);
}

qint64 timeOf(quint64 frames, const LB_AudioController &audio)
{
    const double rate = audio.audioBufferFormat().mSampleRate;
    return rate > 0.0 ? static_cast<qint64>(static_cast<double>(frames) / rate * microseconds) : 0;
}

} // namespace

bool positionHasJumped(qint64 reported, qint64 now, double rate, std::chrono::microseconds elapsed)
{
    const double expected =
        static_cast<double>(reported) + static_cast<double>(elapsed.count()) * rate;
    return std::abs(static_cast<double>(now) - expected) >= jumpThreshold;
}

MediaPlayerBridge::MediaPlayerBridge(Player player, const QDBusConnection &bus)
    : m_player(std::move(player)),
      m_artwork(artworkFolder()),
      m_inhibitor(bus, QGuiApplication::applicationDisplayName(), tr("A song is playing")),
      m_service(bus, *this, mimeTypes())
{
    m_updateTimer.setSingleShot(true);
    m_updateTimer.setInterval(0);
    connect(&m_updateTimer, &QTimer::timeout, this, &MediaPlayerBridge::update);
    const auto updateSoon = [this] { m_updateTimer.start(); };
    connect(m_player.audio, &LB_AudioController::runningChanged, this, updateSoon);
    connect(m_player.audio, &LB_AudioController::speedOrPitchChanged, this, updateSoon);
    connect(m_player.audio, &LB_AudioController::loopChanged, this, updateSoon);
    connect(m_player.audio, &LB_AudioController::outputVolumeChanged, this, updateSoon);
    connect(m_player.audio, &LB_AudioController::positionSet, this,
            &MediaPlayerBridge::positionWasSet);
    connect(m_player.queue, &LB_QueueController::queueChanged, this, updateSoon);
    connect(m_player.queue, &LB_QueueController::isShufflingChanged, this, updateSoon);
    connect(m_player.tracks, &LB_TrackController::trackCountChanged, this, updateSoon);
    m_playbackTimer.setInterval(playbackCheckInterval);
    connect(&m_playbackTimer, &QTimer::timeout, this, &MediaPlayerBridge::checkPlayback);
    NotificationCenter::defaultCenter().addObserver(this, notification::currentTrackChanged,
                                                    [this] { songChanged(); });
    songChanged();
    update();
}

MediaPlayerBridge::~MediaPlayerBridge()
{
    NotificationCenter::defaultCenter().removeObserver(this);
}

MediaPlayerState MediaPlayerBridge::currentState() const
{
    const LB_AudioController &audio = *m_player.audio;
    const LB_QueueController &queue = *m_player.queue;
    const TrackRecordRef track = audio.currentTrack();
    MediaPlayerState state;
    using Playback = MediaPlayerState::Playback;
    if (track)
        state.playback = audio.isRunning() ? Playback::Playing
                         : m_stopped       ? Playback::Stopped
                                           : Playback::Paused;
    state.loop = audio.isLooping() ? MediaPlayerState::Loop::Song : MediaPlayerState::Loop::None;
    state.shuffle = queue.isShuffling();
    state.rate = audio.playbackSpeedPct() / 100.0;
    const ValueRange speed = audio.playbackSpeedRange();
    state.minimumRate = static_cast<double>(speed.minimum) / 100.0;
    state.maximumRate = static_cast<double>(speed.maximum) / 100.0;
    state.volume = audio.outputVolume();
    state.canGoNext = queue.hasNextTrack();
    state.canGoPrevious = queue.hasPreviousTrack();
    state.canPlay = track || m_player.tracks->trackCount() > 0;
    state.canPause = track != nullptr;
    state.canSeek = track && audio.totalFrames() > 0;
    if (!track)
        return state;
    state.songNumber = m_songNumber;
    state.length = timeOf(audio.totalFrames(), audio);
    state.title = track->title.value_or(QString());
    if (!track->artist.isEmpty())
        state.artists = QStringList{track->artist};
    state.album = track->album;
    state.file = track->fileURL;
    state.artwork = m_artwork.url();
    return state;
}

void MediaPlayerBridge::update()
{
    m_updateTimer.stop();
    if (std::exchange(m_artworkIsOld, false))
        m_artwork.setImage(m_player.audio->embeddedArtwork());
    if (m_player.audio->isRunning())
        m_stopped = false;
    const MediaPlayerState before = m_service.state();
    const MediaPlayerState now = currentState();
    using Playback = MediaPlayerState::Playback;
    const bool plays = now.playback == Playback::Playing;
    m_inhibitor.setWanted(plays);
    if (!plays)
        m_playbackTimer.stop();
    else if (!m_playbackTimer.isActive())
        m_playbackTimer.start();

    // A loop may have jumped back since the position was last read. Clients continue from the
    // position that they get with a new speed or a pause.
    const bool jumped =
        now.songNumber == before.songNumber && before.playback == Playback::Playing && hasJumped();
    m_service.setState(now);
    if (jumped)
        m_service.tellSeeked();
    rememberPosition();
}

void MediaPlayerBridge::songChanged()
{
    if (m_player.audio->currentTrack())
        ++m_songNumber;
    m_stopped = false;
    m_artworkIsOld = true;
    m_updateTimer.start();
}

void MediaPlayerBridge::positionWasSet()
{
    if (std::exchange(m_stopped, false) || m_updateTimer.isActive())
        update(); // publish the earlier changes first
    m_service.tellSeeked();
    rememberPosition();
}

void MediaPlayerBridge::checkPlayback()
{
    if (!m_player.audio->isRunning()) {
        // When a song has ended, the queue plays the next one. The state does not become Paused in
        // between.
        if (!m_player.audio->trackHasEnded())
            update();
        return;
    }
    if (hasJumped()) {
        m_service.tellSeeked();
        rememberPosition();
    }
}

bool MediaPlayerBridge::hasJumped() const
{
    const auto elapsed = std::chrono::duration_cast<std::chrono::microseconds>(
        std::chrono::steady_clock::now() - m_reportedAt);
    return positionHasJumped(m_reportedPosition, position(), m_service.state().rate, elapsed);
}

void MediaPlayerBridge::rememberPosition()
{
    m_reportedPosition = position();
    m_reportedAt = std::chrono::steady_clock::now();
}

void MediaPlayerBridge::setPlaying(bool playing)
{
    m_stopped = false;
    m_player.playPauseButton->setState(playing ? 1 : 0);
    m_player.audio->playPauseButtonPressed(m_player.playPauseButton);
}

void MediaPlayerBridge::raise()
{
    m_player.raise();
}

void MediaPlayerBridge::quit()
{
    m_player.quit();
}

void MediaPlayerBridge::play()
{
    if (!m_player.audio->isRunning())
        setPlaying(true);
}

void MediaPlayerBridge::pause()
{
    if (m_player.audio->currentTrack())
        setPlaying(false);
}

void MediaPlayerBridge::playPause()
{
    m_stopped = false;
    m_player.playPauseButton->click();
}

// The player has no stopped state: Stop pauses and goes to the start.
void MediaPlayerBridge::stop()
{
    if (!m_player.audio->currentTrack())
        return;
    setPlaying(false);
    m_player.navigation->seekToFrame(0);
    m_stopped = true;
    update();
}

void MediaPlayerBridge::next()
{
    if (m_player.queue->hasNextTrack())
        m_player.queue->playNextTrack();
}

void MediaPlayerBridge::previous()
{
    if (m_player.queue->hasPreviousTrack())
        m_player.queue->playPreviousTrack();
}

void MediaPlayerBridge::seekTo(qint64 position)
{
    const double rate = m_player.audio->audioBufferFormat().mSampleRate;
    m_player.navigation->seekToFrame(
        static_cast<quint64>(static_cast<double>(position) / microseconds * rate));
}

void MediaPlayerBridge::setRate(double rate)
{
    // In whole percent, as with the slider.
    const float percent = std::round(static_cast<float>(rate * 100.0));
    m_player.audio->setPlaybackSpeedPct(m_player.audio->playbackSpeedRange().clamped(percent));
}

void MediaPlayerBridge::setVolume(double volume)
{
    m_player.audio->setOutputVolume(static_cast<float>(volume));
}

void MediaPlayerBridge::setShuffle(bool shuffle)
{
    if (m_player.queue->isShuffling() != shuffle)
        m_player.shuffleButton->click();
}

// A loop needs a start and an end, so clients can only clear it.
void MediaPlayerBridge::clearLoop()
{
    if (m_player.audio->isLooping())
        m_player.audio->clearLoop();
}

void MediaPlayerBridge::open(const QUrl &file)
{
    m_player.open({file});
}

qint64 MediaPlayerBridge::position() const
{
    if (!m_player.audio->currentTrack())
        return 0;
    return timeOf(m_player.audio->heardFrame(), *m_player.audio);
}

} // namespace lyrabox
