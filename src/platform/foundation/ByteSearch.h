#pragma once

#include <cstddef>
#include <string_view>

namespace lyrabox {

/// The offset of the first `needle` in `bytes`; std::string_view::npos if there is none. An empty
/// needle is found at 0. Any thread.
///
/// Several times as fast as std::string_view::find() if the needle's first byte is frequent.
std::size_t findBytes(std::string_view bytes, std::string_view needle) noexcept;

} // namespace lyrabox
