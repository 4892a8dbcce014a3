#pragma once

#include <QString>
#include <QStringList>

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
    std::optional<double> totalTime; ///< "Total Time", milliseconds
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
/// texts. None when the key is missing or empty, the first entry is no URL, or the file cannot be
/// read as a property-list dictionary. Where no library is named, the library of the desktop's own
/// music application is looked for, and then the demo music is offered as a library of one
/// playlist. Reads files; main thread.
MusicLibraryRef locateMusicLibrary();

/// Names `file` as the music library from the next start on. False when the preferences cannot be
/// written.
bool chooseMusicLibrary(const QString &file);

} // namespace lyrabox
