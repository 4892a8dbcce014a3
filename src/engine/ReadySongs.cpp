#include "engine/ReadySongs.h"

#include "engine/AudioEngineControl.h"
#include "platform/foundation/Machine.h"

#include <algorithm>
#include <chrono>
#include <utility>

using namespace std::chrono_literals;

namespace lyrabox::engine {

namespace {

constexpr auto memoryInterval = 3s;

} // namespace

ReadySongs::ReadySongs(QObject *parent) : QObject(parent)
{
    m_memoryTimer.setInterval(memoryInterval);
    m_memoryTimer.setTimerType(Qt::VeryCoarseTimer);
    connect(&m_memoryTimer, &QTimer::timeout, this, &ReadySongs::dropIfTight);
    setReadySongs(this);
}

ReadySongs::~ReadySongs()
{
    setReadySongs(nullptr);
}

void ReadySongs::setWanted(const QList<QUrl> &songs, Work work)
{
    m_wanted = songs;
    m_work = work;
    dropUnwanted();
    if (work == Work::None)
        cancelRunning();
    beginNext();
}

void ReadySongs::pause()
{
    m_work = Work::None;
    cancelRunning();
}

void ReadySongs::dropUnwanted()
{
    std::erase_if(m_ready, [this](const auto &ready) { return !m_wanted.contains(ready.first); });
    std::erase_if(m_givenUp, [this](const QUrl &url) { return !m_wanted.contains(url); });
    if (m_running && !m_wanted.contains(m_running->url))
        cancelRunning();
    watchMemory();
}

void ReadySongs::beginNext()
{
    if (m_running || m_work != Work::Begin)
        return;
    const auto next = std::find_if(m_wanted.cbegin(), m_wanted.cend(), [this](const QUrl &url) {
        return !m_ready.contains(url) && !m_givenUp.contains(url);
    });
    if (next == m_wanted.cend())
        return;
    const QUrl url = *next;
    const SongPreparation order{.path = url.toLocalFile(),
                                .format = streamFormat(),
                                .makeReader = songReaderFactory(),
                                .availableMemory = availableMemoryProbe(),
                                .heldBytes = readyBytes(),
                                .count = m_count};
    const auto job =
        m_runner.run([order](const std::stop_token &stop) { return prepareSong(order, stop); },
                     [this, url](std::optional<PreparedSong> song) { end(url, std::move(song)); });
    if (job)
        m_running = Running{.url = url, .job = *job};
    else
        m_givenUp.insert(url); // There is no thread now. The load does without one.
}

void ReadySongs::cancelRunning()
{
    if (const auto running = std::exchange(m_running, std::nullopt))
        m_runner.cancel(running->job);
}

void ReadySongs::end(const QUrl &url, std::optional<PreparedSong> song)
{
    m_running.reset();
    if (song)
        m_ready.insert_or_assign(url, std::move(*song));
    else
        m_givenUp.insert(url);
    watchMemory();
    beginNext();
    Q_EMIT ended(url);
}

std::optional<PreparedSong> ReadySongs::take(const QUrl &url,
                                             const AudioStreamBasicDescription &format)
{
    pause();
    auto node = m_ready.extract(url);
    if (node.empty())
        return std::nullopt;
    watchMemory();
    PreparedSong &song = node.mapped();
    if (song.format != format || identityOf(url.toLocalFile()) != song.file)
        return std::nullopt;
    return std::move(song);
}

bool ReadySongs::drop()
{
    pause();
    if (m_ready.empty())
        return false;
    while (!m_ready.empty())
        giveUp(m_ready.begin()->first);
    watchMemory();
    giveBackFreedMemory();
    return true;
}

void ReadySongs::dropIfTight()
{
    const std::uint64_t available = availableMemoryProbe()();
    bool isDropped = false;
    for (auto url = m_wanted.crbegin(); url != m_wanted.crend(); ++url) {
        const std::uint64_t held = readyBytes();
        if (held <= available / preparedShareOfMemory + held / preparedShareOfMemory)
            break;
        if (m_ready.contains(*url)) {
            giveUp(*url);
            isDropped = true;
        }
    }
    if (!isDropped)
        return;
    watchMemory();
    giveBackFreedMemory();
}

/// Drops a song and does not try it again for now. Otherwise it would come and go.
void ReadySongs::giveUp(QUrl url)
{
    m_ready.erase(url);
    m_givenUp.insert(std::move(url));
}

std::uint64_t ReadySongs::readyBytes() const
{
    std::uint64_t bytes = 0;
    for (const auto &[url, song] : m_ready)
        bytes += song.bytes();
    return bytes;
}

std::uint64_t ReadySongs::releasableBytes() const
{
    return readyBytes() + m_count->bytes;
}

/// The program sleeps undisturbed while it holds nothing.
void ReadySongs::watchMemory()
{
    if (m_ready.empty())
        m_memoryTimer.stop();
    else if (!m_memoryTimer.isActive())
        m_memoryTimer.start();
}

} // namespace lyrabox::engine
