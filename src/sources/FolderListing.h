#pragma once

#include "sources/SourceItem.h"

#include <QUrl>

#include <optional>

namespace lyrabox {

/// The path of a folder's URL without a trailing separator. Folders are compared by it. It does not
/// fold case or resolve links or "..". A URL without a scheme is taken as a path.
QString folderPath(const QUrl &url);

/// The file URL of the folder at `path`.
QUrl folderURL(const QString &path);

/// The paths of a folder's direct subfolders by name, without hidden ones, packages and links. An
/// error ends the list early. Empty if the disk does not answer.
QStringList subfolderPaths(const QUrl &directory);

/// Whether the process may read the folder. False if its disk does not answer.
bool isReadableFolder(const QString &path);

/// A source item for a folder on disk. Lists its subfolders when they are first needed. Main
/// thread.
class DiskFolderItem : public SourceItem {
public:
    DiskFolderItem(const QUrl &url, SourceItemRef parent)
        : SourceItem(std::move(parent)), m_url(url)
    {}

    const QUrl &url() const { return m_url; }

    const std::vector<SourceItemRef> &children() override;
    bool isListed() const override { return m_children.has_value(); }
    void resetChildren() override;

protected:
    virtual SourceItemRef makeChild(const QUrl &url) = 0;

private:
    QUrl m_url;
    std::optional<std::vector<SourceItemRef>> m_children;
};

} // namespace lyrabox
