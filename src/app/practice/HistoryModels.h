#pragma once

#include "practice/PracticeLog.h"

#include <QAbstractTableModel>

#include <optional>
#include <vector>

namespace lyrabox {

/// The loops of the history: first those of the present song, in the order of their places, then
/// all others, the one that was not touched for the longest time first. A row that cannot be
/// selected stands before each of the two parts. Main thread.
class HistoryLoops : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Column { Loop, Song, Best, Practised, Columns };

    using QAbstractTableModel::QAbstractTableModel;

    /// `song` names the present song, see PracticeDiary::songLine().
    void setLines(const std::vector<PracticeLogLine> &lines, const PracticeLogLine &song,
                  QDate today);

    /// The last line of the loop in a row. None for the rows between.
    std::optional<PracticeLogLine> loop(int row) const;
    /// The row of a loop; -1 if there is none.
    int rowOf(const PracticeLogLine &loop) const;
    /// The first row of a loop; -1 if there is none.
    int firstRow() const { return m_rows.empty() ? -1 : 1; }

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

private:
    struct Row {
        QString title = {}; ///< of a part; empty for a loop
        PracticeLogLine loop = {};
        std::optional<double> best = {};
    };
    void addPart(const QString &title, std::vector<Row> rows);
    QString dayText(QDate day) const;
    QString cellText(const Row &row, int column) const;

    std::vector<Row> m_rows;
    QDate m_today;
};

/// The name of a loop, or its place if it has none.
QString historyLoopName(const PracticeLogLine &loop);

/// A plot as a table of two columns, the newest row first. Main thread.
class HistoryTable : public QAbstractTableModel {
    Q_OBJECT

public:
    /// The texts of a row.
    struct Row {
        QString day;
        QString value;
    };

    HistoryTable(QString dayTitle, QString valueTitle, QObject *parent = nullptr);

    void setRows(std::vector<Row> rows);

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    QString m_titles[2];
    std::vector<Row> m_rows;
};

} // namespace lyrabox
