#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <QUrl>

namespace lyrabox {

/// What was given from outside to be opened, sorted out.
struct OpenRequest {
    enum class Refusal {
        NotHere,    ///< not a file of this machine
        Missing,    ///< there is none, or its name is no valid text
        Unreadable, ///< it may not be read, or its disk does not answer
        NotAudio,   ///< nothing here decodes it
    };
    /// One thing that is not opened, by the name that a person knows it by.
    struct Refused {
        QString name;
        Refusal reason;
    };

    QList<QUrl> files;   ///< may be audio; in the order given
    QList<QUrl> folders; ///< in the order given
    QList<Refused> refused;
};

/// Sorts out `urls`. Asks the file system what each is, and opens nothing.
OpenRequest classify(const QList<QUrl> &urls);

/// Says what was refused, in one line; empty when nothing was.
QString refusalText(const QList<OpenRequest::Refused> &refused);

} // namespace lyrabox
