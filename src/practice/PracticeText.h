#pragma once

#include "practice/PracticeRecord.h"

#include <QByteArray>
#include <QByteArrayView>

#include <optional>

/// The text of a practice file, see docs/practice-file.md. Any thread.
namespace lyrabox {

/// The version of the format that this program writes.
constexpr int practiceVersion = 1;

/// What a practice file contains.
struct PracticeReading {
    PracticeRecord record;
    bool isNewer = false; ///< written in a later version of the format: show it, never write it
    bool isWhole = true; ///< false if something in it was dropped or changed because it is no valid
                         ///< value, or because it is beyond a limit
};

/// Reads any bytes. None if they are no practice file: not JSON, larger than the limit, or without
/// a version.
std::optional<PracticeReading> readPractice(const QByteArray &text);

/// The text of a record, with a fixed order of keys and one line for each loop and marker. Reading
/// it gives the same record, except for the identifiers.
QByteArray practiceText(const PracticeRecord &record);

/// Whether practiceText() stays within the limit of a file. Takes microseconds unless the record
/// comes close.
bool fitsIntoFile(const PracticeRecord &record);

} // namespace lyrabox
