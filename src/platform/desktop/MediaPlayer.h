#pragma once

#include <QString>
#include <QStringList>
#include <QUrl>

namespace lyrabox {

/// What the desktop is told of the player, whole. Times are microseconds of the song, whatever the
/// speed.
struct MediaPlayerState {
    enum class Playback { Stopped, Paused, Playing };
    /// Song: it does not go on to the next one.
    enum class Loop { None, Song };

    Playback playback = Playback::Stopped;
    Loop loop = Loop::None;
    bool shuffle = false;
    double rate = 1.0; ///< 1.0 is normal speed
    double minimumRate = 1.0;
    double maximumRate = 1.0;
    double volume = 1.0; ///< linear, 1.0 is full
    bool canGoNext = false;
    bool canGoPrevious = false;
    bool canPlay = false;
    bool canPause = false;
    bool canSeek = false;

    // The song; `songNumber` 0: none.
    quint64 songNumber = 0; ///< another one for every song loaded, the same song again included
    qint64 length = 0;
    QString title;
    QStringList artists;
    QString album;
    QUrl file;
    QUrl artwork;

    bool operator==(const MediaPlayerState &) const = default;
};

/// What the desktop asks of the player. Main thread; every call comes out of the event loop. A
/// command that makes no sense at the moment does nothing.
class MediaPlayerCommands {
public:
    MediaPlayerCommands() = default;
    MediaPlayerCommands(const MediaPlayerCommands &) = delete;
    MediaPlayerCommands &operator=(const MediaPlayerCommands &) = delete;
    virtual ~MediaPlayerCommands() = default;

    virtual void raise() = 0;
    virtual void quit() = 0;
    virtual void play() = 0;
    virtual void pause() = 0;
    virtual void playPause() = 0;
    virtual void stop() = 0;
    virtual void next() = 0;
    virtual void previous() = 0;
    /// To a position of the song, 0 to its length; microseconds.
    virtual void seekTo(qint64 position) = 0;
    /// Finite, within the state's limits.
    virtual void setRate(double rate) = 0;
    /// 0 to 1.
    virtual void setVolume(double volume) = 0;
    virtual void setShuffle(bool shuffle) = 0;
    virtual void clearLoop() = 0;
    /// A local file or folder.
    virtual void open(const QUrl &file) = 0;

    /// Where the song is now, microseconds; 0 without one.
    virtual qint64 position() const = 0;
};

} // namespace lyrabox
