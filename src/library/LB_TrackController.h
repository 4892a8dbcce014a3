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

/// Shows one list of songs in the track table. Builds it from a playlist, a folder or single files,
/// filters it by the search text, sorts it and remembers the sort, marks the playing song, and
/// gives the user's choice to the queue. Main thread only. Outlets are not owned; set them once,
/// before setup().
class LB_TrackController : public QObject {
    Q_OBJECT
    Q_PROPERTY(quint64 trackCount READ trackCount NOTIFY trackCountChanged)

public:
    /// List identifier of files that were opened or dropped, not chosen in a source.
    static const QString droppedFilesListID;

    /// Key of the user default for includesSubfolders(): boolean, false if absent.
    static const QString includeSubfoldersKey;

    /// List identifier of a folder including its subfolders: the folder's path and a separator. The
    /// list has a sort of its own, and a queue made from one of the two lists is not replaced by
    /// the other.
    static QString treeListID(const QString &folderID);

    explicit LB_TrackController(QObject *parent = nullptr);
    ~LB_TrackController() override;

    /// Observes notifications and resets the list. Call it once, at start-up.
    void setup();

    LB_QueueController *queue() const { return m_queue; }
    void setQueue(LB_QueueController *queue);
    LB_SettingsController *settings() const { return m_settings; }
    void setSettings(LB_SettingsController *settings) { m_settings = settings; }
    QTableView *trackTableView() const { return m_trackTableView; }

    /// Gives the table its model, columns and behaviour. To use a custom header, set it on the view
    /// before this call. Delegates may be set at any time. Title and text of a column are in the
    /// display role. The name of an image is in TrackTableModel::ImageNameRole.
    void setTrackTableView(QTableView *view);

    // Lists. The functions that build one return when the table is filled
    // (docs/kept-on-purpose.md). They process no events.
    /// The music library. It is read on first use and then kept. After a failure the next call
    /// tries again.
    lyrabox::MusicLibraryRef iTunesLibraryDictionary();

    /// Shows the songs of a playlist. `items` are track identifiers; nullopt means an empty
    /// playlist.
    void getTracksForiTunesPlaylistArrayPlaylistID(const std::optional<std::vector<QString>> &items,
                                                   const QString &playlistID);

    /// Shows the audio files of a folder. With includesSubfolders(), also those of the whole tree
    /// below it, folder by folder in tree order.
    void scanForAudioFilesStartingAtURLFolderID(const QUrl &directory, const QString &folderID);

    /// Whether a folder's list includes the songs of its subfolders. Setting it stores the choice
    /// and reads the shown folder again.
    bool includesSubfolders() const { return m_includesSubfolders; }
    void setIncludesSubfolders(bool includes);

    /// Whether the user stopped the current list before it was complete.
    bool isListIncomplete() const { return m_origin.isIncomplete; }

    /// Shows the audio files among `files`, plays the first and queues the list. Returns the number
    /// of audio files. If there are none, or if the user stops the reading, returns 0 and leaves
    /// the table unchanged. Appends the other files to `left`.
    qsizetype showAndPlayFiles(const QList<QUrl> &files, QList<QUrl> *left = nullptr);

    /// Makes a record with location, title, artist, album and length.
    lyrabox::TrackRecordRef trackObjectForFileIDAtURL(const lyrabox::OpenedAudioFile &file,
                                                      const QUrl &url) const;

    /// Makes an empty record.
    lyrabox::TrackRecordRef newObject() const;

    /// Sets a function that is called while a list is built: first after a quarter of a second,
    /// then at most every 50 ms. It gets the number of entries done and the total, or the number
    /// found and 0 while folders are still searched. It must not process events.
    void setProgressHook(lyrabox::ProgressHook hook) { m_progressHook = std::move(hook); }

    /// Sets a function that is called once for each search for songs and each list that takes
    /// longer than `delay`, before the progress hook is first called.
    void setFirstGlance(std::function<void()> glance, std::chrono::milliseconds delay)
    {
        m_firstGlance = std::move(glance);
        m_firstGlanceDelay = delay;
    }

    /// Sets the probe that says whether the user wants to stop. The list then holds what was read.
    void setStopProbe(lyrabox::StopProbeMaker maker) { m_makeStopProbe = std::move(maker); }

