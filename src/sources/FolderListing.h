#pragma once

#include "sources/SourceItem.h"

#include <QUrl>

#include <optional>

namespace lyrabox {

/// The path of a folder's URL without a trailing separator; what two folders are compared by. No
/// case folding, no resolution of links or of "..". A URL without a scheme counts as a path.
QString folderPath(const QUrl &url);

/// A file URL of the folder at `path`.
QUrl folderURL(const QString &path);

/// The paths of a folder's immediate subfolders by name: no hidden ones, no packages, no links.
/// Errors end the list where they occur. A disk that does not answer has none.
QStringList subfolderPaths(const QUrl &directory);

/// Whether the process may read the folder; not while its disk does not answer.
bool isReadableFolder(const QString &path);

/// A source item that is a folder on disk and lists its subfolders when it is first asked for them.
class DiskFolderItem : public SourceItem {
public:
    DiskFolderItem(const QUrl &url, SourceItemRef parent)
        : SourceItem(std::move(parent)), m_url(url)
    {}

    const QUrl &url() const { return m_url; }

    const std::vector<SourceItemRef> &children() override;
    bool isListed() const override { return m_children.has_value(); }
    void discardChildren() override;

protected:
    virtual SourceItemRef makeChild(const QUrl &url) = 0;

private:
    QUrl m_url;
    std::optional<std::vector<SourceItemRef>> m_children;
};

} // namespace lyrabox
