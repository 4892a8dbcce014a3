#pragma once

#include "platform/audio/SongReader.h"
#include "platform/foundation/LoadedModule.h"

#include <QString>

#include <memory>

/// The decoders are a module of their own, which is opened when the first song is, or before:
/// loading all the libraries that they need takes as long as showing the windows.
namespace lyrabox {

/// Beside its version, what the program finds in the module by name.
extern "C" {
using MakeSongReaderFunction = lyrabox::SongReader *(); ///< never null; the caller's
}
constexpr const char *decodingVersionName = "lyraboxDecodingVersion";
constexpr const char *makeSongReaderName = "lyraboxMakeSongReader";

/// One opened module, which stays loaded until the process ends.
class DecodingModule {
public:
    explicit DecodingModule(const QString &path);

    /// Why the module at the path cannot be used, in the words of the system; empty when it can.
    const QString &failure() const { return m_module.failure(); }

    /// A reader of audio files; without a usable module one that opens nothing (missingDecoder).
    /// Any thread.
    std::unique_ptr<SongReader> makeSongReader() const;

private:
    LoadedModule m_module;
    MakeSongReaderFunction *m_makeSongReader; ///< null when the module cannot be used
};

/// The program's own module; the first call opens it, which takes some 50 ms, and others wait for
/// that. Any thread.
const DecodingModule &decodingModule();

} // namespace lyrabox
