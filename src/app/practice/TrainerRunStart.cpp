// Which loop is trained and how, and the start of a run.

#include "app/practice/SongPractice.h"
#include "app/practice/TrainerRun.h"
#include "engine/LB_AudioController.h"
#include "practice/TrainerTempo.h"

#include <QRandomGenerator>

#include <utility>

namespace lyrabox {

std::optional<PracticeId> TrainerRun::target() const
{
    if (m_loop)
        return m_loop;
    if (m_practice->calledUp())
        return m_practice->calledUp();
    const std::optional<PracticeId> selected = m_practice->selection();
    const bool isLoop = selected && m_practice->record().loop(*selected) != nullptr;
    return isLoop && !m_audio->loop() ? selected : std::nullopt;
}

TrainerSettings TrainerRun::settings() const
{
    const std::optional<PracticeId> id = target();
    const PracticeLoop *loop = id ? m_practice->record().loop(*id) : nullptr;
    return loop != nullptr ? loop->trainer.value_or(TrainerSettings{}) : TrainerSettings{};
}

double TrainerRun::songTempo() const
{
    const PracticeRecord &record = m_practice->record();
    const std::optional<PracticeId> id = target();
    if (const PracticeLoop *loop = id ? record.loop(*id) : nullptr)
        return tempoBetween(record.beats.grid, loop->from, loop->to);
    const std::optional<LoopRange> range = m_audio->loop();
    return range ? tempoBetween(record.beats.grid, range->start, range->end) : 0.0;
}

bool TrainerRun::setSettings(const TrainerSettings &settings)
{
    if (!target() && !m_practice->keepLoop())
        return false;
    const std::optional<PracticeId> id = target();
    const PracticeLoop *kept = id ? m_practice->record().loop(*id) : nullptr;
    if (kept == nullptr)
        return false;
    PracticeLoop loop = *kept;
    loop.trainer = settings;
    return m_practice->store().apply({PutLoop{loop}});
}

bool TrainerRun::canStart() const
{
    if (settings().unit == TempoUnit::BeatsPerMinute && songTempo() <= 0.0)
        return false;
    const std::optional<PracticeId> id = target();
    const PracticeLoop *loop = id ? m_practice->record().loop(*id) : nullptr;
    return loop != nullptr ? m_practice->isPlayable(*loop) : m_practice->canKeepLoop();
}

bool TrainerRun::start()
{
    if (!canStart())
        return false;
    stop();
    if (!target())
        m_practice->keepLoop();
    const std::optional<PracticeId> id = target();
    if (!id || (m_practice->calledUp() != id && !m_practice->play(*id)))
        return false;
    if (!m_trainer.start(settings(), m_audio->playbackSpeedPct(), songTempo()))
        return false;
    begin(*id);
    return true;
}

bool TrainerRun::startRotation(const std::vector<PracticeId> &loops, LoopRotation::Turn turn)
{
    const PracticeRecord &record = m_practice->record();
    std::vector<LoopRotation::Loop> known;
    for (const PracticeId id : loops) {
        const PracticeLoop *loop = record.loop(id);
        if (loop != nullptr && m_practice->isPlayable(*loop))
            known.push_back({.id = id, .settings = loop->trainer.value_or(TrainerSettings{})});
    }
    // The song's tempo counts for all of its loops.
    const double tempo =
        known.empty() ? 0.0 : tempoBetween(record.beats.grid, 0, m_audio->totalFrames());
    stop();
    LoopRotation rotation(known, turn, QRandomGenerator::global()->generate64(),
                          m_audio->playbackSpeedPct(), tempo);
    if (!rotation.current())
        return false;
    const PracticeId first = *rotation.current();
    m_practice->setSpeedHeld(true); // The speed that is kept with a loop would be that of another.
    if (!m_practice->play(first)) {
        m_practice->setSpeedHeld(false);
        return false;
    }
    m_rotation = std::move(rotation);
    begin(first);
    return true;
}

} // namespace lyrabox
