#pragma once

#include <cstdint>

namespace lyrabox {

/// A signed 32-bit platform status: 0 is success. It travels up unchanged; only the place that
/// shows a message turns it into text.
using Status = std::int32_t;

/// The status whose four bytes, most significant first, are the characters given:
/// fourCharCode("typ?").
constexpr Status fourCharCode(const char (&code)[5])
{
    return static_cast<Status>(
        (static_cast<std::uint32_t>(static_cast<unsigned char>(code[0])) << 24) |
        (static_cast<std::uint32_t>(static_cast<unsigned char>(code[1])) << 16) |
        (static_cast<std::uint32_t>(static_cast<unsigned char>(code[2])) << 8) |
        static_cast<std::uint32_t>(static_cast<unsigned char>(code[3])));
}

namespace status {

constexpr Status noError = 0;
constexpr Status fileNotFound = -43;                         ///< no such file
constexpr Status noPermission = -54;                         ///< the file may not be read
constexpr Status notEnoughMemory = -108;                     ///< the decoded song does not fit
constexpr Status unsupportedFileType = fourCharCode("typ?"); ///< not an audio file
constexpr Status unsupportedDataFormat =
    fourCharCode("fmt?");                                 ///< audio, but nothing here decodes it
constexpr Status invalidFile = fourCharCode("dta?");      ///< an audio file, but malformed
constexpr Status unspecified = fourCharCode("wht?");      ///< anything else
constexpr Status missingDecoder = fourCharCode("dec?");   ///< the decoders are not installed
constexpr Status noAudioDevice = fourCharCode("!dev");    ///< no sound server or no output device
constexpr Status soundServerHangs = fourCharCode("hang"); ///< the sound server does not answer
constexpr Status invalidParameter = -10878; ///< a parameter ID that a unit does not have
constexpr Status noConnection = -10876;     ///< a unit without a source was started

} // namespace status
} // namespace lyrabox