    /// The whole list in sort order.
    lyrabox::TrackRecordList content() const;

    /// The records that pass the search, in the order of the rows.
    lyrabox::TrackRecordList arrangedObjects() const;
    lyrabox::TrackTableModel *model() const { return m_model; }

    /// Folder path or playlist identifier of the current list. None before the first list.
    const std::optional<QString> &listID() const { return m_listID; }

    /// Number of rows shown.
    quint64 trackCount() const { return m_trackCount; }

    /// Text of the empty table. Empty if the table has rows.
    const QString &emptyText() const { return m_emptyText; }

    // Search and sort.
    /// Filters by the field's text, including its spaces. An empty text shows everything.
    void searchTextEntered(QLineEdit *searchField);

    const std::vector<lyrabox::SortDescriptor> &sortDescriptors() const
    {
        return m_sortDescriptors;
    }

    /// Sorts the list and stores the first descriptor for it.
    void setSortDescriptors(std::vector<lyrabox::SortDescriptor> descriptors);

    /// Applies sortDescriptors() to the list, header and queue.
    void tableViewSortDescriptorsDidChange();

    /// Sorts by a column, as a click on its header does. Sorting by the same column again reverses
    /// the order.
    void sortByColumn(int column);

    /// Sorts the list in the order in which it was built.
    void sortByOwnOrder();
    bool isInOwnOrder() const;

    /// The column that the list is sorted by, or -1.
    int highlightedColumn() const { return m_highlightedColumn; }

    // Playing.
    /// Plays the song of the selected row and queues the list.
    void trackSelectedForPlayback();

    /// Decides whether and when the song that the user picked is played. Without a gate it plays at
    /// once. Otherwise the gate calls `play` once, later, or never.
    using PlayGate =
        std::function<void(const lyrabox::TrackRecordRef &track, std::function<void()> play)>;
    void setPlayGate(PlayGate gate) { m_playGate = std::move(gate); }

    /// Handles Play with nothing loaded: plays the selected song, else the first, or a random one
    /// while shuffling.
    void autoLoadTrack();

    /// Marks the current song and scrolls to it.
    void currentTrackChanged();

    /// Marks the rows of the current song.
    void updateIsPlaying();

    /// Updates the marks of the songs that have settings of their own.
    void updateSongSettings();

    /// Scrolls until the current song is visible.
    void scrollToCurrentTrack();

    /// Scrolls to the top once the launch is complete.
    void appDidLaunch();

    /// The selected row of the table, or -1.
    int selectedRow() const;

    /// The record of the selected row. Null if no row is selected.
    lyrabox::TrackRecordRef selectedTrack() const;

    // Replaceable parts for tests.
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

    /// A list begins to be built (true), or that has ended (false). Until then the main thread
    /// reads from disks.
    void buildingListChanged(bool isBuilding);

    /// selectedTrack() may have changed. Sent while rows change, so observers should wait for the
    /// event loop before they ask.
    void selectionChanged();

    /// A list has been built. isListIncomplete() says whether it is complete.
    void listShown();

    /// The list has been sorted, even if the order is the same.
    void sorted();

    /// The column that the list is sorted by has changed; -1 for none. For a header that draws it
    /// differently.
    void highlightedColumnChanged(int column);

private:
    class ListBuilding;

    lyrabox::TrackRecordRef playingTrack() const;
    struct Folder {
        QUrl url;
        QString id;
    };

    lyrabox::ProgressPacer pacer(qint64 total = 0) const;
    using Opened = std::vector<std::optional<lyrabox::OpenedAudioFile>>;

    /// Makes records for the audio files among `paths`.
    lyrabox::TrackRecordList recordsOf(const QStringList &paths, const Opened &opened) const;
    /// Returns the files of the folder's list. Empty if the user has stopped the search.
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
    lyrabox::ListOrigin m_origin;        ///< Of the current list.
    std::optional<Folder> m_shownFolder; ///< Null if the current list is not a folder's.
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
    std::function<void()> m_firstGlance;
    std::chrono::milliseconds m_firstGlanceDelay{};
    lyrabox::StopProbeMaker m_makeStopProbe;
    lyrabox::ProgressClock m_progressClock;
    PlayGate m_playGate;
    std::function<std::uint32_t()> m_random;
};
