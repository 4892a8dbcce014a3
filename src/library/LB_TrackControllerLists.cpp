// Builds the lists of LB_TrackController.

#include "engine/LB_AudioController.h"
#include "library/FolderFiles.h"
#include "library/LB_QueueController.h"
#include "library/LB_TrackController.h"
#include "library/TrackTableModel.h"
#include "platform/foundation/DiskPatience.h"
#include "platform/foundation/Files.h"
#include "platform/foundation/UserDefaults.h"
#include "settings/LB_SettingsController.h"

#include <QScopedValueRollback>
#include <QTableView>

#include <utility>

using namespace lyrabox;
using namespace Qt::Literals::StringLiterals;

const QString LB_TrackController::droppedFilesListID = u"DroppedFiles"_s;
const QString LB_TrackController::includeSubfoldersKey = u"includeSubfolders"_s;

/// Announces that a list is built, and keeps the table from being clicked meanwhile.
class LB_TrackController::ListBuilding {
public:
    explicit ListBuilding(LB_TrackController &tracks)
        : m_tracks(tracks), m_hadFocus(tracks.m_trackTableView->hasFocus())
    {
        tracks.m_trackTableView->setEnabled(false);
        Q_EMIT tracks.buildingListChanged(true);
    }
    ~ListBuilding()
    {
        QTableView *view = m_tracks.m_trackTableView;
        view->setEnabled(true);
        if (m_hadFocus) // A disabled view loses the focus.
            view->setFocus();
        Q_EMIT m_tracks.buildingListChanged(false);
    }
    ListBuilding(const ListBuilding &) = delete;
    ListBuilding &operator=(const ListBuilding &) = delete;

private:
    LB_TrackController &m_tracks;
    bool m_hadFocus;
};

namespace {

/// Like files::inodeText(), but also "(null)" if the disk does not answer.
QString inodeOf(const QUrl &url)
{
    return files::askPatiently<QString>(url.toLocalFile(), [url] { return files::inodeText(url); })
        .value_or(u"(null)"_s);
}

} // namespace

QString LB_TrackController::treeListID(const QString &folderID)
{
    return folderID + u'/';
}

ProgressPacer LB_TrackController::pacer(qint64 total) const
{
    ProgressPacer progress(m_progressHook, m_progressClock, total);
    progress.setStopProbe(m_makeStopProbe);
    if (m_firstGlance)
        progress.setFirstGlance(m_firstGlance, m_firstGlanceDelay);
    return progress;
}

MusicLibraryRef LB_TrackController::iTunesLibraryDictionary()
{
    if (!m_library)
        m_library = m_locateLibrary();
    return m_library;
}

void LB_TrackController::getTracksForiTunesPlaylistArrayPlaylistID(
    const std::optional<std::vector<QString>> &items, const QString &playlistID)
{
    const ListBuilding building(*this);
    const MusicLibraryRef library = iTunesLibraryDictionary();
    const std::vector<QString> identifiers = items.value_or(std::vector<QString>());
    ProgressPacer progress = pacer(static_cast<qint64>(identifiers.size()));
    TrackRecordList records;
    records.reserve(identifiers.size());
    for (const QString &identifier : identifiers) {
        const MusicTrack *track = nullptr;
        if (library) {
            const auto found = library->tracks.find(identifier);
            track = found == library->tracks.end() ? nullptr : &found->second;
        }
        TrackRecordRef record = newObject();
        fillFromLibrary(*record, track);
        completeRecord(*record, static_cast<int>(records.size()) + 1, inodeOf(record->fileURL));
        records.push_back(std::move(record));
        progress.advance(static_cast<qsizetype>(records.size()));
        if (progress.isStopped())
            break;
    }
    m_shownFolder.reset();
    finishList(
        records, playlistID,
        {.kind = ListOrigin::Kind::Playlist, .isIncomplete = records.size() < identifiers.size()});
}

