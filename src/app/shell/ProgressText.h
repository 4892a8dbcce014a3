#pragma once

#include <QString>

namespace lyrabox {

/// "Reading songs: 120 of 5,000".
QString listProgressText(qint64 done, qint64 found);

/// "Searching folders: 1,200 files".
QString searchProgressText(qint64 found);

/// "Skipping songs that cannot be loaded: 120 of 5,000".
QString skipProgressText(qint64 done, qint64 total);

/// `text`, and below it the key that stops what it tells of.
QString withStopHint(const QString &text);

/// "Loading: 35 of 240 seconds"; without the total where it is 0, which stands for not known.
QString loadProgressText(qint64 seconds, qint64 total);

} // namespace lyrabox
