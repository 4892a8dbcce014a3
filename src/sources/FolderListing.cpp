#include "sources/FolderListing.h"

#include "platform/foundation/DiskPatience.h"
#include "platform/foundation/Files.h"

#include <QStringList>

namespace lyrabox {

QString folderPath(const QUrl &url)
{
    QString path = url.isLocalFile() ? url.toLocalFile() : url.path(QUrl::FullyDecoded);
    while (path.size() > 1 && path.endsWith(QLatin1Char('/')))
        path.chop(1);
    return path;
}

QUrl folderURL(const QString &path)
{
    return QUrl::fromLocalFile(path);
}

QStringList subfolderPaths(const QUrl &directory)
{
    const QString folder = folderPath(directory);
    const auto entries = files::askPatiently<std::vector<files::Entry>>(
        folder, [folder] { return files::shallowEntries(folder, files::EntryKinds::Directories); });
    QStringList paths;
    for (const files::Entry &entry : entries.value_or(std::vector<files::Entry>())) {
        if (!entry.isPackage)
            paths.append(entry.path);
    }
    return paths;
}

bool isReadableFolder(const QString &path)
{
    return files::askPatiently<bool>(path, [path] { return files::isReadable(path); })
        .value_or(false);
}

const std::vector<SourceItemRef> &DiskFolderItem::children()
{
    if (!m_children) {
        m_children.emplace();
        const QStringList paths = subfolderPaths(m_url);
        m_children->reserve(static_cast<std::size_t>(paths.size()));
        for (const QString &path : paths)
            m_children->push_back(makeChild(folderURL(path)));
    }
    return *m_children;
}

void DiskFolderItem::resetChildren()
{
    if (!m_children)
        return;
    const std::vector<SourceItemRef> children = std::move(*m_children);
    m_children.reset();
    for (const SourceItemRef &child : children)
        child->resetChildren();
}

} // namespace lyrabox
