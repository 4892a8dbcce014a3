#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>

namespace lyrabox::decoding {

class Input;

/// Checks the bytes of a file before FFmpeg gets them. FFmpeg reads a block of tags as a whole. The
/// time that this takes is quadratic in the number of tags, and it cannot be interrupted. So
/// excessive tags must be removed beforehand. One thread at a time.
class Inspector {
public:
    virtual ~Inspector() = default;

    /// Checks, and may change, `bytes`, which start at `offset` of the file as counted by
    /// Input::peek(). May be called again for the same bytes. Returns how many of them to pass on;
    /// 0 ends the file there.
    virtual std::size_t inspect(std::int64_t offset, std::span<std::uint8_t> bytes) = 0;
};

/// For Ogg: makes comments with too many entries unreadable, at the beginning as well as within the
/// sound. Ends the file before a packet of several megabytes. `input` must outlive the inspector.
std::unique_ptr<Inspector> makeOggInspector(const Input &input);

/// For Matroska: turns tags, chapters, attachments and tables with too many entries or bytes into
/// padding, wherever they are. Ends the file where the total of small ones becomes too large.
/// `input` must outlive the inspector.
std::unique_ptr<Inspector> makeMatroskaInspector(const Input &input);

} // namespace lyrabox::decoding
