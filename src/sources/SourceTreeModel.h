#pragma once

#include "sources/SourceItem.h"

#include <QAbstractItemModel>

#include <optional>
#include <unordered_map>

namespace lyrabox {

/// The one item model of the three source trees. It holds the roots in order; the items beneath are
/// theirs. A folder is not listed before its row is shown: until then it counts as having children.
/// Icons and text styles, which may have to be looked up on the disk, are asked for once per row
/// and remembered until forgetLooks(), or until the roots or listings change.
class SourceTreeModel : public QAbstractItemModel {
    Q_OBJECT

public:
    explicit SourceTreeModel(QObject *parent = nullptr) : QAbstractItemModel(parent) {}
    ~SourceTreeModel() override;

    const std::vector<SourceItemRef> &roots() const { return m_roots; }
    void setRoots(std::vector<SourceItemRef> roots);
    void appendRoot(const SourceItemRef &root);

    /// Lets go of the root and of what is listed beneath it; nothing when it is none.
    void removeRoot(const SourceItemRef &root);

    /// Forgets what is listed beneath every root.
    void discardListings();

    /// Forgets the icons and text styles of all rows, or of one row; the next drawing asks for
    /// them.
    void forgetLooks();
    void forgetLooks(const QModelIndex &index);

    /// None for an invalid index.
    SourceItemRef itemAt(const QModelIndex &index) const;

    /// Invalid for none, and for an item that is not in the tree.
    QModelIndex indexOf(const SourceItemRef &item) const;

    /// Whether the item has children; lists its folder if that was not done yet. The top level is
    /// always expandable.
    bool isExpandable(const QModelIndex &index) const;

    QModelIndex index(int row, int column, const QModelIndex &parent = {}) const override;
    QModelIndex parent(const QModelIndex &child) const override;
    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    bool hasChildren(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;

private:
    static SourceItem *rawItem(const QModelIndex &index);
    int rowOf(const SourceItem *item) const;
    const QIcon &iconOf(const SourceItem *item) const;
    const SourceItem::TextStyle &textStyleOf(const SourceItem *item) const;

    struct Looks {
        std::optional<QIcon> icon;
        std::optional<SourceItem::TextStyle> textStyle;
    };

    std::vector<SourceItemRef> m_roots;
    mutable std::unordered_map<const SourceItem *, Looks> m_looks;
};

} // namespace lyrabox
