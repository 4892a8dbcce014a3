#include "app/shell/OpenRequest.h"

#include "platform/foundation/DiskPatience.h"
#include "platform/foundation/Files.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace lyrabox {

namespace {

struct OpenText {
    Q_DECLARE_TR_FUNCTIONS(OpenText)
};

/// The name for messages: the file's name, or the whole URL if there is none.
QString nameOf(const QUrl &url)
{
    const QString name = url.isLocalFile() ? url.fileName() : QString();
    return name.isEmpty() ? url.toDisplayString() : name;
}

enum class Kind { Missing, Closed, Folder, File };

Kind kindOf(const QString &path)
{
    const QFileInfo info(path);
    if (!info.exists())
        return Kind::Missing;
    if (!files::isReadable(path))
        return Kind::Closed;
    return info.isDir() ? Kind::Folder : Kind::File;
}

} // namespace

OpenRequest classify(const QList<QUrl> &urls)
{
    using Refusal = OpenRequest::Refusal;
    OpenRequest request;
    for (const QUrl &url : urls) {
        const auto refuse = [&](Refusal reason) { request.refused.append({nameOf(url), reason}); };
        if (!url.isLocalFile() || !url.host().isEmpty()) {
            refuse(Refusal::NotHere);
            continue;
        }
        const QString path = url.toLocalFile();
        // A disk that does not answer must not delay the files on other disks.
        const Kind kind =
            files::askPatiently<Kind>(path, [path] { return kindOf(path); }).value_or(Kind::Closed);
        switch (kind) {
        case Kind::Missing:
            refuse(Refusal::Missing);
            break;
        case Kind::Closed:
            refuse(Refusal::Unreadable);
            break;
        case Kind::Folder:
            request.folders.append(url);
            break;
        case Kind::File:
            request.files.append(url);
            break;
        }
    }
    return request;
}

QString refusalText(const QList<OpenRequest::Refused> &refused)
{
    using Refusal = OpenRequest::Refusal;
    if (refused.isEmpty())
        return {};
    const QString name = refused.front().name.simplified();
    if (refused.size() > 1)
        return OpenText::tr("'%1' and %n more could not be opened", nullptr,
                            static_cast<int>(refused.size() - 1))
            .arg(name);
    switch (refused.front().reason) {
    case Refusal::NotHere:
        return OpenText::tr("'%1' is not a file on this computer").arg(name);
    case Refusal::Missing:
        return OpenText::tr("There is no '%1'").arg(name);
    case Refusal::Unreadable:
        return OpenText::tr("'%1' may not be read").arg(name);
    case Refusal::NotAudio:
        return OpenText::tr("'%1' is not an audio file").arg(name);
    }
    return {};
}

} // namespace lyrabox
