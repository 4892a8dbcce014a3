#include "app/practice/LoopListModel.h"

#include "practice/PracticeStore.h"

#include <QSet>

#include <algorithm>
#include <iterator>
#include <utility>

namespace lyrabox {

PracticeId LoopListModel::Row::id() const
{
    return std::visit([](const auto &value) { return value.id; }, entry);
}

LoopListModel::LoopListModel(PracticeStore *store, QObject *parent)
    : QAbstractTableModel(parent), m_store(store)
{
    connect(store, &PracticeStore::recordChanged, this, &LoopListModel::showRecord);
    showRecord();
}

/// A marker comes before the loops that start at its place, as a heading does.
LoopListModel::Rows LoopListModel::rowsOf(const PracticeRecord &record)
{
    Rows rows;
    rows.reserve(record.loops.size() + record.markers.size());
    int number = 0;
    auto marker = record.markers.begin();
    const auto addMarkersUpTo = [&](std::uint64_t place) {
        for (; marker != record.markers.end() && marker->at <= place; ++marker)
            rows.push_back({*marker, 0});
    };
    for (const PracticeLoop &loop : record.loops) {
        addMarkersUpTo(loop.from);
        rows.push_back({loop, ++number});
    }
    addMarkersUpTo(~std::uint64_t{0});
    return rows;
}

void LoopListModel::showRecord()
{
    const PracticeRecord &record = m_store->record();
    m_lastPlace = record.markers.empty() ? 0 : record.markers.back().at;
    for (const PracticeLoop &loop : record.loops)
        m_lastPlace = std::max(m_lastPlace, loop.to);
    Rows wanted = rowsOf(record);
    removeMissing(wanted);
    reorder(wanted);
    insertNew(wanted);
    update(std::move(wanted));
    showBestSpeeds();
    if (record.beats.grid != m_grid) {
        m_grid = record.beats.grid;
        if (!m_rows.empty())
            showChanged(0, rowCount() - 1);
    }
}

void LoopListModel::removeMissing(const Rows &wanted)
{
    QSet<PracticeId> ids;
    ids.reserve(static_cast<qsizetype>(wanted.size()));
    for (const Row &row : wanted)
        ids.insert(row.id());
    const auto isMissing = [&](int row) {
        return !ids.contains(m_rows[static_cast<std::size_t>(row)].id());
    };
    for (int last = static_cast<int>(m_rows.size()) - 1; last >= 0; --last) {
        if (!isMissing(last))
            continue;
        int first = last;
        while (first > 0 && isMissing(first - 1))
            --first;
        beginRemoveRows({}, first, last);
        m_rows.erase(m_rows.begin() + first, m_rows.begin() + last + 1);
        endRemoveRows();
        last = first;
    }
}

/// Brings the rows that stay into their new order.
void LoopListModel::reorder(const Rows &wanted)
{
    QHash<PracticeId, int> places;
    places.reserve(static_cast<qsizetype>(wanted.size()));
    for (const Row &row : wanted)
        places.insert(row.id(), static_cast<int>(places.size()));
    const auto isBefore = [&](const Row &a, const Row &b) {
        return places.value(a.id()) < places.value(b.id());
    };
    if (std::is_sorted(m_rows.begin(), m_rows.end(), isBefore))
        return;
    Q_EMIT layoutAboutToBeChanged();
    const QModelIndexList before = persistentIndexList();
    QList<PracticeId> ids;
    for (const QModelIndex &index : before)
        ids.append(id(index.row()));
    std::sort(m_rows.begin(), m_rows.end(), isBefore);
    QHash<PracticeId, int> rows;
    for (int row = 0; row < rowCount(); ++row)
        rows.insert(id(row), row);
    QModelIndexList after;
    for (qsizetype i = 0; i < before.size(); ++i)
        after.append(index(rows.value(ids.at(i)), before.at(i).column()));
    changePersistentIndexList(before, after);
    Q_EMIT layoutChanged();
}

void LoopListModel::insertNew(const Rows &wanted)
{
    for (std::size_t first = 0; first < wanted.size(); ++first) {
        const PracticeId present = first < m_rows.size() ? m_rows[first].id() : 0;
        std::size_t end = first;
        while (end < wanted.size() && wanted[end].id() != present)
            ++end;
        if (end == first)
            continue;
        beginInsertRows({}, static_cast<int>(first), static_cast<int>(end) - 1);
        m_rows.insert(m_rows.begin() + static_cast<std::ptrdiff_t>(first),
                      wanted.begin() + static_cast<std::ptrdiff_t>(first),
                      wanted.begin() + static_cast<std::ptrdiff_t>(end));
        endInsertRows();
        first = end - 1;
    }
}

/// The identifiers of all rows are right; shows what has changed in them.
void LoopListModel::update(Rows wanted)
{
    m_rows.swap(wanted);
    const Rows &before = wanted;
    for (std::size_t first = 0; first < m_rows.size(); ++first) {
        std::size_t end = first;
        while (end < m_rows.size() && m_rows[end] != before[end])
            ++end;
        if (end == first)
            continue;
        showChanged(static_cast<int>(first), static_cast<int>(end) - 1);
        first = end;
    }
}

void LoopListModel::showChanged(int first, int last)
{
    Q_EMIT dataChanged(index(first, 0), index(last, columns - 1));
}

void LoopListModel::setCalledUp(std::optional<PracticeId> id)
{
    const std::optional<PracticeId> before = std::exchange(m_calledUp, id);
    if (before == id)
        return;
    for (const std::optional<PracticeId> changed : {before, id}) {
        const int row = changed ? rowOf(*changed) : -1;
        if (row >= 0)
            showChanged(row, row);
    }
}

void LoopListModel::setBestSpeed(BestSpeed best)
{
    m_best = std::move(best);
    showBestSpeeds();
}

void LoopListModel::showBestSpeeds()
{
    const bool hasAny = m_best && std::ranges::any_of(m_rows, [this](const Row &row) {
                            const auto *loop = std::get_if<PracticeLoop>(&row.entry);
                            return loop != nullptr && m_best(*loop);
                        });
    if (m_best && !m_rows.empty())
        Q_EMIT dataChanged(index(0, Best), index(rowCount() - 1, Best));
    if (std::exchange(m_hasBestSpeeds, hasAny) != hasAny)
        Q_EMIT hasBestSpeedsChanged();
}

bool LoopListModel::hasSpeeds() const
{
    return std::ranges::any_of(m_rows, [](const Row &row) {
        const auto *loop = std::get_if<PracticeLoop>(&row.entry);
        return loop != nullptr && loop->speed;
    });
}

void LoopListModel::setSongFrames(std::uint64_t frames)
{
    if (std::exchange(m_songFrames, frames) != frames && !m_rows.empty())
        showChanged(0, rowCount() - 1);
}

const LoopListModel::Row *LoopListModel::row(int row) const
{
    return row >= 0 && row < rowCount() ? &m_rows[static_cast<std::size_t>(row)] : nullptr;
}

const PracticeLoop *LoopListModel::loop(int row) const
{
    const Row *found = this->row(row);
    return found != nullptr ? std::get_if<PracticeLoop>(&found->entry) : nullptr;
}

const PracticeMarker *LoopListModel::marker(int row) const
{
    const Row *found = this->row(row);
    return found != nullptr ? std::get_if<PracticeMarker>(&found->entry) : nullptr;
}

PracticeId LoopListModel::id(int row) const
{
    const Row *found = this->row(row);
    return found != nullptr ? found->id() : 0;
}

int LoopListModel::rowOf(PracticeId id) const
{
    const auto found =
        std::find_if(m_rows.begin(), m_rows.end(), [id](const Row &row) { return row.id() == id; });
    return found == m_rows.end() ? -1 : static_cast<int>(found - m_rows.begin());
}

bool LoopListModel::isBeyondSong(int row) const
{
    if (m_songFrames == 0)
        return false;
    if (const PracticeLoop *loop = this->loop(row))
        return !loop->isWithin(m_songFrames);
    const PracticeMarker *marker = this->marker(row);
    return marker != nullptr && marker->at > m_songFrames;
}

int LoopListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int LoopListModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : columns;
}

Qt::ItemFlags LoopListModel::flags(const QModelIndex &index) const
{
    if (!index.isValid())
        return Qt::NoItemFlags;
    Qt::ItemFlags flags = Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemNeverHasChildren;
    flags.setFlag(Qt::ItemIsEditable, index.column() == Name && !m_store->isReadOnly());
    return flags;
}

bool LoopListModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (role != Qt::EditRole || index.column() != Name)
        return false;
    if (const PracticeLoop *present = loop(index.row())) {
        PracticeLoop renamed = *present;
        renamed.name = value.toString();
        return m_store->apply({PutLoop{renamed}});
    }
    if (const PracticeMarker *present = marker(index.row())) {
        PracticeMarker renamed = *present;
        renamed.name = value.toString();
        return m_store->apply({PutMarker{renamed}});
    }
    return false;
}

} // namespace lyrabox
