#pragma once

#include "sources/SourceItem.h"

#include <QAbstractItemModel>

#include <optional>
#include <unordered_map>

namespace lyrabox {

/// The item model of the three source trees. Owns the roots. A folder is listed when its row is
/// first shown; until then it counts as having children. Icons and text styles may need the disk,
/// so they are read once per row and cached until forgetLooks() is called or the roots or listings
/// change. Main thread.
class SourceTreeModel : public QAbstractItemModel {
    Q_OBJECT

public:
    explicit SourceTreeModel(QObject *parent = nullptr) : QAbstractItemModel(parent) {}
    ~SourceTreeModel() override;

    const std::vector<SourceItemRef> &roots() const { return m_roots; }
    /// Replaces all roots.
    void setRoots(std::vector<SourceItemRef> roots);
    /// Adds a root after the others.
    void appendRoot(const SourceItemRef &root);

    /// Removes a root and releases everything listed below it. Does nothing if `root` is not a
    /// root.
    void removeRoot(const SourceItemRef &root);

    /// Releases everything listed below the roots.
    void discardListings();

    /// Drops the cached icons and text styles of all rows, or of one. They are read again when the
    /// rows are drawn.
    void forgetLooks();
    void forgetLooks(const QModelIndex &index);

    /// Null for an invalid index.
    SourceItemRef itemAt(const QModelIndex &index) const;

    /// Invalid for null, and for an item that is not in the tree.
    QModelIndex indexOf(const SourceItemRef &item) const;

    /// Whether the item has children. Lists its folder if it is not listed yet. The top level is
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
