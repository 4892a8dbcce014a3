#pragma once

#include "platform/decoding/Input.h"

#include <cstdint>
#include <vector>

namespace lyrabox::decoding {

/// A range of bytes in a file.
struct FilePart {
    std::int64_t offset = 0;
    std::int64_t length = 0;
};

/// Finds the content of tags with more entries or text than any real song has: ID3v2 tags at the
/// start of a file or inside a WAVE or AIFF file, comments of a FLAC file, text tags of an MP4
/// file. FFmpeg would need time proportional to the square of the number of entries, and kilobytes
/// of memory for a chapter of a few bytes. For other containers see Inspector. Reads the file, on
/// the thread that uses `input`.
std::vector<FilePart> oversizedTags(const Input &input);

} // namespace lyrabox::decoding
