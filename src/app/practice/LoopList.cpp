#include "app/practice/LoopList.h"

#include "app/practice/LoopListModel.h"
#include "app/practice/LoopRows.h"
#include "app/practice/TimeRuler.h"
#include "platform/ui/EmptyViewText.h"
#include "platform/ui/ListEndKeys.h"
#include "platform/ui/RowSelection.h"
#include "platform/ui/Theme.h"
#include "practice/PracticeStore.h"
#include "practice/SongTime.h"

#include <QHeaderView>
#include <QKeyEvent>

#include <algorithm>
#include <utility>

namespace lyrabox {

namespace {

constexpr int cellPadding = 8;
constexpr double shownStep = 0.1; // seconds, as the rows show them

/// Whether the list handles this key, if no command with that key takes it before.
bool isOwnKey(const QKeyEvent *event)
{
    const Qt::KeyboardModifiers modifiers = event->modifiers() & ~Qt::KeypadModifier;
    const int key = event->key();
    return modifiers == Qt::NoModifier && (key == Qt::Key_Return || key == Qt::Key_Enter ||
                                           key == Qt::Key_F2 || key == Qt::Key_Delete);
}

} // namespace

LoopList::LoopList(PracticeStore *store, QWidget *parent)
    : QTableView(parent),
      m_store(store),
      m_rows(new LoopListModel(store, this)),
      m_emptyText(new EmptyViewText(this))
{
    setUp();
    connect(this, &QAbstractItemView::doubleClicked, this,
            [this](const QModelIndex &index) { play(index.row()); });
    connect(store, &PracticeStore::recordChanged, this, &LoopList::showRows);
    connect(m_rows, &LoopListModel::hasBestSpeedsChanged, this, &LoopList::fitColumns);
    showRows();
}

LoopList::~LoopList() = default;

void LoopList::setUp()
{
    setAccessibleName(tr("Loops and markers"));
    horizontalHeader()->hide();
    LB_TableRowView::install(this, LB_TableRowView::Separators::Hairline);
    setItemDelegate(new LoopRows(this));
    setModel(m_rows);
    setSelectionMode(ExtendedSelection);
    setEditTriggers(EditKeyPressed | SelectedClicked);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setContextMenuPolicy(Qt::DefaultContextMenu);
    horizontalHeader()->setMinimumSectionSize(0);
    horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    new ListEndKeys(this);
}

void LoopList::setEmptyText(const QString &text)
{
    m_emptyTextShown = text;
    showRows();
}

void LoopList::showRows()
{
    const bool isEmpty = m_rows->rowCount() == 0;
    const QString text = isEmpty ? m_emptyTextShown : QString();
    if (m_emptyText->text() != text)
        m_emptyText->showText(text);
    fitColumns();
}

/// The name gets what the other columns leave. They are as wide as the widest text that this song
/// can have, so that nothing is measured row by row.
void LoopList::fitColumns()
{
    const QFontMetrics metrics = fontMetrics();
    const auto widthOf = [&metrics](const QString &text) {
        return metrics.horizontalAdvance(text) + cellPadding;
    };
    QString time =
        timeRuler::text(static_cast<double>(m_rows->lastPlace()) / practiceRate, shownStep);
    for (QChar &character : time) {
        if (character.isDigit())
            character = u'0';
    }
    const int rows = m_rows->rowCount();
    const int number = widthOf(rows < 10 ? QStringLiteral("0") : QStringLiteral("000"));
    const int place = widthOf(time + u'–' + time);
    // Kept speeds, and best ones after some practice, have room only if there are any.
    const int speed = m_rows->hasSpeeds() ? widthOf(LoopListModel::tr("%1 %").arg(100)) : 0;
    const int best = m_rows->hasBestSpeeds() ? widthOf(QStringLiteral("★100")) : 0;
    const int name = std::max(0, viewport()->width() - number - place - speed - best);
    const int widths[] = {number, name, place, speed, best};
    for (int column = 0; column < LoopListModel::columns; ++column) {
        if (columnWidth(column) != widths[column])
            setColumnWidth(column, widths[column]);
    }
}

void LoopList::setCalledUp(std::optional<PracticeId> id)
{
    const std::optional<PracticeId> before = m_rows->calledUp();
    m_rows->setCalledUp(id);
    if (id && id != before)
        selectId(id);
    else if (!id && before && currentId() == before)
        selectId(std::nullopt);
}

void LoopList::setSongFrames(std::uint64_t frames)
{
    m_rows->setSongFrames(frames);
}

QList<PracticeId> LoopList::selectedIds() const
{
    QList<int> rows;
    for (const QModelIndex &index : selectionModel()->selectedRows())
        rows.append(index.row());
    std::sort(rows.begin(), rows.end());
    QList<PracticeId> ids;
    for (const int row : rows)
        ids.append(m_rows->id(row));
    return ids;
}

std::optional<PracticeId> LoopList::currentId() const
{
    const QModelIndex current = currentIndex();
    if (current.isValid() && selectionModel()->isRowSelected(current.row(), {}))
        return m_rows->id(current.row());
    const QList<PracticeId> selected = selectedIds();
    return selected.isEmpty() ? std::nullopt : std::optional(selected.first());
}

void LoopList::selectId(std::optional<PracticeId> id)
{
    const int row = id ? m_rows->rowOf(*id) : -1;
    if (row < 0) {
        clearSelection();
        return;
    }
    const QModelIndex index = m_rows->index(row, LoopListModel::Name);
    lyrabox::selectRow(*this, index);
    scrollTo(index);
}

void LoopList::selectionChanged(const QItemSelection &selected, const QItemSelection &deselected)
{
    QTableView::selectionChanged(selected, deselected);
    Q_EMIT selectionMoved();
}

void LoopList::play(int row)
{
    if (m_rows->isBeyondSong(row))
        return;
    if (const PracticeLoop *loop = m_rows->loop(row))
        Q_EMIT playRequested(loop->id);
    else if (const PracticeMarker *marker = m_rows->marker(row))
        Q_EMIT seekRequested(marker->id);
}

void LoopList::playCurrent()
{
    if (const auto id = currentId())
        play(m_rows->rowOf(*id));
}

void LoopList::rename(PracticeId id)
{
    const int row = m_rows->rowOf(id);
    if (row < 0)
        return;
    selectId(id);
    setFocus();
    // This form says nothing if the name is being edited already.
    edit(m_rows->index(row, LoopListModel::Name), AllEditTriggers, nullptr);
}

void LoopList::deleteSelection()
{
    const QList<PracticeId> ids = selectedIds();
    if (ids.isEmpty() || m_store->isReadOnly())
        return;
    PracticeEdits edits;
    int row = m_rows->rowCount();
    for (const PracticeId id : ids) {
        row = std::min(row, m_rows->rowOf(id));
        if (m_store->record().loop(id) != nullptr)
            edits.emplace_back(RemoveLoop{id});
        else
            edits.emplace_back(RemoveMarker{id});
    }
    if (!m_store->apply(edits))
        return;
    // The next row is selected, so that Delete can be pressed again.
    const int next = std::min(row, m_rows->rowCount() - 1);
    selectId(next < 0 ? std::nullopt : std::optional(m_rows->id(next)));
}

void LoopList::keyPressEvent(QKeyEvent *event)
{
    if (state() == EditingState || !isOwnKey(event) || selectedIds().isEmpty()) {
        QTableView::keyPressEvent(event);
        return;
    }
    if (event->isAutoRepeat())
        return;
    if (event->key() == Qt::Key_Delete)
        deleteSelection();
    else if (event->key() == Qt::Key_F2)
        rename(*currentId());
    else
        playCurrent();
}

void LoopList::resizeEvent(QResizeEvent *event)
{
    QTableView::resizeEvent(event);
    fitColumns();
}

} // namespace lyrabox
