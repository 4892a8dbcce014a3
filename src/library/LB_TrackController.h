#pragma once

#include "engine/TrackRecord.h"
#include "library/EmptyListText.h"
#include "library/TrackImport.h"
#include "platform/foundation/MusicLibrary.h"
#include "settings/SortDescriptor.h"

#include <QList>
#include <QObject>
#include <QUrl>

#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

class LB_QueueController;
class LB_SettingsController;
class QLineEdit;
class QTableView;

namespace lyrabox {
class TrackTableModel;
}

/// Shows one list of songs in the track table: builds it from a playlist, a folder or single files,
/// filters it by the search text, sorts it and remembers the sort, marks the song that plays, and
/// gives what the user picks to the queue. Main thread only. Outlets are set once, before setup(),
/// and are not owned.
class LB_TrackController : public QObject {
    Q_OBJECT
    Q_PROPERTY(quint64 trackCount READ trackCount NOTIFY trackCountChanged)

public:
    /// The list identifier of files that came neither from a folder nor from a playlist.
    static const QString droppedFilesListID;

    /// The user default that remembers includesSubfolders(): boolean, false when absent.
    static const QString includeSubfoldersKey;

    /// The list identifier of a folder with everything in it: the folder's path and a separator. It
    /// is a list of its own, so it has a sort of its own, and a queue that plays one of the two
    /// lists is not exchanged for the other.
    static QString treeListID(const QString &folderID);

    explicit LB_TrackController(QObject *parent = nullptr);
    ~LB_TrackController() override;

    /// Observes the notifications and empties the list state. Once, at start-up.
    void setup();

    LB_QueueController *queue() const { return m_queue; }
    void setQueue(LB_QueueController *queue);
    LB_SettingsController *settings() const { return m_settings; }
    void setSettings(LB_SettingsController *settings) { m_settings = settings; }
    QTableView *trackTableView() const { return m_trackTableView; }

    /// Gives the table its model, its columns and its behaviour. A header of one's own is set on
    /// the view before; delegates may be set at any time. Title and text of a column are in the
    /// display role, the name of an image column's image in TrackTableModel::ImageNameRole.
    void setTrackTableView(QTableView *view);

    // Lists. The builders return when the table is filled; they do not process events meanwhile.
    /// The music library, read on first use and kept; a failed read is tried again at the next
    /// call.
    lyrabox::MusicLibraryRef iTunesLibraryDictionary();

    /// Shows the tracks of one playlist; `items` are track identifiers, none is an empty playlist.
    void getTracksForiTunesPlaylistArrayPlaylistID(const std::optional<std::vector<QString>> &items,
                                                   const QString &playlistID);

    /// Shows the audio files that lie in one folder itself or, with includesSubfolders(), those of
    /// the whole tree below it as well, folder by folder in the order of the tree.
    void scanForAudioFilesStartingAtURLFolderID(const QUrl &directory, const QString &folderID);

    /// Whether a folder's list holds the songs of the folders inside. A change is remembered, and
    /// the folder that is shown is read again.
    bool includesSubfolders() const { return m_includesSubfolders; }
    void setIncludesSubfolders(bool includes);

    /// Whether the user has stopped the list that is shown before it was complete.
    bool isListIncomplete() const { return m_origin.isIncomplete; }

    /// Shows those of `files` that are audio, plays the first and queues the list. Returns how many
    /// there were; with none, and when the user stops it, the table keeps what it shows. Those that
    /// are no audio are appended to `left`.
    qsizetype showAndPlayFiles(const QList<QUrl> &files, QList<QUrl> *left = nullptr);

    /// A record with location, title, artist, album and length filled in.
    lyrabox::TrackRecordRef trackObjectForFileIDAtURL(const lyrabox::OpenedAudioFile &file,
                                                      const QUrl &url) const;
    lyrabox::TrackRecordRef newObject() const;

    /// Called while a list is built, from a quarter of a second on and at most every 50 ms, with
    /// the number of entries done and found; while folders are still searched, with the number
    /// found and 0. It must not process events.
    void setProgressHook(lyrabox::ProgressHook hook) { m_progressHook = std::move(hook); }

    /// Lets the user stop a list that is being built. It then holds what was read until then.
    void setStopProbe(lyrabox::StopProbeMaker maker) { m_makeStopProbe = std::move(maker); }

    /// The whole list, in its sort order.
    lyrabox::TrackRecordList content() const;

    /// What of it the search lets through, as the table shows it.
    lyrabox::TrackRecordList arrangedObjects() const;
    lyrabox::TrackTableModel *model() const { return m_model; }

    /// Folder path or playlist identifier of the list shown; none before the first.
    const std::optional<QString> &listID() const { return m_listID; }

    /// The number of rows shown.
    quint64 trackCount() const { return m_trackCount; }

