#include "app/pedals/AssignmentRows.h"

#include "app/pedals/AssignmentList.h"

#include <algorithm>

namespace lyrabox {

AssignmentRows::AssignmentRows(const PedalAssignments *pedals, QObject *parent)
    : QAbstractTableModel(parent), m_pedals(pedals), m_rows(makeRows())
{
    connect(pedals, &PedalAssignments::changed, this, &AssignmentRows::refresh);
}

void AssignmentRows::addUnknown(std::vector<Row> &rows, const QString &id) const
{
    if (!id.isEmpty() && std::ranges::find(rows, id, &Row::id) == rows.end())
        rows.push_back({.kind = Kind::Unknown, .id = id, .group = tr("Unknown")});
}

std::vector<AssignmentRows::Row> AssignmentRows::makeRows() const
{
    std::vector<Row> rows;
    for (const MenuCommand &command : m_pedals->keys().commands())
        rows.push_back({.kind = Kind::Command, .id = command.id, .group = command.group});
    for (const auto &[id, value] : m_pedals->values())
        rows.push_back({.kind = Kind::Value, .id = id, .group = tr("Pedal or knob")});
    for (const PedalSwitch &each : m_pedals->map().switches) {
        for (const QString &id : {each.tap, each.doubleTap, each.hold})
            addUnknown(rows, id);
    }
    for (const PedalDial &dial : m_pedals->map().dials)
        addUnknown(rows, dial.target);
    for (Row &row : rows) {
        for (const Assignment &assignment : assignmentsOf(*m_pedals, row.id)) {
            QString &cell = assignment.kind == Assignment::Kind::Key ? row.keys : row.pedals;
            cell +=
                (cell.isEmpty() ? QString() : QStringLiteral("; ")) + assignmentText(assignment);
        }
    }
    return rows;
}

void AssignmentRows::refresh()
{
    std::vector<Row> rows = makeRows();
    const bool isSame = std::ranges::equal(rows, m_rows, {}, &Row::id, &Row::id);
    if (!isSame)
        beginResetModel();
    m_rows = std::move(rows);
    if (!isSame)
        endResetModel();
    else
        Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, Columns - 1));
}

QString AssignmentRows::id(int row) const
{
    return row >= 0 && row < rowCount() ? m_rows[static_cast<std::size_t>(row)].id : QString();
}

bool AssignmentRows::isValue(int row) const
{
    return row >= 0 && row < rowCount() &&
           m_rows[static_cast<std::size_t>(row)].kind == Kind::Value;
}

int AssignmentRows::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int AssignmentRows::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : Columns;
}

QVariant AssignmentRows::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::ToolTipRole))
        return {};
    const Row &row = m_rows[static_cast<std::size_t>(index.row())];
    switch (index.column()) {
    case Command:
        return m_pedals->nameOf(row.id);
    case Menu:
        return row.group;
    case Keys:
        return row.keys;
    default:
        return row.pedals;
    }
}

QVariant AssignmentRows::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    switch (section) {
    case Command:
        return tr("Command");
    case Menu:
        return tr("Menu");
    case Keys:
        return tr("Keys");
    default:
        return tr("Pedals");
    }
}

} // namespace lyrabox
