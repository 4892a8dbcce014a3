#pragma once

#include "platform/audio/SongReader.h"

#include <QString>

#include <memory>

/// The decoders are a module of their own, which is opened when the first song is, or before:
/// loading all the libraries that they need takes as long as showing the windows.
namespace lyrabox {

/// The functions below are the module's only ones that the program knows by name, so that a module
/// of another version is told by the lack of them.
extern "C" {
using DecodingVersionFunction = const char *();         ///< LYRABOX_VERSION
using MakeSongReaderFunction = lyrabox::SongReader *(); ///< never null; the caller's
}
constexpr const char *decodingVersionName = "lyraboxDecodingVersion";
constexpr const char *makeSongReaderName = "lyraboxMakeSongReader";

/// One opened module, which stays loaded until the process ends.
class DecodingModule {
public:
    explicit DecodingModule(const QString &path);

    /// Why the module at the path cannot be used, in the words of the system; empty when it can.
    const QString &failure() const { return m_failure; }

    /// A reader of audio files; without a usable module one that opens nothing (missingDecoder).
    /// Any thread.
    std::unique_ptr<SongReader> makeSongReader() const;

private:
    MakeSongReaderFunction *m_makeSongReader = nullptr;
    QString m_failure;
};

/// The program's own module; the first call opens it, which takes some 50 ms, and others wait for
/// that. Any thread.
const DecodingModule &decodingModule();

} // namespace lyrabox
