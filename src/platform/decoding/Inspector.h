#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>

namespace lyrabox::decoding {

class Input;

/// Looks at the bytes of a file before FFmpeg gets them. FFmpeg takes a block of tags in whole, in
/// a time that grows with the square of their number, and asks nobody meanwhile: whatever is too
/// much has to be out of the way by then.
class Inspector {
public:
    virtual ~Inspector() = default;

    /// `bytes` stand at `offset` of the file as Input::peek() counts; may be asked
    /// for the same ones again. Changes them, without changing their number, and returns how many
    /// to hand on; with 0 the file ends there.
    virtual std::size_t inspect(std::int64_t offset, std::span<std::uint8_t> bytes) = 0;
};

/// Ogg: comments with too many entries are made unreadable, whether they stand at the beginning or
/// within the sound; the file ends before a packet of megabytes.
std::unique_ptr<Inspector> makeOggInspector(const Input &input);

/// Matroska: tags, chapters, attachments and tables with too many entries or bytes become padding,
/// wherever they stand; the file ends before the sum of the small ones is too much.
std::unique_ptr<Inspector> makeMatroskaInspector(const Input &input);

} // namespace lyrabox::decoding
