#pragma once

#include "engine/TrackRecord.h"

#include <QString>

#include <cstdint>
#include <vector>

namespace lyrabox {

/// Ranks the records by their values under `key`: 0 for a missing value, equal ranks for equal
/// values, greater ranks for later ones. Texts are compared by textCollator(), everything else by
/// numeric value. Main thread; may use a second one while the caller waits.
std::vector<std::uint32_t> sortRanks(const TrackRecordList &records, const QString &key);

/// Sorts the record indices in `order` by rank; `ranks` holds the rank of each record. Equal ones
/// keep their order in both directions. Any thread.
void sortByRank(std::vector<std::uint32_t> &order, const std::vector<std::uint32_t> &ranks,
                bool ascending);

} // namespace lyrabox
