#pragma once

#include <QSettings>
#include <QString>

namespace lyrabox {

/// The user defaults: small preferences in `$XDG_CONFIG_HOME/Lyrabox/Lyrabox.conf`, an INI file
/// with every key in the general group. The first call opens the file, and it stays open. Main
/// thread only.
QSettings &userDefaults();

/// For tests: writes pending changes, then opens the file that the environment names now.
void reopenUserDefaults();

/// Stores `value` in the fewest decimal digits that read back as the same float. Main thread only.
void setUserDefault(const QString &key, float value);

/// The keys that belong to the player. Keys of the windows (geometry, columns and the like) are
/// defined where they are used.
namespace defaultsKey {

using namespace Qt::Literals::StringLiterals;

inline const QString outputVolume = u"outputVolume"_s; ///< float, 0 to 1
inline const QString shuffle = u"shuffle"_s;           ///< boolean
inline const QString eqPreset = u"eqPreset"_s;         ///< integer, preset id
inline const QString folderPath = u"folderPath"_s;     ///< string, absolute path
inline const QString playlist = u"playlist"_s;         ///< string, persistent ID of the playlist
inline const QString lastTab = u"lastTab"_s;           ///< integer, 0 playlists, 1 folders

} // namespace defaultsKey
} // namespace lyrabox
