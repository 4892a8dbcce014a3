#pragma once

#include "platform/decoding/Input.h"

#include <cstdint>
#include <vector>

namespace lyrabox::decoding {

/// Bytes of a file.
struct FilePart {
    std::int64_t offset = 0;
    std::int64_t length = 0;
};

/// What is inside tags with more entries or text than any song has: the ID3v2 tag at the start or
/// within a WAVE or AIFF file, the comments of a FLAC file, the texts of an MP4 file. FFmpeg takes
/// a time that grows with the square of their number, and kilobytes of memory for a chapter of a
/// few bytes. For other containers see Inspector.
std::vector<FilePart> oversizedTags(const Input &input);

} // namespace lyrabox::decoding
