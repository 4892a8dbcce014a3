#include "library/TrackImport.h"

#include "platform/audio/DecodingModule.h"
#include "platform/foundation/Files.h"
#include "platform/foundation/Machine.h"

#include <QFileInfo>

#include <algorithm>
#include <condition_variable>
#include <exception>
#include <mutex>
#include <thread>
#include <utility>

namespace lyrabox {

using namespace std::chrono_literals;
using namespace Qt::Literals::StringLiterals;

namespace {

constexpr auto progressInterval = 50ms; ///< how often the waiting thread looks

QString fileName(const QUrl &url)
{
    return url.fileName(QUrl::FullyDecoded);
}

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
    const auto count = static_cast<std::size_t>(paths.size());
    std::vector<std::optional<OpenedAudioFile>> results(count);
    std::mutex mutex;
    std::condition_variable allDone;
    std::size_t next = 0;
    std::size_t end = count;
    std::size_t done = 0;

    const auto open = [&](std::size_t i) {
        try {
            results[i] = opener(paths.at(static_cast<qsizetype>(i)));
        } catch (const std::exception &) {
            results[i].reset(); // whatever is wrong with one file, the list is still built
        }
    };
    const auto work = [&] {
        std::unique_lock lock(mutex);
        while (next < end) {
            const std::size_t i = next++;
            lock.unlock();
            open(i);
            lock.lock();
            if (++done == count)
                allDone.notify_one();
        }
    };
    {
        std::vector<std::jthread> workers; // joined at the end of the block
        const std::size_t threads = std::min<std::size_t>(processorCount(), count);
        workers.reserve(threads);
        while (workers.size() < threads) {
            std::jthread worker = startThread(work);
            if (!worker.joinable())
                break; // as many as there are
            workers.push_back(std::move(worker));
        }
        std::unique_lock lock(mutex);
        while (done < count && !progress.isStopped()) {
            const auto soFar = static_cast<qsizetype>(done);
            lock.unlock();
            progress.advance(soFar);
            if (workers.empty())
                open(next++);
            lock.lock();
            if (workers.empty())
                ++done;
            else
                allDone.wait_for(lock, progressInterval, [&] { return done == count; });
        }
        end = next; // what was begun is finished, nothing else is begun
    }
    results.resize(done);
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
