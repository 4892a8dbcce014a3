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
        root->resetChildren();
}

void SourceTreeModel::setRoots(std::vector<SourceItemRef> roots)
{
    beginResetModel();
    for (const SourceItemRef &root : m_roots)
        root->resetChildren();
    forgetLooks();
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
    root->resetChildren();
    forgetLooks();
}

void SourceTreeModel::discardListings()
{
    beginResetModel();
    for (const SourceItemRef &root : m_roots)
        root->resetChildren();
    forgetLooks();
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
    const SourceItem *item = rawItem(index);
    switch (role) {
    case Qt::DisplayRole:
        return item->text();
    case Qt::DecorationRole: {
        const QIcon &icon = iconOf(item);
        return icon.isNull() ? QVariant() : QVariant(icon);
    }
    case Qt::ForegroundRole:
        return textStyleOf(item).foreground;
    case Qt::FontRole: {
        if (textStyleOf(item).obliqueness == 0.0)
            return {};
        QFont font;
        font.setItalic(true);
        return font;
    }
    default:
        return {};
    }
}

const QIcon &SourceTreeModel::iconOf(const SourceItem *item) const
{
    std::optional<QIcon> &icon = m_looks[item].icon;
    if (!icon)
        icon = item->icon();
    return *icon;
}

const SourceItem::TextStyle &SourceTreeModel::textStyleOf(const SourceItem *item) const
{
    std::optional<SourceItem::TextStyle> &style = m_looks[item].textStyle;
    if (!style)
        style = item->textStyle();
    return *style;
}

void SourceTreeModel::forgetLooks()
{
    m_looks.clear();
}

void SourceTreeModel::forgetLooks(const QModelIndex &index)
{
    if (index.isValid())
        m_looks.erase(rawItem(index));
}

} // namespace lyrabox
