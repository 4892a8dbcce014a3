#include "app/practice/SongPeaks.h"

#include <algorithm>
#include <chrono>
#include <new>
#include <utility>

namespace lyrabox {

namespace {

constexpr std::chrono::milliseconds signalInterval{40};

} // namespace

SongSamples samplesOf(const DecodedSong *song)
{
    if (song == nullptr || song->channels() == 0)
        return {};
    return {song->channel(0), song->channel(song->channels() > 1 ? 1 : 0), song->sampleRate()};
}

SongPeaks::SongPeaks(QObject *parent) : QObject(parent) {}

void SongPeaks::setSong(std::shared_ptr<const DecodedSong> song)
{
    if (song == m_song)
        return;
    stop();
    m_song = std::move(song);
    m_pyramid.reset();
    try {
        if (frames() > 0)
            m_pyramid = std::make_shared<PeakPyramid>(frames());
    } catch (const std::bad_alloc &) {
        // The pane shows the line and the loop without a wave.
    }
    Q_EMIT songChanged();
}

void SongPeaks::measure(std::uint64_t around)
{
    if (!std::exchange(m_isWanted, true))
        Q_EMIT wantedChanged();
    if (m_job || isComplete())
        return;
    const auto build = [this, song = m_song, pyramid = m_pyramid,
                        around](const std::stop_token &stop) {
        using Clock = std::chrono::steady_clock;
        Clock::time_point last = Clock::now() - signalInterval;
        pyramid->build(samplesOf(song.get()), around, stop, [&] {
            if (Clock::now() - last < signalInterval || stop.stop_requested())
                return;
            last = Clock::now();
            QMetaObject::invokeMethod(this, &SongPeaks::grown, Qt::QueuedConnection);
        });
    };
    m_job = m_runner.run(build, [this] {
        m_job.reset();
        Q_EMIT grown();
    });
}

void SongPeaks::stop()
{
    if (const auto job = std::exchange(m_job, std::nullopt))
        m_runner.cancel(*job);
    if (std::exchange(m_isWanted, false))
        Q_EMIT wantedChanged();
}

SongSamples SongPeaks::samples() const
{
    return samplesOf(m_song.get());
}

void SongPeaks::fillColumns(double from, double to, std::span<PeakColumn> columns) const
{
    if (m_pyramid)
        m_pyramid->fillColumns(samples(), from, to, columns);
    else
        std::ranges::fill(columns, PeakColumn());
}

} // namespace lyrabox
