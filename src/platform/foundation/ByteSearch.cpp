#include "platform/foundation/ByteSearch.h"

#include <cstring>

namespace lyrabox {

std::size_t findBytes(std::string_view bytes, std::string_view needle) noexcept
{
    const void *const found = memmem(bytes.data(), bytes.size(), needle.data(), needle.size());
    return found == nullptr
               ? std::string_view::npos
               : static_cast<std::size_t>(static_cast<const char *>(found) - bytes.data());
}

} // namespace lyrabox
