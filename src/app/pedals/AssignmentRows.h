#pragma once

#include "app/pedals/PedalAssignments.h"

#include <QAbstractTableModel>

namespace lyrabox {

/// All commands in the order of the menus, then the values that dials set, then what the file names
/// and this program does not know. Follows the assignments. Main thread.
class AssignmentRows : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Column { Command, Menu, Keys, Pedals, Columns };

    /// `pedals` must outlive this object.
    explicit AssignmentRows(const PedalAssignments *pedals, QObject *parent = nullptr);

    /// The identifier of a row. Empty if there is no such row.
    QString id(int row) const;
    /// Whether the row is a value.
    bool isValue(int row) const;

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    enum class Kind { Command, Value, Unknown };
    struct Row {
        Kind kind;
        QString id;
        QString group;
        QString keys = {};
        QString pedals = {};
    };
    void refresh();
    std::vector<Row> makeRows() const;
    void addUnknown(std::vector<Row> &rows, const QString &id) const;

    const PedalAssignments *m_pedals;
    std::vector<Row> m_rows;
};

} // namespace lyrabox
