#include "library/TrackImport.h"

#include "platform/audio/DecodingModule.h"
#include "platform/foundation/Files.h"
#include "platform/foundation/Machine.h"

#include <QFileInfo>

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <exception>
#include <mutex>
#include <thread>

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
    std::atomic<std::size_t> next = 0;
    std::mutex mutex;
    std::condition_variable advanced;
    std::size_t done = 0;

    const auto work = [&] {
        for (std::size_t i = next++; i < count; i = next++) {
            try {
                results[i] = opener(paths.at(static_cast<qsizetype>(i)));
            } catch (const std::exception &) {
                results[i].reset(); // whatever is wrong with one file, the list is still built
            }
            const std::lock_guard lock(mutex);
            if (++done == count)
                advanced.notify_one();
        }
    };
    const std::size_t threads = std::min<std::size_t>(processorCount(), count);
    std::vector<std::jthread> workers;
    workers.reserve(threads);
    for (std::size_t i = 0; i < threads; ++i)
        workers.emplace_back(work);

    std::unique_lock lock(mutex);
    while (done < count) {
        const auto soFar = static_cast<qsizetype>(done);
        lock.unlock();
        progress.advance(soFar);
        lock.lock();
        advanced.wait_for(lock, progressInterval, [&] { return done == count; });
    }
    return results; // the workers are joined first: they hold references to what is above
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
