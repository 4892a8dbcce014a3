#pragma once

#include <QString>

namespace lyrabox {

/// How a list is sorted: the key of the track record, and the direction.
struct SortDescriptor {
    QString key;
    bool ascending = true;

    friend bool operator==(const SortDescriptor &, const SortDescriptor &) = default;
};

} // namespace lyrabox
