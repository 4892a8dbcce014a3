#include "library/TrackImport.h"

#include "platform/audio/DecodingModule.h"
#include "platform/foundation/Files.h"
#include "platform/foundation/Machine.h"

#include <QFileInfo>

#include <algorithm>
#include <condition_variable>
#include <exception>
#include <memory>
#include <mutex>
#include <thread>
#include <utility>

namespace lyrabox {

using namespace std::chrono_literals;
using namespace Qt::Literals::StringLiterals;

namespace {

constexpr auto progressInterval = 50ms; ///< How often the waiting thread reports progress.
constexpr auto patienceAfterStop = 3s;

QString fileName(const QUrl &url)
{
    return url.fileName(QUrl::FullyDecoded);
}

/// The shared state of the opening threads. They own it together, because a thread that waits for a
/// hanging disk may be abandoned.
struct Opening {
    Opening(const QStringList &files, const AudioFileOpener &open)
        : paths(files),
          opener(open),
          results(static_cast<std::size_t>(files.size())),
          isDone(results.size()),
          end(results.size())
    {}

    /// Opens one file. The caller holds `lock`; it is released while the file is opened.
    void openNext(std::unique_lock<std::mutex> &lock)
    {
        const std::size_t i = next++;
        lock.unlock();
        std::optional<OpenedAudioFile> result;
        try {
            result = opener(paths.at(static_cast<qsizetype>(i)));
        } catch (const std::exception &) {
            result.reset(); // An error in one file must not stop the list.
        }
        lock.lock();
        results[i] = std::move(result);
        isDone[i] = true;
        if (++done == end)
            allDone.notify_one();
    }

    const QStringList paths;
    const AudioFileOpener opener;
    std::mutex mutex; ///< Guards everything below.
    std::condition_variable allDone;
    std::vector<std::optional<OpenedAudioFile>> results;
    std::vector<bool> isDone;
    std::size_t next = 0; ///< The first file that no thread has begun.
    std::size_t end;      ///< Files from here on are not opened.
    std::size_t done = 0;
};

} // namespace

std::optional<OpenedAudioFile> openAudioFile(const QString &path)
{
    if (!QFileInfo(path).isFile())
        return std::nullopt;
    const std::unique_ptr<SongReader> reader = decodingModule().makeSongReader();
    if (reader->open(path, SongReader::Depth::Tags) != status::noError)
        return std::nullopt;
    return OpenedAudioFile{reader->infoDictionary(), files::inodeText(path)};
}

std::vector<std::optional<OpenedAudioFile>>
openAudioFiles(const QStringList &paths, const AudioFileOpener &opener, ProgressPacer &progress)
{
    const auto opening = std::make_shared<Opening>(paths, opener);
    const std::size_t count = opening->results.size();
    const std::size_t threads = std::min<std::size_t>(processorCount(), count);
    std::size_t started = 0;
    while (started < threads) {
        std::jthread worker = startThread([opening] {
            std::unique_lock lock(opening->mutex);
            while (opening->next < opening->end)
                opening->openNext(lock);
        });
        if (!worker.joinable())
            break; // The system cannot start more threads. Use those that run.
        worker.detach();
        ++started;
    }

    std::unique_lock lock(opening->mutex);
    const auto isOver = [&opening] { return opening->done == opening->end; };
    while (!isOver() && !progress.isStopped()) {
        const auto soFar = static_cast<qsizetype>(opening->done);
        lock.unlock();
        progress.advance(soFar);
        lock.lock();
        if (started == 0)
            opening->openNext(lock);
        else
            opening->allDone.wait_for(lock, progressInterval, isOver);
    }
    // Files being opened are finished, no others are begun, and hanging ones are abandoned.
    opening->end = opening->next;
    opening->allDone.wait_for(lock, patienceAfterStop, isOver);
    std::vector<std::optional<OpenedAudioFile>> results;
    for (std::size_t i = 0; i < opening->end && opening->isDone[i]; ++i)
        results.push_back(std::move(opening->results[i]));
    return results;
}

void fillFromFile(TrackRecord &record, const QMap<QString, QString> &information, const QUrl &url)
{
    record.fileURL = url;
    record.title = information.value(u"title"_s, fileName(url));
    record.artist = information.value(u"artist"_s);
    record.album = information.value(u"album"_s);
    const auto duration = information.constFind(u"approximate duration in seconds"_s);
    record.durationSeconds =
        duration == information.constEnd() ? QVariant(0.0F) : QVariant(*duration);
}

void fillFromLibrary(TrackRecord &record, const MusicTrack *track)
{
    record.durationSeconds = 0.0F;
    if (track == nullptr)
        return;
    if (track->location)
        record.fileURL = locationURL(*track->location);
    if (track->name)
        record.title = track->name;
    else if (!record.fileURL.isEmpty())
        record.title = fileName(record.fileURL);
    record.artist = track->artist.value_or(QString());
    record.album = track->album.value_or(QString());
    record.durationSeconds = static_cast<float>(track->totalTime.value_or(0.0)) / 1000.0F;
}

} // namespace lyrabox
