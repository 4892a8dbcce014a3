#pragma once

#include <QString>
#include <QStringList>
#include <QUrl>

namespace lyrabox {

/// The state of the player as the desktop sees it. Times are microseconds of the song, independent
/// of the speed.
struct MediaPlayerState {
    enum class Playback { Stopped, Paused, Playing };
    /// Song: the player repeats within the song and does not go on to the next one.
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

    // The song.
    quint64 songNumber = 0; ///< new for every load, even of the same song; 0 without a song
    qint64 length = 0;      ///< microseconds
    QString title;
    QStringList artists;
    QString album;
    QUrl file;
    QUrl artwork;

    bool operator==(const MediaPlayerState &) const = default;
};

/// The commands that the desktop gives to the player. They are called on the main thread by the
/// event loop. A command that makes no sense in the current state does nothing.
class MediaPlayerCommands {
public:
    MediaPlayerCommands() = default;
    MediaPlayerCommands(const MediaPlayerCommands &) = delete;
    MediaPlayerCommands &operator=(const MediaPlayerCommands &) = delete;
    virtual ~MediaPlayerCommands() = default;

    /// Brings the main window to the front.
    virtual void raise() = 0;
    virtual void quit() = 0;
    virtual void play() = 0;
    virtual void pause() = 0;
    virtual void playPause() = 0;
    /// Pauses and goes to the start of the song.
    virtual void stop() = 0;
    virtual void next() = 0;
    virtual void previous() = 0;
    /// `position` is in microseconds, from 0 to the length of the song.
    virtual void seekTo(qint64 position) = 0;
    /// `rate` is finite and within the limits of the state; 1.0 is normal speed.
    virtual void setRate(double rate) = 0;
    /// `volume` is linear, from 0 to 1.
    virtual void setVolume(double volume) = 0;
    virtual void setShuffle(bool shuffle) = 0;
    virtual void clearLoop() = 0;
    /// `file` is a local file or folder.
    virtual void open(const QUrl &file) = 0;

    /// The current position in the song in microseconds; 0 without a song.
    virtual qint64 position() const = 0;
};

} // namespace lyrabox
