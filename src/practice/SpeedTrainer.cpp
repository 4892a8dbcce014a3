#include "practice/SpeedTrainer.h"

#include "platform/audio/SoundRanges.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace lyrabox {

namespace {

constexpr int lowest = static_cast<int>(speedRange.minimum);
constexpr int highest = static_cast<int>(speedRange.maximum);

using Command = TrainerOrder::Command;
using News = TrainerStrip::News;

/// A number of the ladder's unit in whole percent.
int inPercent(int value, TempoUnit unit, double songTempo)
{
    const double percent = unit == TempoUnit::Percent ? value : 100.0 * value / songTempo;
    return static_cast<int>(std::lround(std::clamp<double>(percent, lowest, highest)));
}

void extend(std::vector<int> &rungs, int percent)
{
    if (rungs.empty() || percent > rungs.back())
        rungs.push_back(percent);
}

} // namespace

void clean(TrainerSettings &settings)
{
    const bool isPercent = settings.unit == TempoUnit::Percent;
    const int least = isPercent ? lowest : TrainerSettings::minimumTempo;
    const int most = isPercent ? highest : TrainerSettings::maximumTempo;
    settings.from = std::clamp(settings.from, least, most);
    settings.to = std::clamp(settings.to, least, most);
    if (settings.kind != LadderKind::Steady && settings.to < settings.from)
        std::swap(settings.from, settings.to);
    settings.step = std::clamp(settings.step, 1, TrainerSettings::maximumStep);
    settings.passes = std::clamp(settings.passes, 1, TrainerSettings::maximumPasses);
    settings.beats = std::clamp(settings.beats, 1, TrainerSettings::maximumBeats);
}

std::vector<int> ladderSpeeds(TrainerSettings settings, double songTempo)
{
    clean(settings);
    std::vector<int> rungs;
    const int end = settings.kind == LadderKind::Steady ? settings.from : settings.to;
    for (int value = settings.from; value < end; value += settings.step)
        extend(rungs, inPercent(value, settings.unit, songTempo));
    extend(rungs, inPercent(end, settings.unit, songTempo));
    return rungs;
}

bool SpeedTrainer::start(TrainerSettings settings, double speedBefore, double songTempo)
{
    clean(settings);
    const bool hasTempo = std::isfinite(songTempo) && songTempo > 0.0;
    if (settings.unit == TempoUnit::BeatsPerMinute && !hasTempo)
        return false;
    const double before = m_isRunning ? m_speedBefore : speedBefore;
    *this = {};
    m_settings = settings;
    m_speedBefore = before;
    m_songTempo = hasTempo ? songTempo : 0.0;
    m_now.rungs = ladderSpeeds(settings, m_songTempo);
    m_now.speed = m_now.rungs.front();
    m_isRunning = true;
    return true;
}

bool SpeedTrainer::stepUp(int steps)
{
    const double before = m_now.speed;
    for (; steps > 0; --steps) {
        const auto above = std::find_if(m_now.rungs.begin(), m_now.rungs.end(), [this](int rung) {
            return static_cast<double>(rung) > m_now.speed;
        });
        if (above != m_now.rungs.end())
            m_now.speed = *above;
    }
    return m_now.speed != before;
}

bool SpeedTrainer::stepDown(int steps)
{
    const double before = m_now.speed;
    for (; steps > 0; --steps) {
        const auto below = std::find_if(m_now.rungs.rbegin(), m_now.rungs.rend(), [this](int rung) {
            return static_cast<double>(rung) < m_now.speed;
        });
        if (below != m_now.rungs.rend())
            m_now.speed = *below;
    }
    return m_now.speed != before;
}

Command SpeedTrainer::judge(PassVerdict verdict)
{
    m_now.news = News::None;
    if (verdict == PassVerdict::Missed) {
        missPass();
        return Command::None;
    }
    if (verdict == PassVerdict::None && m_settings.judging == PassJudging::OnlyRight)
        return Command::None;
    return countPass();
}

