// What the rows of the list show and say.

#include "app/practice/BarText.h"
#include "app/practice/LoopListModel.h"
#include "app/practice/TimeRuler.h"
#include "app/practice/WaveColors.h"
#include "platform/ui/Theme.h"
#include "practice/PracticeStore.h"
#include "practice/SongTime.h"

#include <QBrush>
#include <QFont>

#include <cmath>
#include <iterator>

namespace lyrabox {

namespace {

constexpr double shownStep = 0.1; // seconds

double secondsOf(std::uint64_t frames)
{
    return static_cast<double>(frames) / static_cast<double>(practiceRate);
}

QString shortTime(std::uint64_t frames)
{
    return timeRuler::text(secondsOf(frames), shownStep);
}

QString exactTime(std::uint64_t frames)
{
    return timeRuler::exactText(secondsOf(frames));
}

} // namespace

QString LoopListModel::shownName(int row) const
{
    if (const PracticeMarker *marker = this->marker(row))
        return marker->name.isEmpty() ? tr("Marker") : marker->name;
    const PracticeLoop *loop = this->loop(row);
    if (loop == nullptr || !loop->name.isEmpty())
        return loop != nullptr ? loop->name : QString();
    return tr("Loop %1").arg(m_rows[static_cast<std::size_t>(row)].number);
}

/// The place in bars and beats; empty where they are not known.
QString LoopListModel::barPlaces(int row) const
{
    const BeatGrid &grid = m_store->record().beats.grid;
    if (const PracticeMarker *marker = this->marker(row))
        return barText::place(grid, marker->at);
    const PracticeLoop *loop = this->loop(row);
    return barText::places(grid, {loop->from, loop->to});
}

QString LoopListModel::placeText(int row) const
{
    if (const QString bars = barPlaces(row); !bars.isEmpty())
        return bars;
    if (const PracticeMarker *marker = this->marker(row))
        return shortTime(marker->at);
    const PracticeLoop *loop = this->loop(row);
    return QStringLiteral("%1–%2").arg(shortTime(loop->from), shortTime(loop->to));
}

/// What is said of a row in addition to its cells.
QString LoopListModel::remarks(int row) const
{
    QStringList texts;
    if (isBeyondSong(row))
        texts.append(tr("Beyond the end of the song"));
    const PracticeLoop *loop = this->loop(row);
    if (loop != nullptr && loop->pitch.value_or(0) != 0)
        texts.append(tr("Pitch: %1 cents").arg(*loop->pitch));
    if (loop != nullptr && !loop->note.isEmpty())
        texts.append(loop->note);
    return texts.join(u'\n');
}

QString LoopListModel::accessibleText(int row, int column) const
{
    const PracticeLoop *loop = this->loop(row);
    const PracticeMarker *marker = this->marker(row);
    switch (column) {
    case Number:
        if (loop == nullptr)
            return tr("Marker");
        return (m_calledUp == loop->id ? tr("Loop %1, called up") : tr("Loop %1"))
            .arg(m_rows[static_cast<std::size_t>(row)].number);
    case Name:
        return shownName(row);
    case Best:
        return bestText(row).isEmpty() ? QString() : tr("Best speed: %1 %").arg(bestText(row));
    case Place: {
        const QString times = marker != nullptr
                                  ? exactTime(marker->at)
                                  : tr("%1 to %2").arg(exactTime(loop->from), exactTime(loop->to));
        const QString bars = barPlaces(row);
        return bars.isEmpty() ? times : QStringLiteral("%1 (%2)").arg(bars, times);
    }
    default:
        return data(index(row, column)).toString();
    }
}

/// Whole percents of the best speed; empty without one.
QString LoopListModel::bestText(int row) const
{
    const PracticeLoop *loop = this->loop(row);
    const std::optional<double> best = loop != nullptr && m_best ? m_best(*loop) : std::nullopt;
    return best ? QString::number(std::lround(*best)) : QString();
}

/// Names and notes are untrusted, and a tool tip may be rich text.
QString LoopListModel::toolTip(int row) const
{
    QStringList lines{shownName(row), accessibleText(row, Place)};
    if (const QString more = remarks(row); !more.isEmpty())
        lines.append(more);
    return QStringLiteral("<span>%1</span>")
        .arg(lines.join(u'\n').toHtmlEscaped().replace(u'\n', QStringLiteral("<br>")));
}

QVariant LoopListModel::color(int row, int column) const
{
    if (isBeyondSong(row))
        return QBrush(Theme::disabledText);
    if (column == Name && marker(row) == nullptr)
        return {};
    if (column == Best && !bestText(row).isEmpty())
        return QBrush(waveColors::best);
    return QBrush(Theme::secondaryText);
}

QVariant LoopListModel::data(const QModelIndex &index, int role) const
{
    const Row *found = row(index.row());
    if (found == nullptr || index.column() >= columns)
        return {};
    const PracticeLoop *loop = this->loop(index.row());
    switch (role) {
    case Qt::EditRole:
        if (index.column() == Name)
            return std::visit([](const auto &entry) { return entry.name; }, found->entry);
        [[fallthrough]];
    case Qt::DisplayRole:
        if (index.column() == Name)
            return shownName(index.row());
        if (index.column() == Place)
            return placeText(index.row());
        if (loop == nullptr)
            return QString();
        if (index.column() == Number)
            return QString::number(found->number);
        if (index.column() == Best)
            return bestText(index.row()).isEmpty() ? QString()
                                                   : QStringLiteral("★") + bestText(index.row());
        return loop->speed ? tr("%1 %").arg(*loop->speed) : QString();
    case Qt::TextAlignmentRole:
        return static_cast<int>(index.column() == Name ? Qt::AlignLeft : Qt::AlignRight);
    case Qt::ForegroundRole:
        return color(index.row(), index.column());
    case Qt::FontRole:
        if (index.column() == Name && loop != nullptr && m_calledUp == loop->id) {
            QFont font = uiFont(Theme::textSize);
            font.setBold(true);
            return font;
        }
        return {};
    case Qt::ToolTipRole:
        return toolTip(index.row());
    case Qt::AccessibleTextRole:
        return accessibleText(index.row(), index.column());
    case Qt::AccessibleDescriptionRole:
        return index.column() == Name ? remarks(index.row()) : QString();
    default:
        return {};
    }
}

QVariant LoopListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    const QStringList names{tr("Number"), tr("Name"), tr("Place"), tr("Speed"), tr("Best Speed")};
    return names.value(section);
}

} // namespace lyrabox
