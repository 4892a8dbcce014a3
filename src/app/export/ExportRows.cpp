#include "app/export/ExportRows.h"

#include "app/export/ExportText.h"

#include <QFileInfo>

#include <algorithm>
#include <cmath>

namespace lyrabox {

ExportRows::ExportRows(ExportQueue *queue, QObject *parent)
    : QAbstractTableModel(parent), m_queue(queue)
{
    connect(queue, &ExportQueue::changed, this, &ExportRows::follow);
    follow();
}

/// Entries leave in any place, and new ones come at the end. So rows keep their selection.
void ExportRows::follow()
{
    const std::vector<ExportQueue::Entry> &entries = m_queue->entries();
    for (int row = rowCount() - 1; row >= 0; --row) {
        const ExportQueue::Id id = m_ids.at(static_cast<std::size_t>(row));
        if (std::ranges::find(entries, id, &ExportQueue::Entry::id) != entries.end())
            continue;
        beginRemoveRows({}, row, row);
        m_ids.erase(m_ids.begin() + row);
        endRemoveRows();
    }
    if (m_ids.size() < entries.size()) {
        beginInsertRows({}, rowCount(), static_cast<int>(entries.size()) - 1);
        for (std::size_t i = m_ids.size(); i < entries.size(); ++i)
            m_ids.push_back(entries[i].id);
        endInsertRows();
    }
    if (!m_ids.empty())
        Q_EMIT dataChanged(index(0, State), index(rowCount() - 1, State));
}

ExportQueue::Id ExportRows::id(int row) const
{
    return row >= 0 && row < rowCount() ? m_ids[static_cast<std::size_t>(row)] : 0;
}

/// Null if the row's export has just left the queue.
const ExportQueue::Entry *ExportRows::entry(int row) const
{
    const std::vector<ExportQueue::Entry> &entries = m_queue->entries();
    const auto found = std::ranges::find(entries, id(row), &ExportQueue::Entry::id);
    return found == entries.end() ? nullptr : &*found;
}

bool ExportRows::canCancel(int row) const
{
    const ExportQueue::Entry *found = entry(row);
    return found != nullptr && (found->state == ExportQueue::State::Waiting ||
                                found->state == ExportQueue::State::Running);
}

QString ExportRows::problem(int row) const
{
    const ExportQueue::Entry *found = entry(row);
    return found != nullptr ? exportText::problem(found->status) : QString();
}

void ExportRows::showProgress()
{
    for (int row = 0; row < rowCount(); ++row) {
        if (const ExportQueue::Entry *found = entry(row);
            found != nullptr && found->state == ExportQueue::State::Running) {
            Q_EMIT dataChanged(index(row, State), index(row, State));
            return;
        }
    }
}

int ExportRows::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_ids.size());
}

int ExportRows::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : Columns;
}

QString ExportRows::stateText(const ExportQueue::Entry &entry) const
{
    switch (entry.state) {
    case ExportQueue::State::Waiting:
        return tr("Waiting");
    case ExportQueue::State::Running:
        return tr("%1 %").arg(static_cast<int>(std::floor(m_queue->progress() * 100.0)));
    case ExportQueue::State::Done:
        return tr("Done");
    case ExportQueue::State::Failed:
        return exportText::problem(entry.status);
    }
    return {};
}

QVariant ExportRows::data(const QModelIndex &index, int role) const
{
    const ExportQueue::Entry *shown = entry(index.row());
    if (shown == nullptr || (role != Qt::DisplayRole && role != Qt::ToolTipRole))
        return {};
    if (index.column() == State)
        return stateText(*shown);
    return role == Qt::ToolTipRole ? shown->request.target
                                   : QFileInfo(shown->request.target).fileName();
}

} // namespace lyrabox
