#include "practice/LoopRotation.h"

#include <algorithm>
#include <utility>

namespace lyrabox {

LoopRotation::LoopRotation(const std::vector<Loop> &loops, Turn turn, std::uint64_t seed,
                           double speedBefore, double songTempo)
    : m_turn(turn), m_random(seed), m_speedBefore(speedBefore)
{
    m_turn.amount = std::clamp(turn.amount, 1, Turn::maximum);
    for (const Loop &loop : loops) {
        SpeedTrainer trainer;
        if (m_trainers.contains(loop.id) || !trainer.start(loop.settings, speedBefore, songTempo))
            continue;
        m_trainers.emplace(loop.id, std::move(trainer));
        m_order.push_back(loop.id);
    }
    shuffle();
}

/// Begins a round. The standard library's own shuffle gives other orders on other systems.
void LoopRotation::shuffle()
{
    for (std::size_t last = m_order.size(); last > 1; --last)
        std::swap(m_order[last - 1], m_order[m_random() % last]);
    m_at = 0;
}

std::optional<PracticeId> LoopRotation::current() const
{
    return m_at < m_order.size() ? std::optional(m_order[m_at]) : std::nullopt;
}

LoopRotation::Order LoopRotation::changed(bool loopChanges) const
{
    return {.trainer = trainer().order(), .loopChanges = loopChanges, .hasEnded = false};
}

LoopRotation::Order LoopRotation::ended(TrainerEnd reason)
{
    Order last{.trainer = {}, .loopChanges = false, .hasEnded = true};
    if (current())
        last.trainer = m_trainers.at(m_order[m_at]).stop(reason);
    else if (reason != TrainerEnd::SongChanged)
        last.trainer.speed = m_speedBefore;
    m_order.clear();
    m_trainers.clear();
    m_former.reset();
    return last;
}

/// A ladder has ended with a stop.
LoopRotation::Order LoopRotation::endedBy(const TrainerOrder &order)
{
    Order last = ended(TrainerEnd::ByHand);
    last.trainer = order;
    return last;
}

void LoopRotation::goToNext()
{
    const PracticeId former = m_order[m_at];
    if (++m_at >= m_order.size()) {
        shuffle();
        if (m_order.size() > 1 && m_order.front() == former)
            std::swap(m_order.front(), m_order[1 + m_random() % (m_order.size() - 1)]);
    }
    m_passes = 0;
    m_former = former;
}

LoopRotation::Order LoopRotation::passEnded(double secondsInTurn)
{
    if (!current())
        return {};
    m_former.reset();
    Order result{.trainer = m_trainers.at(m_order[m_at]).passEnded()};
    if (result.trainer.command == TrainerOrder::Command::StopPlaying)
        return endedBy(result.trainer);
    ++m_passes;
    const bool isOver = m_turn.unit == Turn::Unit::Passes ? m_passes >= m_turn.amount
                                                          : secondsInTurn >= 60.0 * m_turn.amount;
    if (!isOver && result.trainer.command != TrainerOrder::Command::NextLoop)
        return result;
    if (m_order.size() == 1) { // it goes on with itself
        m_passes = 0;
        result.trainer.command = TrainerOrder::Command::None;
        return result;
    }
    goToNext();
    return changed(true);
}

LoopRotation::Order LoopRotation::give(PassVerdict verdict, double secondsIntoPass)
{
    if (!current())
        return {};
    const bool isForFormer = m_former && secondsIntoPass < SpeedTrainer::verdictSeconds;
    SpeedTrainer &judged = m_trainers.at(isForFormer ? *m_former : m_order[m_at]);
    TrainerOrder order = verdict == PassVerdict::Missed ? judged.missed(secondsIntoPass)
                                                        : judged.right(secondsIntoPass);
    if (order.command == TrainerOrder::Command::StopPlaying)
        return endedBy(order);
    if (isForFormer) {
        m_former.reset(); // a second verdict is meant for the present pass
        return changed(false);
    }
    if (std::exchange(order.command, TrainerOrder::Command::None) ==
            TrainerOrder::Command::NextLoop &&
        m_order.size() > 1) {
        goToNext();
        return changed(true);
    }
    return {.trainer = order};
}

LoopRotation::Order LoopRotation::speedSet(double percent)
{
    if (!current())
        return {};
    return {.trainer = m_trainers.at(m_order[m_at]).speedSet(percent)};
}

LoopRotation::Order LoopRotation::skip()
{
    if (!current())
        return {};
    if (m_order.size() == 1)
        return changed(false);
    goToNext();
    return changed(true);
}

LoopRotation::Order LoopRotation::remove(PracticeId id)
{
    const auto found = std::find(m_order.begin(), m_order.end(), id);
    if (!current() || found == m_order.end())
        return current() ? changed(false) : Order{};
    if (m_order.size() == 1) {
        m_order.clear();
        return ended(TrainerEnd::LoopCleared);
    }
    const bool wasCurrent = id == m_order[m_at];
    if (wasCurrent)
        goToNext();
    if (m_former == id)
        m_former.reset();
    const PracticeId stays = m_order[m_at];
    std::erase(m_order, id);
    m_at = static_cast<std::size_t>(std::find(m_order.begin(), m_order.end(), stays) -
                                    m_order.begin());
    m_trainers.erase(id);
    return changed(wasCurrent);
}

LoopRotation::Order LoopRotation::stop(TrainerEnd reason)
{
    return current() ? ended(reason) : Order{};
}

} // namespace lyrabox
