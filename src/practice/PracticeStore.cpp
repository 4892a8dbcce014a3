#include "practice/PracticeStore.h"

#include "platform/foundation/DiskPatience.h"
#include "platform/foundation/FileReplacement.h"

#include <QDir>
#include <QDirIterator>
#include <QFileInfo>

#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox {

namespace {

std::optional<files::FileStamp> stampOfSong(const QString &path)
{
    using Answer = std::optional<files::FileStamp>;
    return files::askPatiently<Answer>(path, [path]() -> Answer { return files::fileStamp(path); })
        .value_or(std::nullopt);
}

bool hasPracticeFiles(const QString &folder)
{
    if (folder.isEmpty())
        return false;
    QDirIterator files(folder, QDir::Files);
    while (files.hasNext()) {
        files.next();
        if (isPracticeFileName(files.fileName()))
            return true;
    }
    return false;
}

} // namespace

PracticeStore::PracticeStore(QString folder, SongReaderFactory makeReader, BackgroundRunner &runner,
                             std::chrono::milliseconds delay)
    : m_folder(std::move(folder)), m_makeReader(std::move(makeReader)), m_runner(runner)
{
    if (!m_folder.isEmpty())
        m_index = PracticeIndex::inFolder(m_folder);
    m_saveTimer.setSingleShot(true);
    m_saveTimer.setInterval(delay);
    connect(&m_saveTimer, &QTimer::timeout, this, &PracticeStore::writeInBackground);
    connect(&m_watcher, &QFileSystemWatcher::fileChanged, this, &PracticeStore::lookForChanges);
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this,
            &PracticeStore::lookForChanges);
}

PracticeStore::~PracticeStore()
{
    save();
    if (m_identifying)
        m_runner.cancel(*m_identifying);
}

void PracticeStore::openSong(const Song &song)
{
    const std::optional<files::FileStamp> stamp = stampOfSong(song.path);
    if (m_song && m_song->path == song.path && stamp && stamp == m_songStamp)
        return;
    forgetSong();
    m_song = song;
    m_songStamp = stamp;
    if (const auto known = m_songStamp ? m_index.fileOf(*m_songStamp) : std::nullopt)
        open(*known);
    if (const auto unwritten = m_unwritten.find(song.path);
        unwritten != m_unwritten.end() && apply(editsThatMerge(record(), unwritten->second)))
        m_unwritten.erase(unwritten);
    if (m_audio.isEmpty() && !m_identifying && m_problem != Problem::Unreadable &&
        hasPracticeFiles(m_folder))
        identify();
    watch();
    Q_EMIT recordChanged();
    Q_EMIT stateChanged();
}

void PracticeStore::closeSong()
{
    forgetSong();
    watch();
    Q_EMIT recordChanged();
    Q_EMIT stateChanged();
}

/// Saves, and returns to the state without a song.
void PracticeStore::forgetSong()
{
    save();
    if (m_song && m_hasEdits)
        m_unwritten[m_song->path] = record();
    if (const auto job = std::exchange(m_identifying, std::nullopt))
        m_runner.cancel(*job);
    m_song.reset();
    m_songStamp.reset();
    m_wasIdentified = false;
    m_audio.clear();
    m_history = {};
    m_problem = Problem::None;
    m_hasEdits = false;
    m_fileName.clear();
    m_fileStamp.reset();
    m_isOwnFile = false;
    m_keepsOld = false;
    m_superseded.clear();
}

/// Opens the song's file, unless it is gone.
void PracticeStore::open(const QString &fileName)
{
    const PracticeFile file = loadPractice(pathOf(fileName));
    if (file.reading) {
        adopt(fileName, *file.reading, file.stamp);
    } else if (file.stamp) {
        m_fileName = fileName;
        m_fileStamp = file.stamp;
        m_keepsOld = true;
        m_problem = Problem::Unreadable;
    }
}

