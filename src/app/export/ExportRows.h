#pragma once

#include "app/export/ExportQueue.h"

#include <QAbstractTableModel>

namespace lyrabox {

/// The exports of a queue as rows: the name of the file, and how far it is or why it failed. Main
/// thread.
class ExportRows : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Column { Name, State, Columns };

    /// `queue` must outlive the model.
    explicit ExportRows(ExportQueue *queue, QObject *parent = nullptr);

    /// The export of a row; 0 if there is no such row.
    ExportQueue::Id id(int row) const;
    /// Whether the export of a row waits or runs.
    bool canCancel(int row) const;
    /// Why the export of a row failed; empty if it did not.
    QString problem(int row) const;
    /// Shows how far the export that runs is.
    void showProgress();

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;

private:
    void follow();
    const ExportQueue::Entry *entry(int row) const;
    QString stateText(const ExportQueue::Entry &entry) const;

    ExportQueue *m_queue;
    std::vector<ExportQueue::Id> m_ids; ///< as they are shown
};

} // namespace lyrabox
