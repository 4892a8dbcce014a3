#pragma once

#include "platform/audio/SongWriter.h"
#include "platform/foundation/LoadedModule.h"

#include <QString>

#include <cstdint>
#include <memory>
#include <vector>

/// The encoders are in a module of their own, because most sessions write no song. The module is
/// opened when the first song is written.
namespace lyrabox {

/// The functions that the program looks up in the module by name, apart from the version.
extern "C" {
using MakeSongWriterFunction = lyrabox::SongWriter *(); ///< never null; the caller owns the result
using WritableSongFormatsFunction = std::uint32_t();    ///< bit n: the format with the value n
}
constexpr const char *encodingVersionName = "lyraboxEncodingVersion";
constexpr const char *makeSongWriterName = "lyraboxMakeSongWriter";
constexpr const char *writableSongFormatsName = "lyraboxWritableSongFormats";

/// The opened module. It stays loaded until the process ends.
class EncodingModule {
public:
    explicit EncodingModule(const QString &path);

    /// The system's reason why the module cannot be used. Empty if it can.
    const QString &failure() const { return m_module.failure(); }

    /// The formats that the encoders on this machine can write, in the order of allSongFormats.
    /// Empty if the module cannot be used. Any thread.
    std::vector<SongFormat> formats() const;

    /// A writer of audio files. If the module cannot be used, the writer's open() returns
    /// missingEncoder. Any thread.
    std::unique_ptr<SongWriter> makeSongWriter() const;

private:
    LoadedModule m_module;
    MakeSongWriterFunction *m_makeSongWriter;           ///< null if the module cannot be used
    WritableSongFormatsFunction *m_writableSongFormats; ///< likewise
};

/// The program's encoding module. The first call opens it, which takes up to 50 ms. Calls on other
/// threads wait until it is open. Any thread.
const EncodingModule &encodingModule();

} // namespace lyrabox
