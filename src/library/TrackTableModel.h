#pragma once

#include "app/controls/LB_InvertibleImageCellView.h"
#include "engine/TrackRecord.h"
#include "library/TrackSearch.h"
#include "library/TrackSorting.h"
#include "settings/SortDescriptor.h"

#include <QAbstractTableModel>
#include <QHash>

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

namespace lyrabox {

/// The records of one list (the content, in its sort order) and those that pass the search (the
/// rows). Text is folded and ranked once per list, so that searching and sorting stay quick with
/// 100,000 rows.
class TrackTableModel : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Column { IsPlaying, Title, Artist, Album, DurationSeconds, HasSettings, ColumnCount };
    enum Role {
        /// The name of the cell's image; an empty string for no image, invalid in text columns.
        ImageNameRole = LB_InvertibleImageCellView::imageNameRole,
    };

    explicit TrackTableModel(QObject *parent = nullptr);

    /// The record key that a column shows and sorts by.
    static QString columnIdentifier(int column);

    /// The column of a record key; -1 when no column shows it.
    static int columnWithIdentifier(const QString &key);

    void setContent(const TrackRecordList &records);
    TrackRecordList content() const;
    std::size_t contentSize() const { return m_records.size(); }
    TrackRecordList arrangedObjects() const;
    TrackRecordRef trackAtRow(int row) const;

    /// Shows only the records whose title, artist or album contains `text`, ignoring case and
    /// diacritics; all of them when it is empty.
    void setSearchText(const QString &text);

    /// Sorts the content in place; equal records keep their order. The first descriptor counts
    /// most.
    void sortContent(const std::vector<SortDescriptor> &descriptors);

    /// Marks the rows whose inode is the given one as playing, and no others. Hidden records are
    /// left alone.
    void updateIsPlaying(const std::optional<QString> &inode);

    /// The first row that is marked as playing; -1 for none.
    int firstPlayingRow() const;

    /// The row of a record; -1 when it is not shown.
    int rowOfTrack(const TrackRecordRef &track) const;

    void setHeaderTitle(int column, const QString &title);
    QString headerTitle(int column) const;

    /// "hasSettings" was rewritten in place: shows the rows anew.
    void reloadRows();

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;

private:
    using Index = std::uint32_t; // of a record in m_records

    void arrange();
    const std::vector<std::uint32_t> &ranksOf(const QString &key);
    static QVariant alignment(int column);
    QVariant displayText(const TrackRecord &record, int column) const;

    TrackRecordList m_records;     // as they were built
    std::vector<Index> m_order;    // the content's order
    std::vector<Index> m_arranged; // the rows
    std::vector<std::size_t> m_inodeHashes;
    std::vector<std::uint8_t>
        m_isPlaying; // the records' flags, at hand without visiting each record
    TrackSearch m_search;
    QHash<QString, std::vector<std::uint32_t>> m_ranks;
    std::array<QString, ColumnCount> m_headerTitles;
};

} // namespace lyrabox