void SpeedTrainer::missPass()
{
    const double before = m_now.speed;
    switch (m_settings.afterMiss) {
    case AfterMiss::Stay:
        break;
    case AfterMiss::OneDown:
        stepDown(1);
        break;
    case AfterMiss::TwoDown:
        stepDown(2);
        break;
    case AfterMiss::ToStart:
        m_now.speed = m_now.rungs.front();
        m_now.goesUp = true;
        break;
    }
    const bool hasMoved = m_now.speed != before;
    if (m_settings.kind == LadderKind::TwoUpOneDown)
        m_now.goesUp = true;
    if (hasMoved || m_settings.counting == PassCounting::InARow)
        m_now.passes = 0;
    m_now.news = hasMoved ? News::Down : News::Missed;
}

Command SpeedTrainer::countPass()
{
    if (++m_now.passes < m_settings.passes)
        return Command::None;
    m_now.passes = 0;
    return goOn();
}

/// The speed was played as often as needed.
Command SpeedTrainer::goOn()
{
    const bool isSteady = m_settings.kind == LadderKind::Steady;
    const bool turns = m_settings.kind == LadderKind::TwoUpOneDown;
    if (!isSteady && m_now.goesUp && stepUp(turns ? 2 : 1)) {
        m_now.goesUp = !turns;
        m_now.news = News::Up;
        return Command::None;
    }
    const bool wasAtTop = m_now.speed >= m_now.rungs.back();
    // The way down: after two steps up that did not end at the top, or back from it.
    const bool goesDown =
        (turns && !m_now.goesUp && !wasAtTop) || m_settings.kind == LadderKind::UpAndBack;
    if (goesDown && stepDown(1)) {
        m_now.goesUp = turns;
        m_now.news = News::Down;
        return Command::None;
    }
    return arriveAtTop();
}

Command SpeedTrainer::arriveAtTop()
{
    m_now.news = News::AtTop;
    switch (m_settings.atTop) {
    case AtTop::GoOn:
        break;
    case AtTop::Stop:
        return Command::StopPlaying;
    case AtTop::NextLoop:
        return Command::NextLoop;
    case AtTop::Again:
        m_now.speed = m_now.rungs.front();
        m_now.goesUp = true;
        break;
    case AtTop::TenMore:
        if (growByTen()) {
            m_now.goesUp = true;
            stepUp(1);
            m_now.news = News::Up;
        }
        break;
    }
    return Command::None;
}

/// Makes the ladder ten percent points higher. False if it ends at the highest speed.
bool SpeedTrainer::growByTen()
{
    const int old = m_now.rungs.back();
    const int top = std::min(old + 10, highest);
    if (top == old)
        return false;
    if (m_settings.kind == LadderKind::Steady) {
        m_now.rungs = {top};
        return true;
    }
    for (int rung = old + stepInPercent(); rung < top; rung += stepInPercent())
        extend(m_now.rungs, rung);
    extend(m_now.rungs, top);
    return true;
}

int SpeedTrainer::stepInPercent() const
{
    if (m_settings.unit == TempoUnit::Percent)
        return m_settings.step;
    return std::max(1, static_cast<int>(std::lround(100.0 * m_settings.step / m_songTempo)));
}

TrainerOrder SpeedTrainer::passEnded()
{
    if (!m_isRunning)
        return {};
    m_beforeLast = m_now;
    m_lastPass = std::exchange(m_thisPass, PassVerdict::None);
    m_canJudgeLast = true;
    return carriedOut(judge(m_lastPass));
}

/// Whether a verdict is meant for the pass before. A second one of the same kind is not.
bool SpeedTrainer::isAboutTheLast(double secondsIntoPass, PassVerdict verdict) const
{
    return m_canJudgeLast && secondsIntoPass < verdictSeconds && m_lastPass != verdict;
}

TrainerOrder SpeedTrainer::give(PassVerdict verdict, double secondsIntoPass)
{
    if (!m_isRunning)
        return {};
    if (!isAboutTheLast(secondsIntoPass, verdict)) {
        m_thisPass = verdict;
        return order();
    }
    const bool countsAlready = verdict == PassVerdict::Right && m_lastPass == PassVerdict::None &&
                               m_settings.judging == PassJudging::UnlessMissed;
    m_lastPass = verdict;
    if (countsAlready)
        return order();
    m_now = m_beforeLast;
    return carriedOut(judge(verdict));
}

