#pragma once

#include <QString>
#include <QStringList>
#include <QUrl>

#include <memory>
#include <optional>
#include <unordered_map>
#include <vector>

namespace lyrabox {

/// One track of the music application's library. A member is empty if the library lacks its key.
struct MusicTrack {
    std::optional<QString> location; ///< "Location": the file's URL as text
    std::optional<QString> name;     ///< "Name"
    std::optional<QString> artist;   ///< "Artist"
    std::optional<QString> album;    ///< "Album"
    std::optional<double> totalTime; ///< "Total Time" in milliseconds; finite
};

/// One playlist of the library. The quoted words are the library's keys.
struct MusicPlaylist {
    QString persistentID;                      ///< "Playlist Persistent ID"
    std::optional<QString> parentPersistentID; ///< "Parent Persistent ID"
    QString name;                              ///< "Name"
    std::optional<bool> visible;               ///< "Visible"
    std::optional<qint64> distinguishedKind;   ///< "Distinguished Kind"
    std::optional<std::vector<QString>> items; ///< "Playlist Items": each "Track ID" as text
};

/// A whole library in memory. It is immutable once built, so its users share it.
struct MusicLibrary {
    std::unordered_map<QString, MusicTrack>
        tracks;                           ///< "Tracks", by the text of the track's identifier
    std::vector<MusicPlaylist> playlists; ///< "Playlists", in library order
};

using MusicLibraryRef = std::shared_ptr<const MusicLibrary>;

/// Finds and reads the user's music library. The preferences name it: the first entry of
/// "iTunesRecentDatabases", an array of URL texts, in the preference domain "com.apple.iApps"
/// (`$XDG_CONFIG_HOME/com.apple.iApps.plist`). Null if that entry is not the URL of a file or the
/// file is not a property-list dictionary.
///
/// If the key is missing or empty, the library of the desktop's own music application is used. If
/// there is none either, the result is the demo music as a library of one playlist.
///
/// Reads files and so blocks. Main thread only.
MusicLibraryRef locateMusicLibrary();

/// Makes `file` the music library, from the next start of the program on. False if the preferences
/// cannot be written.
bool chooseMusicLibrary(const QString &file);

/// Reads a library from a property list in XML or binary form. Null if the file is not a
/// property-list dictionary. XML is read as a stream: in addition to the result, memory holds only
/// one piece of the file. Blocks; any thread.
MusicLibraryRef readMusicLibrary(const QString &file);

/// Reads "Library.xml", the library of the demo music in `folder`. Its locations are relative to
/// the folder. Null if there is no such file. Blocks; any thread.
MusicLibraryRef demoMusicLibrary(const QString &folder);

/// A "Location" as a URL. The text is a percent-encoded URL or an absolute path; the host
/// "localhost" means this computer. An invalid URL if the text is neither.
QUrl locationURL(const QString &location);

} // namespace lyrabox
