#include "engine/TrackRecord.h"

#include <cmath>

namespace lyrabox {

double TrackRecord::durationValue() const
{
    bool isNumber = false;
    const double seconds = durationSeconds.toDouble(&isNumber);
    return isNumber && std::isfinite(seconds) ? seconds : 0.0;
}

QVariant TrackRecord::value(QStringView key) const
{
    if (key == u"title")
        return title ? QVariant(*title) : QVariant();
    if (key == u"artist")
        return artist;
    if (key == u"album")
        return album;
    if (key == u"durationSeconds")
        return durationSeconds;
    if (key == u"order")
        return order;
    if (key == u"inode")
        return inode;
    if (key == u"isPlaying")
        return isPlaying;
    if (key == u"hasSettings")
        return hasSettings;
    if (key == u"fileURL")
        return fileURL.isEmpty() ? QVariant() : QVariant(fileURL);
    return {};
}

} // namespace lyrabox
