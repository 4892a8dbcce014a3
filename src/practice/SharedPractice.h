#pragma once

#include "practice/PracticeText.h"

#include <QByteArray>
#include <QString>

#include <cstdint>

/// Practice records that come from elsewhere: from another copy of the song, or from other people.
/// Any thread.
namespace lyrabox {

/// The content of a file that was shared.
struct SharedPractice {
    enum class Problem {
        None,
        Unreadable, ///< it cannot be opened, or is no regular file
        TooLarge,   ///< larger than PracticeLimits::fileBytes
        Newer,      ///< made by a later version
        Unknown,    ///< neither a practice file nor a label track
        Empty,      ///< there is nothing in it that could be taken over
    };

    Problem problem = Problem::None;
    PracticeRecord record = {}; ///< empty if there is a problem
    bool isWhole = true;        ///< false if something in the file was left out or changed
};

/// Reads any bytes as a practice file or as a label track.
SharedPractice readShared(const QByteArray &text);

/// Reads a file. Asks the disk.
SharedPractice loadShared(const QString &path);

/// The loops, markers and beats of a record, moved by so many frames. What would lie before the
/// song or beyond lastSongPlace is left out; a loop that begins before the song begins with it.
/// Loops and markers get new identifiers.
PracticeRecord movedPractice(const PracticeRecord &record, std::int64_t frames);

} // namespace lyrabox
