// The analysis of a song for its beats, and what becomes of its results.

#include "app/practice/BeatMarks.h"
#include "app/practice/FoundBeats.h"
#include "app/practice/SongBeats.h"
#include "app/practice/SongPractice.h"
#include "practice/SongTime.h"

#include <cmath>
#include <cstdlib>
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

} // namespace

double SongBeats::suggestedTempo() const
{
    return meanTempo(m_suggestion);
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
