#pragma once

#include "practice/PracticeEdits.h"
#include "practice/PracticeFiles.h"
#include "practice/PracticeIndex.h"
#include "practice/SongIdentity.h"

#include "platform/foundation/BackgroundRunner.h"

#include <QFileSystemWatcher>
#include <QObject>
#include <QTimer>

#include <chrono>
#include <map>
#include <memory>
#include <optional>
#include <set>

namespace lyrabox {

/// Keeps the practice record of the song that is open, and its file. Files are written on a thread
/// of their own. Nothing is created or written before the first edit. Main thread only; needs an
/// event loop.
class PracticeStore : public QObject {
    Q_OBJECT

public:
    /// The song to open. Title and artist are written into a new practice file.
    struct Song {
        QString path;
        QString title;
        QString artist;
        std::uint64_t frames = 0; ///< length; 0 if unknown
    };

    /// What the user should know of the song's practice file.
    enum class Problem {
        None,
        Unreadable,   ///< it cannot be read; it will be kept under another name
        PartlyRead,   ///< it has invalid or too many entries; it will be kept under another name
        NewerVersion, ///< it was made by a later version, so that edits are refused
        NotWritable,  ///< it cannot be written; the edits stay in memory, and the next edit or the
                      ///< end tries again
        ChangedElsewhere, ///< another program changed it and there were edits here: both are kept
    };

    /// Edits are written at most so long after they were made.
    static constexpr std::chrono::milliseconds saveDelay{2000};

    /// `folder`: see practiceFolder(); if it is empty, edits stay in memory. `makeReader` is called
    /// on background threads. `runner` hashes songs and must outlive the store; the store cancels
    /// its own jobs only.
    PracticeStore(QString folder, SongReaderFactory makeReader, BackgroundRunner &runner,
                  std::chrono::milliseconds delay = saveDelay);

    /// Saves.
    ~PracticeStore() override;

    /// Saves the song that was open, and opens another one. If its file is known, the record is
    /// there at once. Otherwise the record is empty, and recordChanged() follows when the song is
    /// recognised by its sound; edits made before are merged with the record that is found.
    /// If the file of that song is open already and has not changed, nothing happens: the record
    /// and its steps stay.
    void openSong(const Song &song);

    /// Saves, and leaves an empty record.
    void closeSong();

    bool hasSong() const { return m_song.has_value(); }
    const PracticeRecord &record() const { return m_history.record(); }
    Problem problem() const { return m_problem; }
    bool isReadOnly() const { return !m_song || m_problem == Problem::NewerVersion; }

    /// Whether the song is being recognised by its sound.
    bool isIdentifying() const { return m_identifying.has_value(); }

    /// Recognises the song by its sound, if that was not done. Whether it is being recognised now.
    bool startIdentifying();

    /// Makes one step of edits. False if they are refused, see applyEdits(), or if the record is
    /// read-only.
    bool apply(const PracticeEdits &edits, PracticeStep step = PracticeStep::New);

    /// Notes what an analysis has said about the song. That is no step. It is written if the song
    /// has a file, or with the first edit: listening alone makes no file. Nothing if the record is
    /// read-only.
    void setFindings(const std::optional<PracticeTuning> &tuning,
                     const std::optional<KeyGuess> &keys);

    /// Notes the anchors of the song. Otherwise like setFindings().
    void setAnchors(const SongAnchors &anchors);

    /// The hash of the song's sound; empty while it is not known.
    const QString &audio() const { return m_audio; }
    /// Whether the song has a practice file. Not before the first edit is written.
    bool hasFile() const { return !m_fileName.isEmpty(); }
    /// The path of the song; empty without one.
    QString songPath() const { return m_song ? m_song->path : QString(); }
    /// What the song is called, for people: its title or the name of its file.
    QString songName() const;

    /// The folder of the practice files; empty if there is none.
    const QString &folder() const { return m_folder; }

    /// The record as it would be written now, with all that is known of its song.
    PracticeRecord describedRecord() const;

    /// What refuse() was called with for this song, also in earlier runs.
    std::set<QString> refusedCopies() const;
    /// Notes that the song is no copy of another one, which is named by its hash or by its practice
    /// file.
    void refuse(const QString &copy);

    bool canUndo() const { return !isReadOnly() && m_history.canUndo(); }
    bool canRedo() const { return !isReadOnly() && m_history.canRedo(); }
    bool undo();
    bool redo();

    /// Writes the edits that are not written yet, and blocks until they are.
    void save();

Q_SIGNALS:
    /// The record is another one, or has other content.
    void recordChanged();
    /// problem() or isIdentifying() changed.
    void stateChanged();
    /// A file was written.
    void saved();

private:
    void forgetSong();
    void open(const QString &fileName);
    void identify();
    void recognised(const SongIdentity &identity);
    bool takeOver(const QString &fileName);
    void adopt(const QString &fileName, const PracticeReading &reading,
               std::optional<files::FileStamp> stamp);
    void noteEdit(bool isMade);
    PracticeSong describedSong() const;
    PracticeWrite prepareWrite();
    void writeInBackground();
    void endWriting();
    void written(const PracticeWritten &result);
    void lookForChanges();
    void watch();
    void writeIndex();
    void setProblem(Problem problem);
    QString pathOf(const QString &fileName) const;

    const QString m_folder;
    const SongReaderFactory m_makeReader;
    BackgroundRunner &m_runner;
    PracticeIndex m_index;
    bool m_indexHasChanged = false;                ///< since it was written
    std::map<QString, PracticeRecord> m_unwritten; ///< of songs that are closed, by their paths
    QTimer m_saveTimer;                            ///< runs from the first edit that is not written
    QFileSystemWatcher m_watcher;

    // The song that is open.
    std::optional<Song> m_song;
    std::optional<files::FileStamp> m_songStamp;
    std::optional<BackgroundRunner::Job> m_identifying;
    bool m_wasIdentified = false; ///< or could not be
    QString m_audio;              ///< the hash; empty until the song is identified
    PracticeHistory m_history;
    Problem m_problem = Problem::None;
    bool m_hasEdits = false; ///< that are not written

    // Its file.
    QString m_fileName; ///< empty if it has none yet
    std::optional<files::FileStamp> m_fileStamp;
    bool m_isOwnFile = false; ///< made here, before the song was identified
    bool m_keepsOld = false;
    QString m_superseded; ///< a file made here whose content is now in m_fileName

    // The file that is being written.
    BackgroundRunner m_writer{BackgroundRunner::Priority::Normal};
    std::optional<BackgroundRunner::Job> m_writing;
    std::optional<BackgroundRunner::Job> m_writingIndex;
    std::shared_ptr<PracticeWritten> m_writeResult;
};

} // namespace lyrabox
