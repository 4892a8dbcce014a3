#pragma once

#include <QString>

namespace lyrabox {

/// "Reading songs: 120 of 5,000".
QString listProgressText(qint64 done, qint64 found);

/// "Loading: 35 of 240 seconds"; without the total where it is 0, which stands for not known.
QString loadProgressText(qint64 seconds, qint64 total);

} // namespace lyrabox