/// Takes over what was read from the song's file.
void PracticeStore::adopt(const QString &fileName, const PracticeReading &reading,
                          std::optional<files::FileStamp> stamp)
{
    m_fileName = fileName;
    m_fileStamp = stamp;
    m_isOwnFile = false;
    m_keepsOld = !reading.isWhole;
    m_history = PracticeHistory(reading.record);
    if (!reading.record.song.audio.isEmpty())
        m_audio = reading.record.song.audio;
    m_problem = reading.isNewer   ? Problem::NewerVersion
                : reading.isWhole ? Problem::None
                                  : Problem::PartlyRead;
}

void PracticeStore::identify()
{
    m_identifying = m_runner.run(
        [makeReader = m_makeReader, path = m_song->path, folder = m_folder](
            const std::stop_token &stop) { return identifySong(makeReader, path, folder, stop); },
        [this](const SongIdentity &identity) { recognised(identity); });
}

void PracticeStore::recognised(const SongIdentity &identity)
{
    endWriting();
    m_identifying.reset();
    m_wasIdentified = true;
    m_audio = identity.audio;
    if (takeOver(identity.file)) {
        if (m_songStamp && m_index.put(*m_songStamp, m_fileName)) {
            m_indexHasChanged = true;
            writeIndex();
        }
        watch();
        Q_EMIT recordChanged();
    } else if (!m_fileName.isEmpty() && record().song.audio.isEmpty() && !m_audio.isEmpty() &&
               !isReadOnly() && !m_keepsOld) {
        noteEdit(true); // The file was written before the song was known. Now it gets the hash.
    }
    Q_EMIT stateChanged();
}

/// Takes over the file that was found for the song, together with the edits made meanwhile. False
/// if there is none, or if the two cannot be merged.
bool PracticeStore::takeOver(const QString &fileName)
{
    const bool isFree = m_fileName.isEmpty() || m_isOwnFile;
    if (!isFree || fileName.isEmpty() || fileName == m_fileName)
        return false;
    const PracticeFile found = loadPractice(pathOf(fileName));
    if (!found.reading)
        return false;
    const PracticeEdits own = editsThatMerge(found.reading->record, record());
    PracticeHistory merged(found.reading->record);
    if (!own.empty() && (found.reading->isNewer || !merged.apply(own)))
        return false;
    if (const PracticeSound &sound = record().sound; !merged.record().sound.tuning)
        merged.setFindings(sound.tuning, sound.keys);
    if (merged.record().song.anchors.empty())
        merged.setAnchors(record().song.anchors);
    if (m_isOwnFile && m_fileStamp && files::fileStamp(pathOf(m_fileName)) == m_fileStamp)
        m_superseded = m_fileName;
    adopt(fileName, *found.reading, found.stamp);
    m_history = std::move(merged);
    m_hasEdits = false;
    noteEdit(!isReadOnly() && (!own.empty() || !m_superseded.isEmpty()));
    return true;
}

bool PracticeStore::apply(const PracticeEdits &edits, PracticeStep step)
{
    if (isReadOnly())
        return false;
    const std::uint64_t before = m_history.revision();
    const bool isAccepted = m_history.apply(edits, step);
    noteEdit(m_history.revision() != before);
    return isAccepted;
}

bool PracticeStore::undo()
{
    const bool isMade = canUndo() && m_history.undo();
    noteEdit(isMade);
    return isMade;
}

bool PracticeStore::redo()
{
    const bool isMade = canRedo() && m_history.redo();
    noteEdit(isMade);
    return isMade;
}

void PracticeStore::noteEdit(bool isMade)
{
    if (!isMade)
        return;
    m_hasEdits = true;
    // Not started anew with every edit: who edits without a pause would lose everything in a crash.
    if (!m_saveTimer.isActive())
        m_saveTimer.start();
    startIdentifying();
    Q_EMIT recordChanged();
}

/// Everything for writing the present state, which counts as written from now on.
PracticeWrite PracticeStore::prepareWrite()
{
    const PracticeSong song = describedSong();
    m_history.setSong(song);
    if (m_fileName.isEmpty()) {
        m_fileName = practiceFileName(songName(), song.audio, [this](const QString &name) {
            const QFileInfo info(pathOf(name));
            return info.exists() || info.isSymLink();
        });
        m_isOwnFile = song.audio.isEmpty();
    }
    if (m_songStamp && m_index.put(*m_songStamp, m_fileName))
        m_indexHasChanged = true;
    m_hasEdits = false;
    return {.folder = m_folder,
            .name = m_fileName,
            .text = practiceText(record()),
            .expected = m_fileStamp,
            .keepsOld = m_keepsOld,
            .supersedes = m_superseded,
            .index = m_indexHasChanged ? m_index.text() : QByteArray()};
}

