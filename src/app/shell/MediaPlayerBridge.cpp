#include "app/shell/MediaPlayerBridge.h"

#include "app/controls/LB_Slider.h"
#include "engine/LB_AudioController.h"
#include "library/LB_QueueController.h"
#include "library/LB_TrackController.h"
#include "navigation/LB_NavigationView.h"
#include "platform/foundation/NotificationCenter.h"
#include "platform/foundation/Notifications.h"
#include "platform/ui/StateButton.h"

#include <QGuiApplication>

#include <algorithm>
#include <cmath>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox {

namespace {

constexpr double microseconds = 1e6;
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
    connect(m_player.navigation->refreshTimer(), &QTimer::timeout, this,
            &MediaPlayerBridge::watchPosition);
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
    state.minimumRate = m_player.speedSlider->minValue() / 100.0;
    state.maximumRate = m_player.speedSlider->maxValue() / 100.0;
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
    m_inhibitor.setWanted(now.playback == Playback::Playing);

    // A loop may have jumped back since the last look at the position. Clients continue from the
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

void MediaPlayerBridge::watchPosition()
{
    const bool reportedPlaying = m_service.state().playback == MediaPlayerState::Playback::Playing;
    if (m_player.audio->isRunning() != reportedPlaying) {
        update(); // the song has ended
        return;
    }
    if (reportedPlaying && hasJumped()) {
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

// A player without a stopped state: Stop pauses and goes to the start.
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
    // As by the slider, so the speed goes in whole percent.
    m_player.speedSlider->moveByUser(rate * 100.0);
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

// A loop needs a start and an end, so from outside it can only be cleared.
void MediaPlayerBridge::clearLoop()
{
    if (m_player.audio->isLooping())
        m_player.loopButton->click();
}

void MediaPlayerBridge::open(const QUrl &file)
{
    m_player.open({file});
}

qint64 MediaPlayerBridge::position() const
{
    if (!m_player.audio->currentTrack())
        return 0;
    return timeOf(std::min(m_player.audio->currentFrame(), m_player.audio->totalFrames()),
                  *m_player.audio);
}

} // namespace lyrabox
