#pragma once

#include <QString>

namespace lyrabox {

/// How a list is sorted: by which key of the track record, in which direction.
struct SortDescriptor {
    QString key;
    bool ascending = true;

    friend bool operator==(const SortDescriptor &, const SortDescriptor &) = default;
};

} // namespace lyrabox
