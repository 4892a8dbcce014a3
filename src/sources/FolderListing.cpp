#include "sources/FolderListing.h"

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
    QStringList paths;
    for (const files::Entry &entry :
         files::shallowEntries(folderPath(directory), files::EntryKinds::Directories)) {
        if (!entry.isPackage)
            paths.append(entry.path);
    }
    return paths;
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

void DiskFolderItem::discardChildren()
{
    if (!m_children)
        return;
    const std::vector<SourceItemRef> children = std::move(*m_children);
    m_children.reset();
    for (const SourceItemRef &child : children)
        child->discardChildren();
}

} // namespace lyrabox
