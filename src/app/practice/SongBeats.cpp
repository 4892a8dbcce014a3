#include "app/practice/SongBeats.h"

#include "app/practice/BeatMarks.h"
#include "app/practice/FoundBeats.h"
#include "app/practice/SongPractice.h"
#include "engine/LB_AudioController.h"
#include "platform/foundation/MonotonicClock.h"
#include "practice/SongTime.h"

#include <QScopedValueRollback>

#include <algorithm>
#include <cmath>
#include <utility>

namespace lyrabox {

namespace {

/// A tempo that was typed is meant to be exact to this share.
constexpr double tempoTolerance = 0.08;

double meanTempo(const BeatGrid &grid)
{
    const auto first = static_cast<double>(grid.anchors().front().frame);
    const auto last = static_cast<double>(grid.anchors().back().frame);
    return 60.0 * static_cast<double>(practiceRate) * grid.beatsAt(last) / (last - first);
}

bool isNear(double tempo, double wanted)
{
    return std::abs(tempo - wanted) <= tempoTolerance * wanted;
}

/// `found` with bars that begin where those of `grid` do, if it has a beat there.
BeatGrid alignedGrid(const BeatGrid &found, const BeatGrid &grid)
{
    const double bar = grid.frameOf({.bar = 1, .beat = 1.0});
    const int length = grid.anchors().front().beatsPerBar;
    const BeatGrid barred = gridWithBars(found, 0, length);
    const auto beats = std::llround(barred.beatsAt(bar));
    const BarPlace place = barred.placeAt(barred.frameOfBeats(static_cast<double>(beats)) + 1.0);
    return shiftedGrid(barred, static_cast<int>(place.beat) - 1);
}

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

double SongBeats::suggestedTempo() const
{
    return meanTempo(m_suggestion);
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
    tapAt(m_audio->heardFrame(), static_cast<double>(monotonicTime().count()));
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

void SongBeats::stop()
{
    if (const auto job = std::exchange(m_job, std::nullopt))
        m_peaks->runner().cancel(*job);
}

/// Does what is next to be done. The onsets come first, since all else needs them.
void SongBeats::workOn()
{
    if (m_job || m_peaks->frames() == 0 || !m_peaks->isComplete() || !m_peaks->isWanted())
        return;
    if (!m_heard)
        listen();
    else if (std::exchange(m_followsSeries, false))
        followSeries();
    else if (const auto tempo = std::exchange(m_typedTempo, std::nullopt))
        suggest(tempo);
    else if (!m_wasSuggested && grid().isEmpty())
        suggest(std::nullopt);
}

/// Gives the runner work on the song, whose result `take` gets.
template <typename Work, typename Take>
void SongBeats::run(Work work, Take take)
{
    m_job = m_peaks->runner().run(
        [song = m_peaks->song(), work](const std::stop_token &stop) {
            return work(samplesOf(song.get()), stop);
        },
        [this, take](auto result) {
            m_job.reset();
            take(std::move(result));
            Q_EMIT stateChanged();
            workOn();
        });
    Q_EMIT stateChanged();
}

void SongBeats::listen()
{
    run(foundBeats::heardIn, [this](foundBeats::Heard heard) {
        m_heard = std::move(heard);
        Q_EMIT changed(); // the lost parts
    });
}

/// Follows the beats from the taps. Until the result is there, more of them may come.
void SongBeats::followSeries()
{
    const auto fitted = m_taps.fit();
    const auto *taps = std::get_if<TappedBeats>(&fitted);
    if (taps == nullptr)
        return;
    if (!m_before)
        m_before = grid();
    const int bar =
        m_before->isEmpty() ? m_nextBar : beatMarks::beatsPerBarAt(*m_before, m_taps.first());
    run(
        [onsets = m_heard->onsets, taps = *taps, bar](const SongSamples &song,
                                                      const std::stop_token &stop) {
            return foundBeats::ofTaps(song, *onsets, taps, bar, stop);
        },
        [this](const BeatGrid &found) { takeTapped(found); });
}

/// Puts the beats that were found from the taps into the record. Beats around the taps give way to
/// them; beats behind a place where they were lost stay.
void SongBeats::takeTapped(const BeatGrid &found)
{
    if (!m_before || found.isEmpty())
        return;
    const bool isFirst = grid() == *m_before;
    const BeatGrid kept = gridWithoutBeatsAround(*m_before, m_taps.first());
    put(joinedGrid(kept, found), isFirst ? PracticeStep::New : PracticeStep::JoinsLast);
}

void SongBeats::suggest(std::optional<double> tempo)
{
    run(
        [onsets = m_heard->onsets, tempo, bar = m_nextBar](const SongSamples &song,
                                                           const std::stop_token &stop) {
            return foundBeats::guessed(song, *onsets, tempo, bar, stop);
        },
        [this, tempo](const BeatGrid &found) { takeGuess(found, tempo); });
}

void SongBeats::takeGuess(const BeatGrid &found, std::optional<double> tempo)
{
    m_wasSuggested = true;
    const bool isMeant = !tempo || (!found.isEmpty() && isNear(meanTempo(found), *tempo));
    if (!isMeant) {
        m_remark = Remark::NoSuchTempo;
        return;
    }
    m_remark = Remark::None;
    if (!tempo || grid().isEmpty()) {
        m_suggestion = found;
        Q_EMIT changed();
        return;
    }
    put(alignedGrid(found, grid()));
}

} // namespace lyrabox
