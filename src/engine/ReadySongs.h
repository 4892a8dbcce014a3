#pragma once

#include "engine/SongPreparation.h"
#include "platform/foundation/BackgroundRunner.h"

#include <QList>
#include <QObject>
#include <QTimer>
#include <QUrl>

#include <map>
#include <optional>
#include <set>

namespace lyrabox::engine {

/// Decodes songs in advance, one after another, on a thread of low priority, and keeps them until
/// the engine loads them. What is loaded then is the same as without this class; only the waiting
/// is shorter. If a song cannot be decoded completely and without a fault, nothing is kept, and the
/// load meets the fault.
///
/// All songs together take at most a quarter of the memory that is available, and none is longer
/// than an hour. If memory gets tight, they are dropped.
///
/// Main thread only. While the object lives, loadAudioFile() uses it. No call waits for a disk,
/// except take(), and none waits for a decoding. The destructor waits a quarter of a second at
/// most.
class ReadySongs : public QObject {
    Q_OBJECT

public:
    explicit ReadySongs(QObject *parent = nullptr);
    ~ReadySongs() override;

    /// Which decodings may run.
    enum class Work {
        None,   ///< none; songs that are ready stay ready
        Finish, ///< the one that runs may end, but no other one begins
        Begin,  ///< all
    };

    /// Sets the songs to make ready, the most urgent first; URLs of local files. Other songs are
    /// dropped, and their decoding is cancelled. A song that was given up is tried again only after
    /// it was not wanted.
    void setWanted(const QList<QUrl> &songs, Work work);

    /// Cancels the decoding that runs, within milliseconds. Nothing is decoded until the next call
    /// of setWanted(). Call it before work that needs the processors or the disk.
    void pause();

    /// The song if it is ready, its file is unchanged and its format is `format`. Hands it over: it
    /// is not ready any more. In any case pauses, so that the caller has the processors and the
    /// disk. Waits for the disk as long as files::askPatiently().
    std::optional<PreparedSong> take(const QUrl &url, const AudioStreamBasicDescription &format);

    /// Drops every song, and pauses. Returns whether a song was dropped.
    bool drop();

    /// Drops songs, the least urgent first, until all of them fit into their share of the memory.
    /// While songs are ready, a timer calls it every few seconds.
    void dropIfTight();

    bool isReady(const QUrl &url) const { return m_ready.contains(url); }
    bool isDecoding() const { return m_running.has_value(); }

    /// The memory of the songs that are ready.
    std::uint64_t readyBytes() const;

    /// The memory that drop() frees at once or soon.
    std::uint64_t releasableBytes() const;

Q_SIGNALS:
    /// A decoding has ended: the song is ready, or it was given up.
    void ended(const QUrl &url);

private:
    struct Running {
        QUrl url;
        BackgroundRunner::Job job;
    };

    void beginNext();
    void cancelRunning();
    void end(const QUrl &url, std::optional<PreparedSong> song);
    void giveUp(QUrl url);
    void dropUnwanted();
    void watchMemory();

    QList<QUrl> m_wanted;
    std::map<QUrl, PreparedSong> m_ready;
    std::set<QUrl> m_givenUp; ///< of the wanted ones
    std::optional<Running> m_running;
    Work m_work = Work::None;
    QTimer m_memoryTimer;
    std::shared_ptr<PreparationCount> m_count = std::make_shared<PreparationCount>();
    BackgroundRunner m_runner; ///< last, because its results use the members above
};

} // namespace lyrabox::engine
