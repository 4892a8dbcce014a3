#pragma once

#include "engine/TrackRecord.h"

#include <QString>

#include <cstdint>
#include <vector>

namespace lyrabox {

/// For each record its place among the values that the records have under `key`: 0 for a missing
/// value, equal for equal values, greater for later ones. Text by textCollator(), everything else
/// by its numeric value.
std::vector<std::uint32_t> sortRanks(const TrackRecordList &records, const QString &key);

/// Sorts the record indices in `order` by their ranks; equal ones keep their order in both
/// directions.
void sortByRank(std::vector<std::uint32_t> &order, const std::vector<std::uint32_t> &ranks,
                bool ascending);

} // namespace lyrabox
