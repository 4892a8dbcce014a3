#pragma once

#include "engine/TrackRecord.h"

#include <cstddef>

namespace lyrabox::work {

/// Makes records of invented songs, ten per album. Titles have one to five words; one in twenty has
/// an accent. Every call returns the same records.
TrackRecordList inventedSongs(std::size_t count);

} // namespace lyrabox::work
