#pragma once

#include <QList>
#include <QString>
#include <QUrl>

namespace lyrabox {

/// Files and folders to open, from the command line, another process, a drop or the desktop.
struct OpenRequest {
    enum class Refusal {
        NotHere,    ///< not a file on this machine
        Missing,    ///< does not exist, or its name is not valid UTF-8
        Unreadable, ///< no permission, or its disk does not answer
        NotAudio,   ///< no decoder can read it
    };
    /// One item that is not opened, with its name for messages.
    struct Refused {
        QString name;
        Refusal reason;
    };

    QList<QUrl> files;   ///< possibly audio, in the given order
    QList<QUrl> folders; ///< in the given order
    QList<Refused> refused;
};

/// Sorts `urls` into files, folders and refused items. Looks at the file system, but opens nothing.
/// A disk that does not answer delays the call by a few seconds at most. Main thread.
OpenRequest classify(const QList<QUrl> &urls);

/// A message about refused items, in one line; empty if there are none.
QString refusalText(const QList<OpenRequest::Refused> &refused);

} // namespace lyrabox
