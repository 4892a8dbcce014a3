#pragma once

#include "engine/TrackRecord.h"

#include <cstddef>

namespace lyrabox::work {

/// Records of songs that do not exist: titles of one to five words, one accented in twenty; ten to
/// an album. The same ones at every call.
TrackRecordList inventedSongs(std::size_t count);

} // namespace lyrabox::work
