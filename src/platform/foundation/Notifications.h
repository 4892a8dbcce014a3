#pragma once

#include <QString>

/// The names of all notifications of the NotificationCenter. They carry no data.
namespace lyrabox::notification {

using namespace Qt::Literals::StringLiterals;

inline const QString currentTrackChanged =
    u"LBCurrentTrackChanged"_s; ///< posted after every load and unload
inline const QString playPressedOnEmpty =
    u"LBPlayPressedOnEmpty"_s; ///< Play was pressed with no song loaded
inline const QString songSettingsChanged =
    u"LBSongSettingsChanged"_s; ///< the speed or pitch of a song was stored
inline const QString folderSelected = u"LBFolderSelected"_s;     ///< in the folder tree
inline const QString playlistSelected = u"LBPlaylistSelected"_s; ///< in the playlist tree
inline const QString applicationDidFinishLaunching = u"ApplicationDidFinishLaunching"_s;
inline const QString applicationWillTerminate = u"ApplicationWillTerminate"_s;
inline const QString volumeDidMount = u"VolumeDidMount"_s;
inline const QString volumeDidUnmount = u"VolumeDidUnmount"_s;

} // namespace lyrabox::notification
