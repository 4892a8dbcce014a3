#pragma once

#include <QString>

/// The names of all notifications. All are posted without an object.
namespace lyrabox::notification {

using namespace Qt::Literals::StringLiterals;

inline const QString currentTrackChanged =
    u"LBCurrentTrackChanged"_s; ///< after every load and unload
inline const QString playPressedOnEmpty = u"LBPlayPressedOnEmpty"_s; ///< play with nothing loaded
inline const QString songSettingsChanged =
    u"LBSongSettingsChanged"_s;                                  ///< a song's settings were set
inline const QString folderSelected = u"LBFolderSelected"_s;     ///< a folder was selected
inline const QString playlistSelected = u"LBPlaylistSelected"_s; ///< a playlist was selected
inline const QString applicationDidFinishLaunching = u"ApplicationDidFinishLaunching"_s;
inline const QString applicationWillTerminate = u"ApplicationWillTerminate"_s;
inline const QString volumeDidMount = u"VolumeDidMount"_s;
inline const QString volumeDidUnmount = u"VolumeDidUnmount"_s;

} // namespace lyrabox::notification
