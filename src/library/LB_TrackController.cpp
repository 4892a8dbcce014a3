#include "library/LB_TrackController.h"

#include "app/controls/LB_TableRowView.h"
#include "engine/LB_AudioController.h"
#include "library/LB_QueueController.h"
#include "library/TrackListDecisions.h"
#include "library/TrackTableModel.h"
#include "platform/foundation/MonotonicClock.h"
#include "platform/foundation/NotificationCenter.h"
#include "platform/foundation/Notifications.h"
#include "platform/foundation/UserDefaults.h"
#include "platform/ui/RowSelection.h"
#include "settings/LB_SettingsController.h"

#include <QHeaderView>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QLineEdit>
#include <QRandomGenerator>
#include <QTableView>

#include <utility>

using namespace lyrabox;
using namespace Qt::Literals::StringLiterals;

namespace {
const QString ownOrderKey = u"order"_s;
} // namespace

LB_TrackController::LB_TrackController(QObject *parent)
    : QObject(parent),
      m_model(new TrackTableModel(this)),
      m_locateLibrary(locateMusicLibrary),
      m_openAudioFile(openAudioFile),
      m_progressClock(&monotonicTime),
      m_random([] { return QRandomGenerator::system()->generate(); })
{
    updateEmptyText();
}

LB_TrackController::~LB_TrackController() = default;

void LB_TrackController::setup()
{
    NotificationCenter &center = NotificationCenter::defaultCenter();
    center.addObserver(this, notification::currentTrackChanged, [this] { currentTrackChanged(); });
    center.addObserver(this, notification::playPressedOnEmpty, [this] { autoLoadTrack(); });
    center.addObserver(this, notification::songSettingsChanged, [this] { updateSongSettings(); });
    center.addObserver(this, notification::applicationDidFinishLaunching,
                       [this] { appDidLaunch(); });
    m_listID.reset();
    setSortDescriptors({});
    m_includesSubfolders = userDefaults().value(includeSubfoldersKey, false).toBool();
    Q_EMIT includesSubfoldersChanged(m_includesSubfolders);
}

void LB_TrackController::setQueue(LB_QueueController *queue)
{
    m_queue = queue;
    connect(queue, &LB_QueueController::skippingEnded, this,
            &LB_TrackController::currentTrackChanged);
}

void LB_TrackController::setTrackTableView(QTableView *view)
{
    constexpr int imageColumnWidth = 28;
    constexpr int textColumnWidth = 180;
    constexpr int timeColumnWidth = 64;

    m_trackTableView = view;
    view->setModel(m_model);
    LB_TableRowView::install(view, LB_TableRowView::Separators::Hairline);
    view->installEventFilter(this);
    connect(view, &QTableView::doubleClicked, this, [this] { trackSelectedForPlayback(); });
    connect(view->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &LB_TrackController::selectionChanged);
    // Rows that change as a whole lose their selection without that signal.
    connect(m_model, &QAbstractItemModel::modelReset, this, &LB_TrackController::selectionChanged);

    QHeaderView *header = view->horizontalHeader();
    header->setSectionsClickable(true);
    header->setHighlightSections(false);
    header->setMinimumSectionSize(imageColumnWidth);
    for (const int column : {TrackTableModel::IsPlaying, TrackTableModel::HasSettings}) {
        header->setSectionResizeMode(column, QHeaderView::Fixed);
        header->resizeSection(column, imageColumnWidth);
    }
    header->setSectionResizeMode(TrackTableModel::Title, QHeaderView::Stretch);
    header->resizeSection(TrackTableModel::Artist, textColumnWidth);
    header->resizeSection(TrackTableModel::Album, textColumnWidth);
    header->resizeSection(TrackTableModel::DurationSeconds, timeColumnWidth);
    connect(header, &QHeaderView::sectionClicked, this, &LB_TrackController::sortByColumn);
}

TrackRecordList LB_TrackController::content() const
{
    return m_model->content();
}