void PracticeStore::writeInBackground()
{
    if (!m_hasEdits || m_writing || isReadOnly())
        return; // What is being written starts the timer again at its end.
    if (m_folder.isEmpty()) {
        setProblem(Problem::NotWritable);
        return;
    }
    m_writeResult = std::make_shared<PracticeWritten>();
    m_writing = m_writer.run([write = prepareWrite(), result = m_writeResult](
                                 const std::stop_token &) { *result = writePractice(write); },
                             [this] {
                                 m_writing.reset();
                                 written(*m_writeResult);
                             });
    if (!m_writing)
        written(writePractice(prepareWrite()));
}

/// Waits until the file is written, if it is being written.
void PracticeStore::endWriting()
{
    if (const auto job = std::exchange(m_writingIndex, std::nullopt))
        m_writer.wait(*job);
    if (!m_writing)
        return;
    m_writer.wait(*m_writing);
    m_writer.cancel(*m_writing); // The result is taken here.
    m_writing.reset();
    written(*m_writeResult);
}

void PracticeStore::save()
{
    m_saveTimer.stop();
    endWriting();
    m_saveTimer.stop();
    if (!m_hasEdits || isReadOnly())
        return;
    if (m_folder.isEmpty())
        setProblem(Problem::NotWritable);
    else
        written(writePractice(prepareWrite()));
}

void PracticeStore::written(const PracticeWritten &result)
{
    if (!result.isWritten) {
        m_hasEdits = true;
        setProblem(Problem::NotWritable);
        return;
    }
    m_fileStamp = result.stamp;
    m_keepsOld = false;
    m_superseded.clear();
    m_indexHasChanged = false;
    setProblem(result.keptOther || m_problem == Problem::ChangedElsewhere
                   ? Problem::ChangedElsewhere
                   : Problem::None);
    lookForChanges(); // There may have been one since.
    Q_EMIT saved();
    if (m_hasEdits)
        m_saveTimer.start();
}

/// Notes the file of a song that was found, so that it is there at once the next time.
void PracticeStore::writeIndex()
{
    if (m_hasEdits)
        return; // Their file brings it along.
    m_writingIndex = m_writer.run([path = pathOf(practiceIndexName), text = m_index.text()](
                                      const std::stop_token &) { files::replaceFile(path, text); });
    m_indexHasChanged = !m_writingIndex;
}

/// Another program may have changed the file. Its version is taken if there are no edits here.
void PracticeStore::lookForChanges()
{
    watch();
    if (m_fileName.isEmpty() || m_writing || m_hasEdits)
        return;
    const auto stamp = files::fileStamp(pathOf(m_fileName));
    if (!stamp || stamp == m_fileStamp)
        return;
    const PracticeFile file = loadPractice(pathOf(m_fileName));
    if (!file.reading)
        return; // Perhaps it is being written. The next edit keeps it under another name.
    adopt(m_fileName, *file.reading, file.stamp);
    Q_EMIT recordChanged();
    Q_EMIT stateChanged();
}

/// Watches the file, and its folder because replaced files are lost to the watcher.
void PracticeStore::watch()
{
    if (!m_watcher.files().isEmpty())
        m_watcher.removePaths(m_watcher.files());
    if (m_fileName.isEmpty())
        return;
    if (m_watcher.directories().isEmpty())
        m_watcher.addPath(m_folder);
    m_watcher.addPath(pathOf(m_fileName));
}

void PracticeStore::setProblem(Problem problem)
{
    if (std::exchange(m_problem, problem) != problem)
        Q_EMIT stateChanged();
}

QString PracticeStore::pathOf(const QString &fileName) const
{
    return QDir(m_folder).filePath(fileName);
}

} // namespace lyrabox
