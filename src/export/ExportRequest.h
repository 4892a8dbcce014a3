#pragma once

#include "platform/audio/ChannelTools.h"
#include "platform/audio/Clicks.h"
#include "platform/audio/GraphicEqualizerDesign.h"
#include "platform/audio/SongWriter.h"
#include "platform/foundation/FileStamp.h"

#include <QString>

#include <cstdint>
#include <limits>
#include <memory>
#include <optional>
#include <vector>

/// Writes songs, loops and practice passes to files, as they sound.
namespace lyrabox {

namespace status {

constexpr Status songChanged = fourCharCode("chg?");    ///< the song's file is another one now
constexpr Status nothingToWrite = fourCharCode("len?"); ///< no frame of the song is in the passes
constexpr Status cancelled = fourCharCode("stop");      ///< the export was cancelled

} // namespace status

/// One stretch of the song. Frames are frames of the song at 44,100 Hz.
struct ExportPass {
    static constexpr std::uint64_t songEnd = std::numeric_limits<std::uint64_t>::max();

    std::uint64_t start = 0;
    std::uint64_t end = songEnd; ///< the frame after the last one. The song's end comes first.
    float rate = 1.0F;           ///< as parameter::rate; also of the lead-in
    LeadIn before = {};          ///< silence before the pass, with the clicks of a count-in
};

/// What is written, and how it sounds. Plain values, so that it crosses to the thread of the job.
struct ExportRequest {
    QString source = {}; ///< the song's file
    /// The song's file as it was when it was loaded. None: any file at that path will do.
    std::optional<files::FileStamp> sourceStamp = std::nullopt;
    QString target = {}; ///< the new file, with its suffix
    SongFormat format = SongFormat::Flac;
    SongDetails details = {}; ///< `frames` is filled in

    std::vector<ExportPass> passes = {ExportPass{}};    ///< one after the other, without a gap
    ChannelTools channels = {};                         ///< numbers are brought within their ranges
    float pitchCents = 0.0F;                            ///< as parameter::pitch
    equalizer::Levels levels{};                         ///< dB of each of the equalizer's bands
    std::shared_ptr<const ClickTable> clicks = nullptr; ///< null: the metronome is off
    ClickSound clickSound = {};
};

/// The same stretch `times` times.
std::vector<ExportPass> repeatedPass(const ExportPass &pass, int times);

/// The rate at which a pass of this rate sounds: within the range of time/pitch.
double soundingRate(float rate);

/// About how many frames the passes of a song of `songFrames` frames give.
std::uint64_t exportedFrames(const std::vector<ExportPass> &passes, std::uint64_t songFrames);

/// A name for the file of a title, with the format's suffix. It has no characters that file systems
/// of phones refuse, no dot at its start, and at most 255 bytes. `otherwise` is used if nothing of
/// the title is left.
QString exportFileName(const QString &title, SongFormat format, const QString &otherwise);

} // namespace lyrabox
