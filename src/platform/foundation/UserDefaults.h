#pragma once

#include <QSettings>
#include <QString>

namespace lyrabox {

/// The user defaults: `$XDG_CONFIG_HOME/Lyrabox/Lyrabox.conf`, INI, every key in the general group.
/// Main thread only. The file is opened at the first call and stays open.
QSettings &userDefaults();

/// Writes what is pending and opens the file again where the environment now says. For tests.
void reopenUserDefaults();

/// The number stored under `key`; `fallback` when there is none, or something that is no finite
/// number.
float finiteUserDefault(const QString &key, float fallback);

/// Stores `value` in the fewest decimal digits that read back as the same float.
void setUserDefault(const QString &key, float value);

/// The keys that the system itself defines; window geometry and the like have keys of their own
/// beside them.
namespace defaultsKey {

using namespace Qt::Literals::StringLiterals;

inline const QString outputVolume = u"outputVolume"_s; ///< float, 0 to 1
inline const QString shuffle = u"shuffle"_s;           ///< boolean
inline const QString eqPreset = u"eqPreset"_s;         ///< integer, preset id
inline const QString folderPath = u"folderPath"_s;     ///< string, absolute path
inline const QString playlist = u"playlist"_s;         ///< string, persistent id
inline const QString lastTab = u"lastTab"_s;           ///< integer, 0 playlists, 1 folders

} // namespace defaultsKey
} // namespace lyrabox
