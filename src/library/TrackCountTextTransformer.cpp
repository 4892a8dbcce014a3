#include "library/TrackCountTextTransformer.h"

#include <algorithm>
#include <limits>

QString TrackCountTextTransformer::transformedValue(quint64 count)
{
    if (count == 0)
        return {};
    if (count == 1)
        return tr("1 song");
    constexpr quint64 maxCount = std::numeric_limits<int>::max();
    return tr("%n songs", nullptr, static_cast<int>(std::min(count, maxCount)));
}