TrackRecordList LB_TrackController::arrangedObjects() const
{
    return m_model->arrangedObjects();
}

void LB_TrackController::searchTextEntered(QLineEdit *searchField)
{
    const TrackRecordRef selected = m_model->trackAtRow(selectedRow());
    m_searchText = searchField->text();
    m_model->setSearchText(m_searchText);
    if (selected)
        selectRow(m_model->rowOfTrack(selected));
    setTrackCount(static_cast<quint64>(m_model->rowCount()));
    m_trackTableView->scrollToTop();
    updateIsPlaying();
    updateEmptyText();
}

void LB_TrackController::setSortDescriptors(std::vector<SortDescriptor> descriptors)
{
    m_sortDescriptors = std::move(descriptors);
    tableViewSortDescriptorsDidChange();
}

void LB_TrackController::tableViewSortDescriptorsDidChange()
{
    if (m_sortDescriptors.empty())
        return;
    m_model->sortContent(m_sortDescriptors);
    const SortDescriptor first = m_sortDescriptors.front();
    m_settings->setSortDescriptorForListID(first, m_listID);

    // A column of an earlier sort keeps its arrow, because it still decides the order of equal
    // rows.
    const int column = TrackTableModel::columnWithIdentifier(first.key);
    if (column >= 0)
        m_model->setHeaderTitle(column,
                                sortedColumnTitle(m_model->headerTitle(column), first.ascending));
    setHighlightedColumn(column);

    // A list that the user has stopped must not remove songs from the queue.
    if (m_listID && m_queue->queuedListID() == m_listID && !m_queue->isShuffling() &&
        !m_isFinishingIncompleteList)
        m_queue->setPlayQueueWithListID(content(), m_listID);
    m_model->reloadRows();
    scrollToCurrentTrack();
    Q_EMIT sorted();
}

void LB_TrackController::sortByOwnOrder()
{
    setSortDescriptors({{.key = ownOrderKey, .ascending = true}});
}

bool LB_TrackController::isInOwnOrder() const
{
    return !m_sortDescriptors.empty() && m_sortDescriptors.front().key == ownOrderKey &&
           m_sortDescriptors.front().ascending;
}

void LB_TrackController::sortByColumn(int column)
{
    const QString key = TrackTableModel::columnIdentifier(column);
    const bool isSortedByIt = !m_sortDescriptors.empty() && m_sortDescriptors.front().key == key;
    setSortDescriptors({{key, isSortedByIt ? !m_sortDescriptors.front().ascending : true}});
}

void LB_TrackController::trackSelectedForPlayback()
{
    const TrackRecordRef track = m_model->trackAtRow(selectedRow());
    if (!track)
        return;
    const auto play = [this, track, list = content(), listID = m_listID] {
        m_queue->playTrack(track);
        m_queue->setPlayQueueWithListID(list, listID);
    };
    if (m_playGate)
        m_playGate(track, play);
    else
        play();
}

void LB_TrackController::autoLoadTrack()
{
    const auto count = static_cast<std::uint32_t>(m_model->rowCount());
    if (count == 0) {
        m_queue->setContent({});
        m_queue->audio()->emptyPlayer();
        return;
    }
    int row = selectedRow();
    if (row < 0)
        row = m_queue->isShuffling() ? static_cast<int>(m_random() % count) : 0;
    m_queue->playTrack(m_model->trackAtRow(row));
    m_queue->setPlayQueueWithListID(content(), m_listID);
}

void LB_TrackController::currentTrackChanged()
{
    if (m_queue->isSkipping())
        return; // Updating all rows for every skipped song is too slow. skippingEnded() follows.
    updateIsPlaying();
    scrollToCurrentTrack();
}

void LB_TrackController::updateIsPlaying()
{
    const TrackRecordRef track = playingTrack();
    m_model->updateIsPlaying(track ? std::optional(track->inode) : std::nullopt);
}

