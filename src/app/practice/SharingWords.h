#pragma once

#include "practice/PracticeEdits.h"
#include "practice/SharedPractice.h"

#include <QString>

#include <cstdint>

/// What is said about practice files that are shared. One sentence or two each. Main thread.
namespace lyrabox::sharingWords {

/// The offer of a copy that was found.
QString offer(std::int64_t offsetFrames);

/// What was taken over. `offsetFrames` is by how much it was moved.
QString taken(const PracticeMerge &merge, std::int64_t offsetFrames, bool isWhole);
/// The same for a song that is not playing.
QString takenFor(const QString &song, const PracticeMerge &merge);

/// Asks whether a file is for the song that plays. `madeFor` is the title in the file; may be
/// empty.
QString question(const QString &madeFor, const QString &song);

/// Why a file cannot be taken over. `file` is its name.
QString problem(SharedPractice::Problem problem, const QString &file);
/// The file is for no song that is known, and none is playing.
QString noSong(const QString &file);
/// The record of the song takes no more, or cannot be changed.
QString notTaken();
/// A file could not be written.
QString notWritten(const QString &file);
/// A file was written.
QString shared(const QString &file);

} // namespace lyrabox::sharingWords
