#include "platform/foundation/ByteSearch.h"

#include <cstring>

namespace lyrabox {

std::size_t findBytes(std::string_view bytes, std::string_view needle) noexcept
{
    // An empty view may have no data, and memmem() accepts no null pointers.
    if (bytes.empty() || needle.empty())
        return needle.empty() ? 0 : std::string_view::npos;
    const void *const found = memmem(bytes.data(), bytes.size(), needle.data(), needle.size());
    return found == nullptr
               ? std::string_view::npos
               : static_cast<std::size_t>(static_cast<const char *>(found) - bytes.data());
}

} // namespace lyrabox