    /// What the table says while it has no rows; empty while it has some.
    const QString &emptyText() const { return m_emptyText; }

    // Search and sort.
    /// Filters by the field's text as it stands, blanks included; an empty text shows everything.
    void searchTextEntered(QLineEdit *searchField);

    const std::vector<lyrabox::SortDescriptor> &sortDescriptors() const
    {
        return m_sortDescriptors;
    }

    /// Sorts the list and remembers the first descriptor for it.
    void setSortDescriptors(std::vector<lyrabox::SortDescriptor> descriptors);
    void tableViewSortDescriptorsDidChange();

    /// Sorts by a column as a click on its header does: the same column again turns the order
    /// round.
    void sortByColumn(int column);

    /// Sorts a list in the order in which it was built.
    void sortByOwnOrder();
    bool isInOwnOrder() const;

    /// The column that the list is sorted by; -1 for none.
    int highlightedColumn() const { return m_highlightedColumn; }

    // Playing.
    /// Plays the selected row's song and queues the list.
    void trackSelectedForPlayback();

    /// Decides when what the user picked is played: at once without a gate, else whenever the gate
    /// calls `play`, once or never.
    using PlayGate =
        std::function<void(const lyrabox::TrackRecordRef &track, std::function<void()> play)>;
    void setPlayGate(PlayGate gate) { m_playGate = std::move(gate); }

    /// Play was pressed with nothing loaded: the selected song, a random one or the first.
    void autoLoadTrack();
    void currentTrackChanged();
    void updateIsPlaying();
    void updateSongSettings();
    void scrollToCurrentTrack();
    void appDidLaunch();

    /// The row selected in the table; -1 for none.
    int selectedRow() const;

    // Seams for tests.
    void setLibraryLocator(std::function<lyrabox::MusicLibraryRef()> locator)
    {
        m_locateLibrary = std::move(locator);
    }
    void setAudioFileOpener(lyrabox::AudioFileOpener opener)
    {
        m_openAudioFile = std::move(opener);
    }
    void setProgressClock(lyrabox::ProgressClock clock) { m_progressClock = std::move(clock); }
    void setRandomSource(std::function<std::uint32_t()> source) { m_random = std::move(source); }

    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    void trackCountChanged(quint64 count);
    void emptyTextChanged(const QString &text);
    void includesSubfoldersChanged(bool includes);

    /// A list has been built; isListIncomplete() tells whether to its end.
    void listShown();

    /// The list has been sorted, also where that changed nothing.
    void sorted();

    /// For a header that draws the sorted column differently; -1 for none.
    void highlightedColumnChanged(int column);

private:
    lyrabox::TrackRecordRef playingTrack() const;
    struct Folder {
        QUrl url;
        QString id;
    };

    lyrabox::ProgressPacer pacer(qint64 total = 0) const;
    using Opened = std::vector<std::optional<lyrabox::OpenedAudioFile>>;

    /// The records of those files that are audio.
    lyrabox::TrackRecordList recordsOf(const QStringList &paths, const Opened &opened) const;
    /// The files of the folder's list; none when the user has stopped the search for them.
    QStringList filesOfFolder(const QString &path, lyrabox::ProgressPacer &progress,
                              lyrabox::ListOrigin &origin) const;
    void completeRecord(lyrabox::TrackRecord &record, int order, const QString &inode) const;
    void finishList(const lyrabox::TrackRecordList &records, const QString &listID,
                    const lyrabox::ListOrigin &origin);
    void updateEmptyText();
    void selectRow(int row);
    void setTrackCount(quint64 count);
    void setHighlightedColumn(int column);

    LB_QueueController *m_queue = nullptr;
    LB_SettingsController *m_settings = nullptr;
    QTableView *m_trackTableView = nullptr;
    lyrabox::TrackTableModel *m_model = nullptr;
    lyrabox::MusicLibraryRef m_library;
    std::optional<QString> m_listID;
    lyrabox::ListOrigin m_origin;        ///< of the list that is shown
    std::optional<Folder> m_shownFolder; ///< none while the list is no folder's
    bool m_includesSubfolders = false;
    bool m_isFinishingIncompleteList = false;
    QString m_searchText;
    QString m_emptyText;
    quint64 m_trackCount = 0;
    std::vector<lyrabox::SortDescriptor> m_sortDescriptors;
    int m_highlightedColumn = -1;
    std::function<lyrabox::MusicLibraryRef()> m_locateLibrary;
    lyrabox::AudioFileOpener m_openAudioFile;
    lyrabox::ProgressHook m_progressHook;
    lyrabox::StopProbeMaker m_makeStopProbe;
    lyrabox::ProgressClock m_progressClock;
    PlayGate m_playGate;
    std::function<std::uint32_t()> m_random;
};
