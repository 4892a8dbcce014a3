#include "library/TrackTableModel.h"

#include "app/controls/SecondsToMinutesTransformer.h"

#include <algorithm>
#include <numeric>

namespace lyrabox {

using namespace Qt::Literals::StringLiterals;

TrackTableModel::TrackTableModel(QObject *parent)
    : QAbstractTableModel(parent), m_headerTitles{QString(),   tr("Title"), tr("Artist"),
                                                  tr("Album"), tr("Time"),  QString()}
{}

QString TrackTableModel::columnIdentifier(int column)
{
    static const std::array<QString, ColumnCount> identifiers{
        u"isPlaying"_s, u"title"_s,           u"artist"_s,
        u"album"_s,     u"durationSeconds"_s, u"hasSettings"_s};
    return column >= 0 && column < ColumnCount ? identifiers.at(static_cast<std::size_t>(column))
                                               : QString();
}

int TrackTableModel::columnWithIdentifier(const QString &key)
{
    for (int column = 0; column < ColumnCount; ++column) {
        if (columnIdentifier(column) == key)
            return column;
    }
    return -1;
}

void TrackTableModel::setContent(const TrackRecordList &records)
{
    beginResetModel();
    m_records = records;
    m_order.resize(records.size());
    std::iota(m_order.begin(), m_order.end(), Index(0));
    m_inodeHashes.clear();
    m_isPlaying.clear();
    m_inodeHashes.reserve(records.size());
    m_isPlaying.reserve(records.size());
    for (const TrackRecordRef &record : records) {
        m_inodeHashes.push_back(qHash(record->inode));
        m_isPlaying.push_back(record->isPlaying ? 1 : 0);
    }
    m_ranks.clear();
    m_search.setRecords(records);
    arrange();
    endResetModel();
}

TrackRecordList TrackTableModel::content() const
{
    TrackRecordList list;
    list.reserve(m_order.size());
    for (const Index index : m_order)
        list.push_back(m_records[index]);
    return list;
}

TrackRecordList TrackTableModel::arrangedObjects() const
{
    TrackRecordList list;
    list.reserve(m_arranged.size());
    for (const Index index : m_arranged)
        list.push_back(m_records[index]);
    return list;
}

TrackRecordRef TrackTableModel::trackAtRow(int row) const
{
    if (row < 0 || row >= rowCount())
        return nullptr;
    return m_records[m_arranged[static_cast<std::size_t>(row)]];
}

void TrackTableModel::setSearchText(const QString &text)
{
    beginResetModel();
    m_search.setText(text, m_records);
    arrange();
    endResetModel();
}

void TrackTableModel::sortContent(const std::vector<SortDescriptor> &descriptors)
{
    Q_EMIT layoutAboutToBeChanged({}, VerticalSortHint);
    const std::vector<Index> rowsBefore = m_arranged;
    for (auto descriptor = descriptors.rbegin(); descriptor != descriptors.rend(); ++descriptor)
        sortByRank(m_order, ranksOf(descriptor->key), descriptor->ascending);
    arrange();

    const QModelIndexList before = persistentIndexList();
    if (!before.isEmpty()) {
        std::vector<int> rowOfRecord(m_records.size(), -1);
        for (std::size_t row = 0; row < m_arranged.size(); ++row)
            rowOfRecord[m_arranged[row]] = static_cast<int>(row);
        QModelIndexList after;
        after.reserve(before.size());
        for (const QModelIndex &old : before) {
            const Index record = rowsBefore[static_cast<std::size_t>(old.row())];
            after.append(index(rowOfRecord[record], old.column()));
        }
        changePersistentIndexList(before, after);
    }
    Q_EMIT layoutChanged({}, VerticalSortHint);
}

void TrackTableModel::updateIsPlaying(const std::optional<QString> &inode)
{
    const std::size_t hash = inode ? qHash(*inode) : 0;
    for (const Index index : m_arranged) {
        const bool plays =
            inode && m_inodeHashes[index] == hash && m_records[index]->inode == *inode;
        if (plays == (m_isPlaying[index] != 0))
            continue;
        m_isPlaying[index] = plays ? 1 : 0;
        m_records[index]->isPlaying = plays;
    }
    reloadRows();
}

int TrackTableModel::firstPlayingRow() const
{
    const auto found = std::find_if(m_arranged.begin(), m_arranged.end(),
                                    [this](Index index) { return m_isPlaying[index] != 0; });
    return found == m_arranged.end() ? -1 : static_cast<int>(found - m_arranged.begin());
}

int TrackTableModel::rowOfTrack(const TrackRecordRef &track) const
{
    const auto found = std::find_if(m_arranged.begin(), m_arranged.end(),
                                    [&](Index index) { return m_records[index] == track; });
    return found == m_arranged.end() ? -1 : static_cast<int>(found - m_arranged.begin());
}

void TrackTableModel::setHeaderTitle(int column, const QString &title)
{
    m_headerTitles.at(static_cast<std::size_t>(column)) = title;
    Q_EMIT headerDataChanged(Qt::Horizontal, column, column);
}

QString TrackTableModel::headerTitle(int column) const
{
    return m_headerTitles.at(static_cast<std::size_t>(column));
}

void TrackTableModel::reloadRows()
{
    if (!m_arranged.empty())
        Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, ColumnCount - 1));
}

int TrackTableModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_arranged.size());
}

int TrackTableModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant TrackTableModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
        return {};
    const TrackRecord &record = *trackAtRow(index.row());
    switch (role) {
    case Qt::DisplayRole:
        return displayText(record, index.column());
    case Qt::TextAlignmentRole:
        return alignment(index.column());
    case ImageNameRole:
        if (index.column() == IsPlaying)
            return record.isPlaying ? u"IsPlaying"_s : QString();
        if (index.column() == HasSettings)
            return record.hasSettings ? u"HasSettings"_s : QString();
        return {};
    case Qt::AccessibleTextRole:
        if (index.column() == IsPlaying)
            return record.isPlaying ? tr("Playing") : QString();
        if (index.column() == HasSettings)
            return record.hasSettings ? tr("Has settings") : QString();
        return displayText(record, index.column());
    default:
        return {};
    }
}

QVariant TrackTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section < 0 || section >= ColumnCount)
        return {};
    if (role == Qt::DisplayRole)
        return headerTitle(section);
    if (role == Qt::TextAlignmentRole)
        return alignment(section);
    // The two image columns have no title for screen readers to read.
    if (role == Qt::AccessibleTextRole && section == IsPlaying)
        return tr("Playing");
    if (role == Qt::AccessibleTextRole && section == HasSettings)
        return tr("Has settings");
    return {};
}

QVariant TrackTableModel::alignment(int column)
{
    const Qt::Alignment horizontal = column == DurationSeconds ? Qt::AlignRight : Qt::AlignLeft;
    return static_cast<int>(horizontal | Qt::AlignVCenter);
}

QVariant TrackTableModel::displayText(const TrackRecord &record, int column) const
{
    switch (column) {
    case Title:
        return record.title.value_or(QString());
    case Artist:
        return record.artist;
    case Album:
        return record.album;
    case DurationSeconds:
        return SecondsToMinutesTransformer::transformedValue(record.durationSeconds);
    default:
        return {};
    }
}

void TrackTableModel::arrange()
{
    if (!m_search.isFiltering()) {
        m_arranged = m_order;
        return;
    }
    m_arranged.clear();
    std::copy_if(m_order.begin(), m_order.end(), std::back_inserter(m_arranged),
                 [this](Index index) { return m_search.passes(index); });
}

const std::vector<std::uint32_t> &TrackTableModel::ranksOf(const QString &key)
{
    const bool isRewritten =
        key == columnIdentifier(IsPlaying) || key == columnIdentifier(HasSettings);
    std::vector<std::uint32_t> &ranks = m_ranks[key];
    if (isRewritten || ranks.size() != m_records.size())
        ranks = sortRanks(m_records, key);
    return ranks;
}

} // namespace lyrabox
