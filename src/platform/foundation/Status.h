#pragma once

#include <cstdint>

namespace lyrabox {

/// The result of an operation: 0 is success, everything else is one of the errors in namespace
/// `status`. Callers pass it on unchanged; only the code that shows a message turns it into text.
using Status = std::int32_t;

/// The status whose bytes, the most significant first, are the four characters of `code`, as in
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
    fourCharCode("fmt?");                            ///< an audio file that no decoder here reads
constexpr Status invalidFile = fourCharCode("dta?"); ///< a malformed audio file
constexpr Status unspecified = fourCharCode("wht?"); ///< any other error
constexpr Status missingDecoder = fourCharCode("dec?");   ///< the decoders are not installed
constexpr Status noAudioDevice = fourCharCode("!dev");    ///< no sound server or no output device
constexpr Status soundServerHangs = fourCharCode("hang"); ///< the sound server does not answer
constexpr Status invalidParameter = -10878;               ///< the audio unit has no such parameter
constexpr Status noConnection = -10876; ///< an audio unit was started without a source

} // namespace status
} // namespace lyrabox
