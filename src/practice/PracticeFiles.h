#pragma once

#include "practice/PracticeText.h"

#include "platform/foundation/FileStamp.h"

#include <QByteArray>
#include <QString>

#include <functional>
#include <optional>

/// The practice files on the disk. All functions ask the disk and may be called on any thread, but
/// on one at a time for each folder.
namespace lyrabox {

/// `$XDG_DATA_HOME/Lyrabox/Practice`; empty if the user has no folder for data. Creates nothing.
QString practiceFolder();

/// Whether a file of this name in the folder can be a practice file: it ends with ".json", is not
/// hidden, is not the index or the file of pedals and keys, and is no path.
bool isPracticeFileName(const QString &name);

/// A name for people, "Corner Shop Blues - 9f2c41d0.json": the title without characters that file
/// systems reserve, and the first digits of the hash; without a hash "Corner Shop Blues.json". If
/// `isTaken` says so, a number is added.
QString practiceFileName(const QString &title, const QString &audio,
                         const std::function<bool(const QString &name)> &isTaken);

/// What was found at a path.
struct PracticeFile {
    std::optional<PracticeReading> reading; ///< none if there is no file or it cannot be read
    std::optional<files::FileStamp> stamp;  ///< none if there is no file
};
PracticeFile loadPractice(const QString &path);

/// Everything that writing a practice file needs, so that another thread can do it.
struct PracticeWrite {
    QString folder; ///< created if it is missing
    QString name;
    QByteArray text;
    std::optional<files::FileStamp> expected = {}; ///< of the file when it was read or written
                                                   ///< last; none if it should be a new one
    bool keepsOld = false; ///< the old file is kept first, as "NAME.unreadable-N"
    QString supersedes =
        {};                ///< another file of the folder that is removed when this one is written
    QByteArray index = {}; ///< the new text of the index; empty if it stays
};

/// The result of writePractice().
struct PracticeWritten {
    bool isWritten = false;
    bool keptOther = false; ///< another program had changed the file; what it wrote was kept as
                            ///< "NAME.changed-N"
    std::optional<files::FileStamp> stamp = {}; ///< of the new file
};

/// Writes the file as a whole or not at all (see files::replaceFile). Never overwrites what it
/// should keep: if that fails, nothing is written. Errors are logged.
PracticeWritten writePractice(const PracticeWrite &write);

} // namespace lyrabox
