#pragma once

#include <QString>

namespace lyrabox {

/// "Reading songs: 120 of 5,000". All numbers here are formatted for the user's locale. Main
/// thread.
QString listProgressText(qint64 done, qint64 found);

/// "Searching folders: 1,200 files".
QString searchProgressText(qint64 found);

/// "Skipping songs that cannot be loaded: 120 of 5,000".
QString skipProgressText(qint64 done, qint64 total);

/// `text` with a second line that names the key which stops the work.
QString withStopHint(const QString &text);

/// "Loading: 35 of 240 seconds". A total of 0 means that it is unknown; it is then left out.
QString loadProgressText(qint64 seconds, qint64 total);

} // namespace lyrabox
