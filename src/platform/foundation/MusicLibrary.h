#pragma once

#include <QString>
#include <QStringList>
#include <QUrl>

#include <memory>
#include <optional>
#include <unordered_map>
#include <vector>

namespace lyrabox {

/// One track of the music application's library. A key that the library does not have is none.
struct MusicTrack {
    std::optional<QString> location; ///< "Location": the file's URL as text
    std::optional<QString> name;     ///< "Name"
    std::optional<QString> artist;   ///< "Artist"
    std::optional<QString> album;    ///< "Album"
    std::optional<double> totalTime; ///< "Total Time", milliseconds; finite
};

/// One playlist of the library, in the library's words.
struct MusicPlaylist {
    QString persistentID;                      ///< "Playlist Persistent ID"
    std::optional<QString> parentPersistentID; ///< "Parent Persistent ID"
    QString name;                              ///< "Name"
    std::optional<bool> visible;               ///< "Visible"
    std::optional<qint64> distinguishedKind;   ///< "Distinguished Kind"
    std::optional<std::vector<QString>>
        items; ///< "Playlist Items": the text form of each "Track ID"
};

/// The library read whole. Immutable once built; shared by whoever shows it.
struct MusicLibrary {
    std::unordered_map<QString, MusicTrack>
        tracks;                           ///< "Tracks", by the text of the track's identifier
    std::vector<MusicPlaylist> playlists; ///< "Playlists", in library order
};

using MusicLibraryRef = std::shared_ptr<const MusicLibrary>;

/// The library that the preferences name: the first entry of "iTunesRecentDatabases" in the
/// preference domain "com.apple.iApps" (`$XDG_CONFIG_HOME/com.apple.iApps.plist`), an array of URL
/// texts. None when that entry is no URL of a file or the file cannot be read as a property-list
/// dictionary. Where the key is missing or empty, the library of the desktop's own music
/// application is looked for, and then the demo music is offered as a library of one playlist.
/// Reads files; main thread.
MusicLibraryRef locateMusicLibrary();

/// Names `file` as the music library from the next start on. False when the preferences cannot be
/// written.
bool chooseMusicLibrary(const QString &file);

/// The library in a file, a property list in XML or binary form; none when it is no property-list
/// dictionary. XML is read as a stream: besides the result, memory holds a piece of the file.
MusicLibraryRef readMusicLibrary(const QString &file);

/// The library that lies with the demo music in `folder` as "Library.xml", its locations relative
/// to the folder; none when there is none.
MusicLibraryRef demoMusicLibrary(const QString &folder);

/// A "Location" as a URL: percent-encoded text, "file://localhost/..." meaning this computer; an
/// absolute path stands for its file. Invalid when the text is no URL.
QUrl locationURL(const QString &location);

} // namespace lyrabox
