#include "library/TrackCountTextTransformer.h"

QString TrackCountTextTransformer::transformedValue(quint64 count)
{
    if (count == 0)
        return {};
    if (count == 1)
        return tr("1 song");
    return tr("%1 songs").arg(count);
}
