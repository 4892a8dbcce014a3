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

/// The model of the track table. Holds the records of a list (the content, in sort order) and those
/// that pass the search (the rows). Text is folded and ranked once per list, so that searching and
/// sorting stay fast with 100,000 rows. Main thread.
class TrackTableModel : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Column { IsPlaying, Title, Artist, Album, DurationSeconds, HasSettings, ColumnCount };
    enum Role {
        /// Name of the cell's image. An empty string means no image; invalid in text columns.
        ImageNameRole = LB_InvertibleImageCellView::imageNameRole,
    };

    explicit TrackTableModel(QObject *parent = nullptr);

    /// The record key that a column shows and sorts by.
    static QString columnIdentifier(int column);

    /// The column of a record key, or -1.
    static int columnWithIdentifier(const QString &key);

    /// Replaces the records. The search text still applies.
    void setContent(const TrackRecordList &records);

    /// All records in sort order.
    TrackRecordList content() const;
    std::size_t contentSize() const { return m_records.size(); }

    /// The records of the rows.
    TrackRecordList arrangedObjects() const;

    /// The record of a row; null if there is no such row.
    TrackRecordRef trackAtRow(int row) const;

    /// Shows only records whose title, artist or album contains `text`, ignoring case and
    /// diacritics. An empty text shows all.
    void setSearchText(const QString &text);

    /// Sorts the content in place. Equal records keep their order. The first descriptor has the
    /// highest priority.
    void sortContent(const std::vector<SortDescriptor> &descriptors);

    /// Marks exactly the rows with this inode as playing. Does not change hidden records.
    void updateIsPlaying(const std::optional<QString> &inode);

    /// The first row that is marked as playing, or -1.
    int firstPlayingRow() const;

    /// The row of a record, or -1 if it is not shown.
    int rowOfTrack(const TrackRecordRef &track) const;

    void setHeaderTitle(int column, const QString &title);
    QString headerTitle(int column) const;

    /// Repaints all rows after "hasSettings" was changed in the records.
    void reloadRows();

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;

private:
    using Index = std::uint32_t; // Index of a record in m_records.

    void arrange();
    const std::vector<std::uint32_t> &ranksOf(const QString &key);
    static QVariant alignment(int column);
    QVariant displayText(const TrackRecord &record, int column) const;

    TrackRecordList m_records;     // In building order.
    std::vector<Index> m_order;    // The order of the content.
    std::vector<Index> m_arranged; // The rows.
    std::vector<std::size_t> m_inodeHashes;
    std::vector<std::uint8_t> m_isPlaying; ///< Copies of the records' flags, faster to scan.
    TrackSearch m_search;
    QHash<QString, std::vector<std::uint32_t>> m_ranks;
    std::array<QString, ColumnCount> m_headerTitles;
};

} // namespace lyrabox
