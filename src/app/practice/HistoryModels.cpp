#include "app/practice/HistoryModels.h"

#include "app/practice/HistoryPlots.h"
#include "app/practice/TimeRuler.h"
#include "platform/ui/Theme.h"
#include "practice/BestSpeeds.h"
#include "practice/SongTime.h"

#include <QBrush>
#include <QFont>

#include <algorithm>
#include <tuple>
#include <utility>

namespace lyrabox {

QString historyLoopName(const PracticeLogLine &loop)
{
    if (!loop.loop.isEmpty())
        return loop.loop;
    const auto time = [](std::uint64_t frames) {
        return timeRuler::exactText(static_cast<double>(frames) / practiceRate);
    };
    return HistoryLoops::tr("%1 to %2").arg(time(loop.from), time(loop.to));
}

void HistoryLoops::setLines(const std::vector<PracticeLogLine> &lines, const PracticeLogLine &song,
                            QDate today)
{
    const BestSpeeds best(lines);
    std::vector<Row> here;
    std::vector<Row> elsewhere;
    for (const PracticeLogLine &last : lastTouched(lines)) {
        const bool isHere = last.song == song.song && last.artist == song.artist;
        (isHere ? here : elsewhere).push_back({.loop = last, .best = best.of(last)});
    }
    std::ranges::stable_sort(here, {},
                             [](const Row &row) { return std::tuple(row.loop.from, row.loop.to); });
    beginResetModel();
    m_rows.clear();
    m_today = today;
    addPart(tr("This Song"), std::move(here));
    addPart(tr("Other Songs, Longest Not Practised First"), std::move(elsewhere));
    endResetModel();
}

void HistoryLoops::addPart(const QString &title, std::vector<Row> rows)
{
    if (rows.empty())
        return;
    m_rows.push_back({.title = title});
    std::ranges::move(rows, std::back_inserter(m_rows));
}

std::optional<PracticeLogLine> HistoryLoops::loop(int row) const
{
    if (row < 0 || row >= rowCount())
        return std::nullopt;
    const Row &found = m_rows[static_cast<std::size_t>(row)];
    return found.title.isEmpty() ? std::optional(found.loop) : std::nullopt;
}

int HistoryLoops::rowOf(const PracticeLogLine &loop) const
{
    const auto found = std::ranges::find_if(
        m_rows, [&](const Row &row) { return row.title.isEmpty() && row.loop.isSameLoop(loop); });
    return found == m_rows.end() ? -1 : static_cast<int>(found - m_rows.begin());
}

int HistoryLoops::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int HistoryLoops::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : Columns;
}

QString HistoryLoops::dayText(QDate day) const
{
    if (day == m_today)
        return tr("Today");
    if (day == m_today.addDays(-1))
        return tr("Yesterday");
    return historyText::date(day);
}

QString HistoryLoops::cellText(const Row &row, int column) const
{
    if (!row.title.isEmpty())
        return column == Loop ? row.title : QString();
    switch (column) {
    case Loop:
        return historyLoopName(row.loop);
    case Song:
        return row.loop.song;
    case Best:
        return row.best ? historyText::speed(*row.best) : QStringLiteral("–");
    case Practised:
        return dayText(row.loop.at.date());
    default:
        return {};
    }
}

QVariant HistoryLoops::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= rowCount())
        return {};
    const Row &row = m_rows[static_cast<std::size_t>(index.row())];
    const bool isTitle = !row.title.isEmpty();
    const bool isRight = index.column() == Best || index.column() == Practised;
    switch (role) {
    case Qt::DisplayRole:
        return cellText(row, index.column());
    case Qt::ToolTipRole:
        return isTitle ? QString()
                       : QStringLiteral("<span>%1</span>")
                             .arg(cellText(row, index.column()).toHtmlEscaped());
    case Qt::AccessibleTextRole:
        if (index.column() == Best && !isTitle && !row.best)
            return tr("none");
        return cellText(row, index.column());
    case Qt::TextAlignmentRole:
        return static_cast<int>(isRight ? Qt::AlignRight : Qt::AlignLeft);
    case Qt::ForegroundRole:
        return isTitle || index.column() != Loop ? QVariant(QBrush(Theme::secondaryText))
                                                 : QVariant();
    case Qt::FontRole:
        if (isTitle) {
            QFont font = uiFont(Theme::textSize);
            font.setBold(true);
            return font;
        }
        return {};
    default:
        return {};
    }
}

QVariant HistoryLoops::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal)
        return {};
    if (role == Qt::TextAlignmentRole)
        return static_cast<int>(section == Best || section == Practised ? Qt::AlignRight
                                                                        : Qt::AlignLeft);
    if (role != Qt::DisplayRole)
        return {};
    return QStringList{tr("Loop"), tr("Song"), tr("Best"), tr("Practised")}.value(section);
}

Qt::ItemFlags HistoryLoops::flags(const QModelIndex &index) const
{
    return loop(index.row()) ? Qt::ItemIsEnabled | Qt::ItemIsSelectable : Qt::NoItemFlags;
}

HistoryTable::HistoryTable(QString dayTitle, QString valueTitle, QObject *parent)
    : QAbstractTableModel(parent), m_titles{std::move(dayTitle), std::move(valueTitle)}
{}

void HistoryTable::setRows(std::vector<Row> rows)
{
    beginResetModel();
    m_rows = std::move(rows);
    std::ranges::reverse(m_rows);
    endResetModel();
}

int HistoryTable::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int HistoryTable::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : 2;
}

QVariant HistoryTable::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= rowCount())
        return {};
    const Row &row = m_rows[static_cast<std::size_t>(index.row())];
    if (role == Qt::DisplayRole)
        return index.column() == 0 ? row.day : row.value;
    if (role == Qt::TextAlignmentRole)
        return static_cast<int>(index.column() == 0 ? Qt::AlignLeft : Qt::AlignRight);
    return {};
}

QVariant HistoryTable::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section > 1)
        return {};
    if (role == Qt::DisplayRole)
        return m_titles[section];
    if (role == Qt::TextAlignmentRole)
        return static_cast<int>(section == 0 ? Qt::AlignLeft : Qt::AlignRight);
    return {};
}

} // namespace lyrabox