void LB_TrackController::scanForAudioFilesStartingAtURLFolderID(const QUrl &directory,
                                                                const QString &folderID)
{
    const ListBuilding building(*this);
    m_shownFolder = Folder{directory, folderID};
    ListOrigin origin{.kind =
                          m_includesSubfolders ? ListOrigin::Kind::Tree : ListOrigin::Kind::Folder};
    ProgressPacer progress = pacer();
    const QStringList paths = filesOfFolder(directory.toLocalFile(), progress, origin);
    progress.setTotal(paths.size());
    const Opened opened = openAudioFiles(paths, m_openAudioFile, progress);
    if (opened.size() < static_cast<std::size_t>(paths.size()))
        origin.isIncomplete = true;
    finishList(recordsOf(paths, opened), m_includesSubfolders ? treeListID(folderID) : folderID,
               origin);
}

QStringList LB_TrackController::filesOfFolder(const QString &path, ProgressPacer &progress,
                                              ListOrigin &origin) const
{
    FolderFiles found = findFolderFiles(path, m_includesSubfolders, progress);
    origin.isReadable = found.isReadable;
    origin.foldersInside = found.foldersInside;
    origin.isIncomplete = progress.isStopped();
    return origin.isIncomplete ? QStringList() : std::move(found.paths);
}

void LB_TrackController::setIncludesSubfolders(bool includes)
{
    if (std::exchange(m_includesSubfolders, includes) == includes)
        return;
    userDefaults().setValue(includeSubfoldersKey, includes);
    Q_EMIT includesSubfoldersChanged(includes);
    if (m_shownFolder) {
        const Folder folder = *m_shownFolder;
        scanForAudioFilesStartingAtURLFolderID(folder.url, folder.id);
    }
}

qsizetype LB_TrackController::showAndPlayFiles(const QList<QUrl> &files, QList<QUrl> *left)
{
    const ListBuilding building(*this);
    ProgressPacer progress = pacer(files.size());
    QStringList paths;
    for (const QUrl &file : files)
        paths.append(file.toLocalFile());
    const Opened opened = openAudioFiles(paths, m_openAudioFile, progress);
    if (opened.size() < static_cast<std::size_t>(paths.size()))
        return 0;
    for (qsizetype i = 0; left && i < files.size(); ++i) {
        if (!opened[static_cast<std::size_t>(i)])
            left->append(files[i]);
    }
    const TrackRecordList records = recordsOf(paths, opened);
    if (records.empty())
        return 0;
    m_shownFolder.reset();
    finishList(records, droppedFilesListID, {.kind = ListOrigin::Kind::Files});
    m_queue->playTrack(records.front());
    m_queue->setPlayQueueWithListID(content(), m_listID);
    return static_cast<qsizetype>(records.size());
}

TrackRecordRef LB_TrackController::trackObjectForFileIDAtURL(const OpenedAudioFile &file,
                                                             const QUrl &url) const
{
    TrackRecordRef record = newObject();
    fillFromFile(*record, file.information, url);
    return record;
}

TrackRecordRef LB_TrackController::newObject() const
{
    return std::make_shared<TrackRecord>();
}

TrackRecordList LB_TrackController::recordsOf(const QStringList &paths, const Opened &opened) const
{
    TrackRecordList records;
    for (std::size_t i = 0; i < opened.size(); ++i) {
        if (!opened[i])
            continue;
        const QUrl url = QUrl::fromLocalFile(paths.at(static_cast<qsizetype>(i)));
        TrackRecordRef record = trackObjectForFileIDAtURL(*opened[i], url);
        completeRecord(*record, static_cast<int>(records.size()) + 1, opened[i]->inode);
        records.push_back(std::move(record));
    }
    return records;
}

void LB_TrackController::completeRecord(TrackRecord &record, int order, const QString &inode) const
{
    const TrackRecordRef playing = playingTrack();
    record.order = order;
    record.inode = inode;
    record.isPlaying = playing && playing->inode == inode;
    record.hasSettings = m_settings->hasSettingsForInode(inode);
}

void LB_TrackController::finishList(const TrackRecordList &records, const QString &listID,
                                    const ListOrigin &origin)
{
    m_model->setContent(records);
    m_trackTableView->scrollToTop();
    m_trackTableView->clearSelection();
    m_listID = listID;
    m_origin = origin;
    {
        // A list that the user stopped must not take songs from the queue.
        const QScopedValueRollback<bool> finishing(m_isFinishingIncompleteList,
                                                   origin.isIncomplete);
        setSortDescriptors({m_settings->sortDescriptorForListID(listID)});
    }
    setTrackCount(static_cast<quint64>(m_model->rowCount()));
    updateEmptyText();
    Q_EMIT listShown();
}
