#include "app/practice/SongBeats.h"

#include "app/practice/BeatMarks.h"
#include "app/practice/FoundBeats.h"
#include "app/practice/PressedPlace.h"
#include "app/practice/SongPractice.h"
#include "engine/LB_AudioController.h"
#include "practice/SongTime.h"

#include <QScopedValueRollback>

#include <algorithm>
#include <cmath>
#include <utility>

namespace lyrabox {

namespace {

SongBeats::Remark remarkOf(TapFault fault)
{
    switch (fault) {
    case TapFault::TooFew:
        return SongBeats::Remark::TooFewPlaces;
    case TapFault::TooSlow:
        return SongBeats::Remark::TooSlow;
    case TapFault::TooFast:
        return SongBeats::Remark::TooFast;
    case TapFault::Uneven:
        break;
    }
    return SongBeats::Remark::Uneven;
}

} // namespace

SongBeats::SongBeats(LB_AudioController *audio, SongPractice *practice, SongPeaks *peaks,
                     QObject *parent)
    : QObject(parent), m_audio(audio), m_practice(practice), m_peaks(peaks)
{
    connect(peaks, &SongPeaks::songChanged, this, &SongBeats::forgetSong);
    connect(peaks, &SongPeaks::grown, this, &SongBeats::workOn);
    connect(peaks, &SongPeaks::wantedChanged, this, &SongBeats::followView);
    connect(&practice->store(), &PracticeStore::recordChanged, this, &SongBeats::followRecord);
    connect(practice, &SongPractice::problemChanged, this, &SongBeats::stateChanged);
    m_pause.setSingleShot(true);
    connect(&m_pause, &QTimer::timeout, this, &SongBeats::pauseEnded);
}

SongBeats::~SongBeats()
{
    stop();
}

const BeatGrid &SongBeats::grid() const
{
    return m_practice->record().beats.grid;
}

const BeatGrid &SongBeats::suggestion() const
{
    static const BeatGrid none;
    return grid().isEmpty() ? m_suggestion : none;
}

std::vector<LoopRange> SongBeats::lostParts() const
{
    return beatMarks::lostParts(grid(), m_heard.value_or(foundBeats::Heard()).sounding);
}

bool SongBeats::canChange() const
{
    return m_peaks->frames() > 0 && !m_practice->store().isReadOnly();
}

bool SongBeats::isListening() const
{
    return m_peaks->frames() > 0 && (m_job || !m_heard);
}

/// The song is shown again, or no longer.
void SongBeats::followView()
{
    if (m_peaks->isWanted())
        workOn();
    else
        stop();
}

/// There is another song, or none.
void SongBeats::forgetSong()
{
    stop();
    m_heard.reset();
    m_suggestion = BeatGrid();
    m_wasSuggested = false;
    m_nextBar = 4;
    m_typedTempo.reset();
    endSeries();
    m_remark = Remark::None;
    Q_EMIT changed();
    Q_EMIT stateChanged();
}

/// The next tap begins a new series.
void SongBeats::endSeries()
{
    m_taps.clear();
    m_before.reset();
    m_followsSeries = false;
}

/// Nobody taps any more. What was said of the taps is no longer shown.
void SongBeats::pauseEnded()
{
    if (m_job || m_followsSeries) {
        m_pause.start(); // They are still being followed.
        return;
    }
    endSeries();
    setRemark(Remark::None);
}

void SongBeats::setRemark(Remark remark)
{
    m_remark = remark;
    Q_EMIT stateChanged();
}

/// The record is another one, or has other content.
void SongBeats::followRecord()
{
    // After another step, or after an undo, later taps cannot join the step of the earlier ones.
    if (!m_isApplying && m_before)
        endSeries();
    if (grid() != m_seen) {
        m_seen = grid();
        Q_EMIT changed();
    }
    Q_EMIT stateChanged();
    workOn();
}

bool SongBeats::put(const BeatGrid &grid, PracticeStep step)
{
    const QScopedValueRollback applying(m_isApplying, true);
    const bool isPut = m_practice->store().apply({PutBeats{grid}}, step);
    setRemark(isPut ? Remark::None : Remark::Refused);
    return isPut;
}

/// Changes what is shown: the record's beats, or the suggestion.
void SongBeats::change(const BeatGrid &grid)
{
    endSeries();
    if (!this->grid().isEmpty()) {
        put(grid);
        return;
    }
    m_suggestion = grid;
    setRemark(Remark::None);
    Q_EMIT changed();
}

void SongBeats::tap()
{
    const double speed = static_cast<double>(m_audio->playbackSpeedPct()) / 100.0;
    m_pause.start(static_cast<int>(1000.0 * TapSeries::pause / speed));
    if (!m_audio->isRunning()) {
        setRemark(Remark::NotPlaying);
        return;
    }
    const PressedPlace place = pressedPlace(m_audio);
    tapAt(place.frame, static_cast<double>(place.time.count()));
}

void SongBeats::tapAt(std::uint64_t frame, double milliseconds)
{
    if (!canChange())
        return;
    const double speed = static_cast<double>(m_audio->playbackSpeedPct()) / 100.0;
    const double heard = (milliseconds - std::exchange(m_lastTap, milliseconds)) / 1000.0 * speed;
    if (heard > TapSeries::pause)
        endSeries();
    const bool wasOpen = m_taps.isOpen();
    m_taps.tap(frame, heard);
    m_remark = Remark::None;
    if (m_taps.isComplete() && wasOpen) {
        const auto fitted = m_taps.fit();
        if (const auto *fault = std::get_if<TapFault>(&fitted)) {
            m_remark = remarkOf(*fault);
        } else {
            m_followsSeries = true;
            workOn();
        }
    }
    Q_EMIT stateChanged();
}

void SongBeats::useSuggestion()
{
    if (suggestion().isEmpty())
        return;
    endSeries();
    put(m_suggestion);
}

void SongBeats::scale(BeatScale scale)
{
    const BeatGrid &shown = grid().isEmpty() ? m_suggestion : grid();
    change(scaledGrid(shown, scale));
}

void SongBeats::shift(int beats)
{
    const BeatGrid &shown = grid().isEmpty() ? m_suggestion : grid();
    change(shiftedGrid(shown, beats));
}

void SongBeats::setBeatsPerBar(int beats, std::optional<std::uint64_t> from)
{
    if (beats < BeatGrid::shortestBar || beats > BeatGrid::longestBar)
        return;
    if (!from || grid().isEmpty())
        m_nextBar = beats;
    const BeatGrid &shown = grid().isEmpty() ? m_suggestion : grid();
    change(gridWithBars(shown, from.value_or(0), beats));
}

int SongBeats::beatsPerBar(std::uint64_t frame) const
{
    if (grid().isEmpty())
        return m_nextBar;
    return beatMarks::beatsPerBarAt(grid(), frame);
}

void SongBeats::setTempo(double tempo)
{
    if (!canChange() || !(tempo >= TapLimits::slowest && tempo <= TapLimits::fastest))
        return;
    endSeries();
    m_typedTempo = tempo;
    workOn();
}

void SongBeats::clear()
{
    endSeries();
    if (!grid().isEmpty()) {
        put(BeatGrid());
        return;
    }
    m_suggestion = BeatGrid();
    setRemark(Remark::None);
    Q_EMIT changed();
}

void SongBeats::moveBeat(std::uint64_t frame, std::uint64_t target)
{
    if (grid().isEmpty())
        return;
    endSeries();
    put(gridWithBeatAt(grid(), frame, target));
}

void SongBeats::nudgeBeat(std::uint64_t frame, int milliseconds)
{
    if (grid().isEmpty())
        return;
    const double beats = std::round(grid().beatsAt(static_cast<double>(frame)));
    const double place = grid().frameOfBeats(beats);
    const double moved = place + milliseconds * static_cast<double>(practiceRate) / 1000.0;
    if (place >= 0.0 && moved >= 0.0 && moved <= static_cast<double>(m_peaks->frames()))
        moveBeat(static_cast<std::uint64_t>(std::llround(place)),
                 static_cast<std::uint64_t>(std::llround(moved)));
}

} // namespace lyrabox