TrainerOrder SpeedTrainer::missed(double secondsIntoPass)
{
    return give(PassVerdict::Missed, secondsIntoPass);
}

TrainerOrder SpeedTrainer::right(double secondsIntoPass)
{
    return give(PassVerdict::Right, secondsIntoPass);
}

TrainerOrder SpeedTrainer::speedSet(double percent)
{
    if (!m_isRunning)
        return {};
    if (!std::isfinite(percent))
        return order();
    const double speed = std::clamp<double>(percent, lowest, highest);
    if (speed == m_now.speed)
        return order();
    m_now.speed = speed;
    m_now.passes = 0;
    m_now.news = News::None;
    m_canJudgeLast = false; // or a late verdict would undo the player's own speed
    return order();
}

TrainerOrder SpeedTrainer::stop(TrainerEnd reason)
{
    if (!m_isRunning)
        return {};
    return end(reason == TrainerEnd::SongChanged ? std::nullopt : std::optional(m_speedBefore),
               Command::None);
}

TrainerOrder SpeedTrainer::end(std::optional<double> speed, Command command)
{
    m_isRunning = false;
    m_canJudgeLast = false;
    m_thisPass = PassVerdict::None;
    TrainerOrder last = order();
    last.speed = speed;
    last.command = command;
    last.strip.speed = speed.value_or(m_now.speed);
    return last;
}

TrainerOrder SpeedTrainer::carriedOut(Command command)
{
    if (command == Command::StopPlaying)
        return end(m_speedBefore, command);
    if (command == Command::NextLoop)
        m_canJudgeLast = false;
    TrainerOrder result = order();
    result.command = command;
    return result;
}

BeforePass SpeedTrainer::beforeFirstPass() const
{
    const bool isCounted = m_settings.between == BetweenPasses::CountIn &&
                           m_settings.countInWhen != CountInWhen::Never;
    if (!m_isRunning || !(isCounted || m_settings.between == BetweenPasses::RunUp))
        return {};
    return {.kind = m_settings.between, .beats = m_settings.beats};
}

/// What comes before the next pass if nothing more is said of the present one.
BeforePass SpeedTrainer::beforeNextPass() const
{
    SpeedTrainer next = *this;
    const Command command = next.judge(m_thisPass);
    if (command == Command::StopPlaying || m_settings.between == BetweenPasses::Nothing)
        return {};
    if (m_settings.between == BetweenPasses::CountIn) {
        const bool isNew = next.m_now.speed != m_now.speed || command == Command::NextLoop;
        const bool isCounted = m_settings.countInWhen == CountInWhen::EveryPass ||
                               (m_settings.countInWhen == CountInWhen::AtNewSpeed && isNew);
        if (!isCounted)
            return {};
    }
    return {.kind = m_settings.between, .beats = m_settings.beats};
}

TrainerOrder SpeedTrainer::order() const
{
    TrainerOrder result;
    if (m_now.rungs.empty())
        return result; // there was no run yet
    TrainerStrip &strip = result.strip;
    strip.isRunning = m_isRunning;
    strip.speed = m_now.speed;
    if (m_songTempo > 0.0)
        strip.tempo = m_songTempo * m_now.speed / 100.0;
    strip.passesDone = m_now.passes;
    strip.passesNeeded = m_settings.passes;
    strip.rung =
        static_cast<int>(std::count_if(m_now.rungs.begin(), m_now.rungs.end(), [this](int rung) {
            return static_cast<double>(rung) <= m_now.speed;
        }));
    strip.rungs = static_cast<int>(m_now.rungs.size());
    strip.news = m_now.news;
    strip.thisPass = m_thisPass;
    if (m_isRunning) {
        result.speed = m_now.speed;
        result.next = beforeNextPass();
    }
    return result;
}

} // namespace lyrabox
