#pragma once

#include "sources/FolderListing.h"

/// A folder in the folder tree: a root that the user added, or a subfolder of one.
class LB_FolderItem : public lyrabox::DiskFolderItem {
public:
    /// `parent` is null for a root.
    LB_FolderItem(const QUrl &url, const std::shared_ptr<LB_FolderItem> &parent);

    /// The folder's path without a trailing separator. Identifies the folder in all stored values.
    QString itemID() const;

    /// The displayed name.
    struct ItemName {
        QString text;
        TextStyle style;
    };

    /// The last path component, slanted and dark gray if the folder can't be read. Every call
    /// accesses the disk.
    ItemName itemName() const { return {text(), textStyle()}; }

    /// Whether the process may read the folder now. Accesses the disk.
    bool isReachable() const;

    /// Whether the user can remove the folder from the tree: true for a root.
    bool isRemovable() const { return parent() == nullptr; }

    QString text() const override;
    TextStyle textStyle() const override;

protected:
    lyrabox::SourceItemRef makeChild(const QUrl &url) override;
};
