#pragma once

#include "sources/FolderListing.h"

/// One folder of the folder tree: a root that the user added, or a subfolder of one.
class LB_FolderItem : public lyrabox::DiskFolderItem {
public:
    /// `parent` is none for a root.
    LB_FolderItem(const QUrl &url, const std::shared_ptr<LB_FolderItem> &parent);

    /// The folder's path without a trailing separator: its identity in every stored value.
    QString itemID() const;

    /// The name as it is drawn.
    struct ItemName {
        QString text;
        TextStyle style;
    };

    /// The last path component; slanted and dark gray while the folder can't be read. Asks the disk
    /// at every call.
    ItemName itemName() const { return {text(), textStyle()}; }

    /// Whether the process may read the folder now.
    bool isReachable() const;

    /// True for a root.
    bool isRemovable() const { return parent() == nullptr; }

    /// Forgets the listed children; the next access lists the folder again.
    void resetChildren() { discardChildren(); }

    QString text() const override;
    TextStyle textStyle() const override;

protected:
    lyrabox::SourceItemRef makeChild(const QUrl &url) override;
};
