#include "app/stand/StandSource.h"

#include "app/practice/LoopList.h"
#include "app/practice/LoopListModel.h"
#include "app/practice/LoopsPage.h"
#include "app/practice/Metronome.h"
#include "app/practice/PracticePane.h"
#include "app/practice/SongPractice.h"
#include "app/practice/TimeRuler.h"
#include "app/practice/TrainerRun.h"
#include "engine/ClicksAndLeadIns.h"
#include "engine/LB_AudioController.h"
#include "platform/foundation/MonotonicClock.h"
#include "practice/SongTime.h"

#include <QFileInfo>

namespace lyrabox {

namespace {

constexpr double jump = 0.12 * practiceRate; // The position is exact to 70 ms at worst.
constexpr double shownStep = 0.1;            // seconds

QString timeText(std::uint64_t frame)
{
    return timeRuler::text(static_cast<double>(frame) / static_cast<double>(practiceRate),
                           shownStep);
}

} // namespace

StandFacts StandSource::facts()
{
    StandFacts facts;
    const TrackRecordRef track = m_audio->currentTrack();
    facts.hasSong = track != nullptr && m_audio->decodedSong() != nullptr;
    if (!facts.hasSong)
        return facts;
    facts.title = track->title.value_or(QString()).simplified();
    if (facts.title.isEmpty())
        facts.title = QFileInfo(track->fileURL.toLocalFile()).completeBaseName();
    facts.speed = static_cast<double>(m_audio->playbackSpeedPct());
    facts.grid = m_practice->record().beats.grid;
    if (facts.grid.isEmpty())
        facts.grid = m_metronome->beats();
    if (m_metronome->countInIsOn())
        facts.countIn = m_metronome->countIn().length;
    addLoop(facts);
    addTrainer(facts);
    addPlace(facts);
    return facts;
}

void StandSource::addLoop(StandFacts &facts) const
{
    const std::optional<LoopRange> range = m_audio->loop();
    if (!range)
        return;
    if (const PracticeLoop *loop = m_practice->calledUpLoop()) {
        const LoopListModel *rows = m_pane->loops()->list()->rows();
        facts.loop = rows->index(rows->rowOf(loop->id), LoopListModel::Name)
                         .data(Qt::DisplayRole)
                         .toString();
        facts.loopColour = loop->colour;
        return;
    }
    facts.loop = QStringLiteral("%1–%2").arg(timeText(range->start), timeText(range->end));
}

/// The place never moves back by a little, so that no beat is shown twice.
void StandSource::addPlace(StandFacts &facts)
{
    const auto frame = static_cast<double>(m_audio->heardFrame());
    const auto now = static_cast<double>(monotonicTime().count());
    const std::optional<engine::HeardLeadIn> leadIn = engine::heardLeadIn();
    if (leadIn || !m_audio->isRunning())
        m_line.jumpTo(frame, now);
    else
        m_line.measured(frame, now, facts.speed / 100.0 * practiceRate / 1000.0, jump);
    facts.frame = static_cast<std::uint64_t>(m_line.position());
    if (!leadIn || !m_audio->isRunning())
        return;
    const bool rests = m_pane->trainer()->isRunning() &&
                       m_pane->trainer()->settings().between == BetweenPasses::Rest;
    facts.silence = rests ? StandFacts::Silence::Rest : StandFacts::Silence::CountIn;
    facts.silenceLeft = static_cast<double>(leadIn->frames - leadIn->done);
}

void StandSource::addTrainer(StandFacts &facts) const
{
    const TrainerRun *run = m_pane->trainer();
    if (!run->isRunning())
        return;
    facts.strip = run->strip();
    facts.ladder = run->ladder();
    facts.unit = run->unit();
    facts.nextSpeed = run->nextSpeed();
}

} // namespace lyrabox