void LB_TrackController::updateSongSettings()
{
    // The player updates the flag of its own record after this notification and before the rows are
    // painted. If a list was rebuilt, the loaded song has another record in it, and so it may have
    // in the queue, which is of an earlier list.
    if (const TrackRecordRef playing = playingTrack()) {
        const bool hasSettings = m_settings->hasSettingsForInode(playing->inode);
        for (const TrackRecordList &list : {content(), m_queue->content()}) {
            for (const TrackRecordRef &record : list) {
                if (record->inode == playing->inode)
                    record->hasSettings = hasSettings;
            }
        }
    }
    m_model->reloadRows();
    const int row = selectedRow();
    if (row < 0)
        return;
    // Keep the current cell: changing it would scroll to the row.
    m_trackTableView->clearSelection();
    m_trackTableView->selectionModel()->select(m_model->index(row, TrackTableModel::Title),
                                               QItemSelectionModel::Select |
                                                   QItemSelectionModel::Rows);
}

void LB_TrackController::scrollToCurrentTrack()
{
    const int playing = m_model->firstPlayingRow();
    if (playing < 0)
        return;
    m_trackTableView->doItemsLayout(); // After a change of list the rows have no positions yet.
    const QRect visible = m_trackTableView->viewport()->rect();
    int first = visible.isEmpty() ? -1 : m_trackTableView->rowAt(visible.top());
    int count = 0;
    if (first >= 0) {
        const int last = m_trackTableView->rowAt(visible.bottom());
        count = (last < 0 ? m_model->rowCount() - 1 : last) - first + 1;
    } else {
        first = 0;
    }
    if (const std::optional<int> target = scrollTarget(playing, first, count, m_model->rowCount()))
        m_trackTableView->scrollTo(m_model->index(*target, TrackTableModel::Title));
}

void LB_TrackController::appDidLaunch()
{
    m_trackTableView->scrollToTop();
}

int LB_TrackController::selectedRow() const
{
    const QModelIndexList rows = m_trackTableView->selectionModel()->selectedRows();
    return rows.isEmpty() ? -1 : rows.front().row();
}

TrackRecordRef LB_TrackController::selectedTrack() const
{
    return m_model->trackAtRow(selectedRow());
}

void LB_TrackController::selectRow(int row)
{
    lyrabox::selectRow(*m_trackTableView, m_model->index(row, TrackTableModel::Title));
}

bool LB_TrackController::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyPress)
        return QObject::eventFilter(watched, event);
    const auto *key = static_cast<const QKeyEvent *>(event);
    if (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) {
        trackSelectedForPlayback();
        event->accept();
        return true;
    }
    // Before a row is selected, the first row has the keyboard focus. An arrow key selects it.
    const bool moves = key->key() == Qt::Key_Up || key->key() == Qt::Key_Down;
    if (moves && selectedRow() < 0 && m_trackTableView->currentIndex().isValid()) {
        selectRow(m_trackTableView->currentIndex().row());
        return true;
    }
    // Typed text never jumps to a row. It goes to the next widget that wants it.
    const bool isShortcut =
        key->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    if (!isShortcut && !key->text().isEmpty() && key->text().front().isPrint()) {
        event->ignore();
        return true;
    }
    return QObject::eventFilter(watched, event);
}

TrackRecordRef LB_TrackController::playingTrack() const
{
    return m_queue->audio()->currentTrack();
}

void LB_TrackController::setTrackCount(quint64 count)
{
    if (std::exchange(m_trackCount, count) != count)
        Q_EMIT trackCountChanged(count);
}

void LB_TrackController::updateEmptyText()
{
    const QString text =
        m_model->rowCount() > 0
            ? QString()
            : emptyListText(m_origin, static_cast<qint64>(m_model->contentSize()), m_searchText);
    if (std::exchange(m_emptyText, text) != text)
        Q_EMIT emptyTextChanged(text);
}

void LB_TrackController::setHighlightedColumn(int column)
{
    if (std::exchange(m_highlightedColumn, column) != column)
        Q_EMIT highlightedColumnChanged(column);
}
