#include "app/practice/TrainerRun.h"

#include "app/practice/LoopEdits.h"
#include "app/practice/SongPractice.h"
#include "engine/ClicksAndLeadIns.h"
#include "engine/LB_AudioController.h"
#include "platform/foundation/NotificationCenter.h"
#include "platform/foundation/Notifications.h"
#include "practice/TrainerTempo.h"

#include <QScopedValueRollback>

namespace lyrabox {

namespace {

using Command = TrainerOrder::Command;
using namespace std::chrono_literals;

/// The speed changes so soon after a pass has ended.
constexpr auto period = 12ms;
/// A longer time between two looks was no practising: the computer slept.
constexpr qint64 longestLook = 2000; // ms

} // namespace

TrainerRun::TrainerRun(LB_AudioController *audio, SongPractice *practice, QObject *parent)
    : QObject(parent), m_audio(audio), m_practice(practice)
{
    m_timer.setInterval(period);
    m_timer.setTimerType(Qt::PreciseTimer);
    connect(&m_timer, &QTimer::timeout, this, &TrainerRun::poll);
    connect(audio, &LB_AudioController::speedOrPitchChanged, this, &TrainerRun::followSpeed);
    connect(audio, &LB_AudioController::loopChanged, this, &TrainerRun::followLoop);
    connect(audio, &LB_AudioController::soundProblemChanged, this, [this] {
        if (!m_audio->soundProblem().isEmpty())
            stop(TrainerEnd::DeviceLost);
    });
    connect(practice, &SongPractice::calledUpChanged, this, &TrainerRun::followCalledUp);
    connect(practice, &SongPractice::openChanged, this, [this] { stop(); });
    connect(practice, &SongPractice::selectionChanged, this, &TrainerRun::changed);
    connect(practice, &SongPractice::problemChanged, this, &TrainerRun::changed);
    connect(&practice->store(), &PracticeStore::recordChanged, this, &TrainerRun::followRecord);
    NotificationCenter &center = NotificationCenter::defaultCenter();
    center.addObserver(this, notification::currentTrackChanged, [this] { followSong(); });
    center.addObserver(this, notification::applicationWillTerminate,
                       [this] { stop(TrainerEnd::Quit); });
}

TrainerRun::~TrainerRun() = default;

/// The loop is called up, and the trainer is ready.
void TrainerRun::begin(PracticeId loop)
{
    m_loop = loop;
    m_track = m_audio->currentTrack();
    m_song = m_audio->decodedSong();
    m_turnSeconds = 0.0;
    m_practice->setSpeedHeld(true);
    playFirstPass();
    m_timer.start();
    m_sinceLastLook.start();
    Q_EMIT changed();
}

/// Plays the loop of the run from its start, or from what comes before it.
void TrainerRun::playFirstPass()
{
    m_range = m_audio->loop().value_or(LoopRange{.start = 0, .end = 0});
    m_firstLadder = trainer().ladder();
    const BeforePass before = trainer().beforeFirstPass();
    const TrainerOrder order = trainer().order();
    m_strip = order.strip;
    setSpeed(trainer().order().strip.speed);
    prepareNextPass(before);
    const QScopedValueRollback acting(m_isActing, true);
    const std::uint64_t runUp =
        before.kind == BetweenPasses::RunUp
            ? runUpFrames(m_practice->record().beats.grid, m_range.start, before.beats)
            : 0;
    m_audio->startAtFrame(m_range.start - runUp);
    m_counted = engine::passes().ended;
    if (!m_audio->isRunning()) {
        m_audio->playPauseButton()->setState(1);
        m_audio->playPauseButtonPressed(m_audio->playPauseButton());
    }
    prepareNextPass(order.next);
}

void TrainerRun::stop(TrainerEnd reason)
{
    if (isRunning())
        finish(m_rotation ? m_rotation->stop(reason).trainer : m_trainer.stop(reason), false);
}

/// The trainer has given its last order.
void TrainerRun::finish(const TrainerOrder &last, bool pauses)
{
    m_timer.stop();
    m_loop.reset();
    m_rotation.reset();
    m_strip = last.strip;
    m_practice->setSpeedHeld(false);
    engine::setRunUp(0);
    if (m_beforePass)
        m_beforePass(std::nullopt);
    if (pauses && m_audio->isRunning()) {
        m_audio->playPauseButton()->setState(0);
        m_audio->playPauseButtonPressed(m_audio->playPauseButton());
        m_practice->playFromStart();
    }
    if (last.speed)
        setSpeed(*last.speed);
    Q_EMIT changed();
}

void TrainerRun::setSpeed(double percent)
{
    const QScopedValueRollback acting(m_isActing, true);
    if (const auto speed = static_cast<float>(percent); m_audio->playbackSpeedPct() != speed)
        m_audio->setPlaybackSpeedPct(speed);
}

void TrainerRun::goTo(double percent)
{
    if (isRunning())
        m_audio->setPlaybackSpeedPct(m_audio->playbackSpeedRange().clamped(
            static_cast<float>(percent))); // followSpeed() hears of it
}

void TrainerRun::poll()
{
    if (!isRunning())
        return;
    if (!m_audio->soundProblem().isEmpty()) {
        stop(TrainerEnd::DeviceLost);
        return;
    }
    const qint64 elapsed = m_sinceLastLook.restart();
    if (m_audio->isRunning() && elapsed < longestLook)
        m_turnSeconds += static_cast<double>(elapsed) / 1000.0;
    const engine::PassCount count = engine::passes();
    // A pass after which the loop is left must be heard to its end.
    while (isRunning() && m_counted < count.ended &&
           m_counted < (endsAtNextPass() ? count.heard : count.ended)) {
        ++m_counted;
        passEnded();
    }
}

void TrainerRun::passEnded()
{
    if (m_rotation) {
        carryOut(m_rotation->passEnded(m_turnSeconds));
        return;
    }
    obey(m_trainer.passEnded());
}

/// Carries out an order of the only trainer.
void TrainerRun::obey(const TrainerOrder &order)
{
    switch (order.command) {
    case Command::StopPlaying:
        finish(order, true);
        break;
    case Command::NextLoop:
        carryOut(order);
        goOnWithNextLoop();
        break;
    case Command::None:
        carryOut(order);
        break;
    }
}

/// The next loop goes on as its own run. Behind the last one, the loop stays.
void TrainerRun::goOnWithNextLoop()
{
    const std::optional<PracticeId> next = nextLoop();
    const PracticeLoop *loop = next ? m_practice->record().loop(*next) : nullptr;
    if (loop == nullptr)
        return;
    const double tempo = tempoBetween(m_practice->record().beats.grid, loop->from, loop->to);
    // A run keeps the speed from before the one that it replaces.
    SpeedTrainer trainer = m_trainer;
    if (!trainer.start(loop->trainer.value_or(TrainerSettings{}), 0.0, tempo)) {
        stop();
        return;
    }
    m_trainer = std::move(trainer);
    goToLoop(*next);
}

std::optional<PracticeId> TrainerRun::nextLoop() const
{
    return loopEdits::neighbourLoop(m_practice->record(), m_loop, m_audio->currentFrame(),
                                    m_audio->totalFrames(), true);
}

/// Calls up another loop of the run. Ends the run if that is not possible.
bool TrainerRun::goToLoop(PracticeId loop)
{
    m_loop = loop;
    m_turnSeconds = 0.0;
    {
        const QScopedValueRollback acting(m_isActing, true);
        if (m_beforePass)
            m_beforePass(BeforePass{}); // What comes first is played by playFirstPass().
        if (!m_practice->play(loop)) {
            stop(TrainerEnd::LoopCleared);
            return false;
        }
    }
    playFirstPass();
    Q_EMIT changed();
    return true;
}

void TrainerRun::carryOut(const TrainerOrder &order)
{
    m_strip = order.strip;
    if (order.speed)
        setSpeed(*order.speed);
    prepareNextPass(order.next);
    Q_EMIT changed();
}

void TrainerRun::carryOut(const LoopRotation::Order &order)
{
    if (order.hasEnded)
        finish(order.trainer, order.trainer.command == Command::StopPlaying);
    else if (order.loopChanges)
        goToLoop(*m_rotation->current());
    else
        carryOut(order.trainer);
}

/// Whether the music stops, or goes on elsewhere, if the present pass ends as it is now.
bool TrainerRun::endsAtNextPass() const
{
    if (m_rotation) {
        const LoopRotation::Order next = LoopRotation(*m_rotation).passEnded(m_turnSeconds);
        return next.hasEnded || next.loopChanges;
    }
    const Command next = SpeedTrainer(m_trainer).passEnded().command;
    return next == Command::StopPlaying || (next == Command::NextLoop && nextLoop());
}

void TrainerRun::prepareNextPass(BeforePass next)
{
    engine::setRunUp(next.kind == BetweenPasses::RunUp
                         ? runUpFrames(m_practice->record().beats.grid, m_range.start, next.beats)
                         : 0);
    if (!m_beforePass)
        return;
    // Silence keeps the next pass from being heard before the loop is left.
    if (endsAtNextPass())
        m_beforePass(BeforePass{.kind = BetweenPasses::Rest, .beats = 1});
    else
        m_beforePass(next.kind == BetweenPasses::RunUp ? BeforePass{} : next);
}

void TrainerRun::judge(PassVerdict verdict)
{
    if (!isRunning())
        return;
    const double seconds = secondsIntoPass();
    Q_EMIT judged(verdict, knowsAllPasses() ? seconds : 0.0);
    if (m_rotation)
        carryOut(verdict == PassVerdict::Missed ? m_rotation->missed(seconds)
                                                : m_rotation->right(seconds));
    else
        obey(verdict == PassVerdict::Missed ? m_trainer.missed(seconds) : m_trainer.right(seconds));
}

/// How long the present pass has been heard. What comes before the loop does not count.
double TrainerRun::secondsIntoPass() const
{
    const engine::PassCount count = engine::passes();
    const double speed = m_audio->playbackSpeedPct() / 100.0;
    const double perSecond = m_audio->audioBufferFormat().mSampleRate * speed;
    if (!knowsAllPasses()) // For the trainer, the pass that has ended goes on.
        return static_cast<double>(m_range.end - m_range.start) / perSecond +
               SpeedTrainer::verdictSeconds;
    const quint64 heard = m_audio->heardFrame();
    if (count.heard < count.ended || heard <= m_range.start)
        return 0.0;
    return static_cast<double>(heard - m_range.start) / perSecond;
}

bool TrainerRun::knowsAllPasses() const
{
    return m_counted == engine::passes().ended;
}

bool TrainerRun::onlyRightCounts() const
{
    return isRunning() && trainer().settings().judging == PassJudging::OnlyRight;
}

std::vector<int> TrainerRun::ladder() const
{
    return isRunning() ? trainer().ladder() : std::vector<int>();
}

TempoUnit TrainerRun::unit() const
{
    return isRunning() ? trainer().settings().unit : TempoUnit::Percent;
}

std::optional<double> TrainerRun::nextSpeed() const
{
    return isRunning() ? lyrabox::nextSpeed(trainer()) : std::nullopt;
}

} // namespace lyrabox
