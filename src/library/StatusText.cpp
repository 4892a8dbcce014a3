#include "library/StatusText.h"

namespace lyrabox {

QString statusText(Status status)
{
    constexpr qsizetype maxLength = 4;
    const auto value = static_cast<std::uint32_t>(status);
    QString code;
    for (int shift = 24; shift >= 0; shift -= 8) {
        const auto byte = static_cast<unsigned char>(value >> shift);
        if (byte < 0x20 || byte > 0x7E)
            return QString::number(status).left(maxLength);
        code.append(QLatin1Char(static_cast<char>(byte)));
    }
    return code;
}

} // namespace lyrabox
