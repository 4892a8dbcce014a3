#include "sources/SourceTreeModel.h"

#include <QFont>

#include <algorithm>

namespace lyrabox {

namespace {

int rowIn(const std::vector<SourceItemRef> &items, const SourceItem *item)
{
    const auto found =
        std::find_if(items.begin(), items.end(),
                     [item](const SourceItemRef &candidate) { return candidate.get() == item; });
    return found == items.end() ? -1 : static_cast<int>(found - items.begin());
}

} // namespace

SourceTreeModel::~SourceTreeModel()
{
    for (const SourceItemRef &root : m_roots)
        root->discardChildren();
}

void SourceTreeModel::setRoots(std::vector<SourceItemRef> roots)
{
    beginResetModel();
    for (const SourceItemRef &root : m_roots)
        root->discardChildren();
    m_roots = std::move(roots);
    endResetModel();
}

void SourceTreeModel::appendRoot(const SourceItemRef &root)
{
    const int row = static_cast<int>(m_roots.size());
    beginInsertRows({}, row, row);
    m_roots.push_back(root);
    endInsertRows();
}

void SourceTreeModel::removeRoot(const SourceItemRef &root)
{
    const int row = rowIn(m_roots, root.get());
    if (row < 0)
        return;
    beginRemoveRows({}, row, row);
    m_roots.erase(m_roots.begin() + row);
    endRemoveRows();
    root->discardChildren();
}

void SourceTreeModel::discardListings()
{
    beginResetModel();
    for (const SourceItemRef &root : m_roots)
        root->discardChildren();
    endResetModel();
}

SourceItem *SourceTreeModel::rawItem(const QModelIndex &index)
{
    return static_cast<SourceItem *>(index.internalPointer());
}

SourceItemRef SourceTreeModel::itemAt(const QModelIndex &index) const
{
    return index.isValid() && index.model() == this ? rawItem(index)->shared_from_this() : nullptr;
}

int SourceTreeModel::rowOf(const SourceItem *item) const
{
    SourceItem *parent = item->parent().get();
    return rowIn(parent != nullptr ? parent->children() : m_roots, item);
}

QModelIndex SourceTreeModel::indexOf(const SourceItemRef &item) const
{
    const int row = item != nullptr ? rowOf(item.get()) : -1;
    return row < 0 ? QModelIndex() : createIndex(row, 0, item.get());
}

bool SourceTreeModel::isExpandable(const QModelIndex &index) const
{
    return !index.isValid() || rawItem(index)->numberOfChildren() != 0;
}

QModelIndex SourceTreeModel::index(int row, int column, const QModelIndex &parent) const
{
    if (!hasIndex(row, column, parent))
        return {};
    const std::vector<SourceItemRef> &items =
        parent.isValid() ? rawItem(parent)->children() : m_roots;
    return createIndex(row, column, items.at(static_cast<std::size_t>(row)).get());
}

QModelIndex SourceTreeModel::parent(const QModelIndex &child) const
{
    return child.isValid() ? indexOf(rawItem(child)->parent()) : QModelIndex();
}

int SourceTreeModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? rawItem(parent)->numberOfChildren()
                            : static_cast<int>(m_roots.size());
}

int SourceTreeModel::columnCount(const QModelIndex &) const
{
    return 1;
}

bool SourceTreeModel::hasChildren(const QModelIndex &parent) const
{
    if (!parent.isValid())
        return !m_roots.empty();
    SourceItem *item = rawItem(parent);
    return !item->isListed() || item->numberOfChildren() != 0;
}

QVariant SourceTreeModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    switch (role) {
    case Qt::DisplayRole:
    case Qt::DecorationRole:
    case Qt::ForegroundRole:
    case Qt::FontRole:
        break;
    default:
        return {};
    }
    const SourceItem::Appearance appearance = rawItem(index)->appearance();
    switch (role) {
    case Qt::DisplayRole:
        return appearance.text;
    case Qt::DecorationRole:
        return appearance.icon.isNull() ? QVariant() : QVariant(appearance.icon);
    case Qt::ForegroundRole:
        return appearance.foreground;
    default:
        if (appearance.obliqueness == 0.0)
            return {};
        QFont font;
        font.setItalic(true);
        return font;
    }
}

} // namespace lyrabox
