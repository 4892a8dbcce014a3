#pragma once

#include "export/ExportRequest.h"
#include "platform/audio/SongReader.h"

#include <functional>
#include <memory>
#include <stop_token>

namespace lyrabox {

/// Who reads and writes the files. Tests replace them.
struct ExportTools {
    SongReaderFactory reader;
    std::function<std::unique_ptr<SongWriter>()> writer;
};

/// The program's decoders and encoders.
ExportTools platformExportTools();

/// Writes one file: decodes the song, and pulls it through stages of its own as fast as they go.
/// The stages are those of the player, and begin as after a seek to the first pass. So the samples
/// are those that playing from there gives, without the fades of the output. With neutral
/// channel tools, normal speed and pitch and a flat equalizer they are those of the decoded song,
/// bit for bit.
///
/// If all passes have one rate, the file has the frames of the passes divided by it, rounded. If
/// the rate changes, time/pitch glides to the new one as it does in playing, and the length follows
/// from that.
///
/// `advanced` is called with the progress from 0 to 1, several times a second. After a stop request
/// the call returns `cancelled` within a few milliseconds. Only the warm-up of time/pitch at the
/// beginning, a tenth of a second, and the flush at the very end are not interrupted. Returns the
/// statuses of SongReader and SongWriter, songChanged, nothingToWrite, notWritable if the target is
/// the song itself, and invalidParameter for a value that is not finite. Unless it returns noError,
/// there is no new file.
///
/// Blocks; any thread. It never touches the engine.
Status exportSong(const ExportRequest &request, const ExportTools &tools,
                  const std::stop_token &stop, const std::function<void(double)> &advanced);

} // namespace lyrabox
