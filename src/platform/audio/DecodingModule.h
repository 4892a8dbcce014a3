#pragma once

#include "platform/audio/SongReader.h"
#include "platform/foundation/LoadedModule.h"

#include <QString>

#include <memory>

/// The decoders are in a module of their own, because loading their libraries takes as long as
/// showing the windows. The module is opened before the first song, or with it.
namespace lyrabox {

/// The functions that the program looks up in the module by name, apart from the version.
extern "C" {
using MakeSongReaderFunction = lyrabox::SongReader *(); ///< never null; the caller owns the result
}
constexpr const char *decodingVersionName = "lyraboxDecodingVersion";
constexpr const char *makeSongReaderName = "lyraboxMakeSongReader";

/// The opened module. It stays loaded until the process ends.
class DecodingModule {
public:
    explicit DecodingModule(const QString &path);

    /// The system's reason why the module cannot be used. Empty if it can.
    const QString &failure() const { return m_module.failure(); }

    /// A reader of audio files. If the module cannot be used, the reader's open() returns
    /// missingDecoder. Any thread.
    std::unique_ptr<SongReader> makeSongReader() const;

private:
    LoadedModule m_module;
    MakeSongReaderFunction *m_makeSongReader; ///< null if the module cannot be used
};

/// The program's decoding module. The first call opens it, which takes about 50 ms. Calls on other
/// threads wait until it is open. Any thread.
const DecodingModule &decodingModule();

} // namespace lyrabox
