#pragma once

#include "engine/DecodedSong.h"
#include "platform/analysis/PeakPyramid.h"
#include "platform/foundation/BackgroundRunner.h"

#include <QObject>

#include <cstdint>
#include <memory>
#include <optional>
#include <span>

namespace lyrabox {

/// The samples of a song; a mono song has the same on both sides. No frames if it is null.
SongSamples samplesOf(const DecodedSong *song);

/// The peaks of the song that the pane shows. A background thread of low priority measures them.
/// Main thread.
class SongPeaks : public QObject {
    Q_OBJECT

public:
    explicit SongPeaks(QObject *parent = nullptr);

    /// Shows another song; null for none. What was being measured is cancelled, without a wait.
    /// Nothing is measured before measure().
    void setSong(std::shared_ptr<const DecodedSong> song);
    const std::shared_ptr<const DecodedSong> &song() const { return m_song; }

    /// Measures what is missing, first around the frame `around`.
    void measure(std::uint64_t around);
    /// Stops measuring, without a wait. What was measured stays.
    void stop();
    /// Whether the song is shown: measure() was called, and stop() was not called since.
    bool isWanted() const { return m_isWanted; }

    /// Runs other analyses of the song, one job at a time, after the peaks. Give it no job while
    /// the song is not shown.
    BackgroundRunner &runner() { return m_runner; }

    /// The samples of the song; no frames without one.
    SongSamples samples() const;
    /// Frames of the song; 0 without one.
    std::uint64_t frames() const { return samples().frames(); }

    /// Fills `columns` as PeakPyramid::fillColumns() does. Without a song none is known.
    void fillColumns(double from, double to, std::span<PeakColumn> columns) const;
    /// See PeakPyramid::loudRms().
    float loudRms() const { return m_pyramid ? m_pyramid->loudRms() : 0.0F; }
    /// Whether nothing is left to measure.
    bool isComplete() const { return !m_pyramid || m_pyramid->isComplete(); }

Q_SIGNALS:
    /// There is another song, or none.
    void songChanged();
    void wantedChanged();
    /// More of the song was measured. At most 25 times a second, and once at the end.
    void grown();

private:
    std::shared_ptr<const DecodedSong> m_song;
    std::shared_ptr<PeakPyramid> m_pyramid; ///< null without a song, or without memory for it
    bool m_isWanted = false;
    std::optional<BackgroundRunner::Job> m_job;
    BackgroundRunner m_runner; ///< last, because its jobs send signals of this object
};

} // namespace lyrabox
