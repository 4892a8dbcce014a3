#include "app/practice/LoopCommands.h"

#include "app/practice/LoopEdits.h"
#include "app/practice/PressedPlace.h"
#include "app/practice/SongPeaks.h"
#include "app/practice/SongPractice.h"
#include "engine/LB_AudioController.h"

#include <QScopedValueRollback>

#include <cmath>
#include <cstddef>
#include <cstdlib>

namespace lyrabox {

using loopHands::Grip;

LoopCommands::LoopCommands(LB_AudioController *audio, SongPractice *practice,
                           const SongPeaks *peaks, QObject *parent)
    : CommandSet(parent), m_audio(audio), m_practice(practice), m_peaks(peaks)
{
    const auto endRun = [this] {
        if (!m_isMoving)
            m_run.reset();
    };
    connect(&practice->store(), &PracticeStore::recordChanged, this, endRun);
    connect(practice, &SongPractice::calledUpChanged, this, endRun);
    connect(&practice->store(), &PracticeStore::recordChanged, this, &LoopCommands::changed);
    connect(practice, &SongPractice::calledUpChanged, this, &LoopCommands::changed);
    connect(practice, &SongPractice::selectionChanged, this, &LoopCommands::changed);
    connect(practice, &SongPractice::problemChanged, this, &LoopCommands::changed);
    connect(audio, &LB_AudioController::loopChanged, this, &LoopCommands::changed);
    connect(peaks, &SongPeaks::songChanged, this, &LoopCommands::changed);
}

bool LoopCommands::canPerform(PracticeCommand command, int argument) const
{
    const PracticeStore &store = m_practice->store();
    const PracticeRecord &record = m_practice->record();
    const PracticeLoop *calledUp = m_practice->calledUpLoop();
    switch (command) {
    case PracticeCommand::KeepLoop:
        return m_practice->canKeepLoop();
    case PracticeCommand::KeepSpeed:
        return calledUp != nullptr && !store.isReadOnly();
    case PracticeCommand::ForgetSpeed:
        return calledUp != nullptr && !store.isReadOnly() && (calledUp->speed || calledUp->pitch);
    case PracticeCommand::PlayLoop:
        return argument >= 1 && static_cast<std::size_t>(argument) <= record.loops.size() &&
               m_practice->isPlayable(record.loops[static_cast<std::size_t>(argument) - 1]);
    case PracticeCommand::NextLoop:
    case PracticeCommand::PreviousLoop:
        return !record.loops.empty();
    case PracticeCommand::AddMarker:
    case PracticeCommand::AddNamedMarker:
        return !store.isReadOnly() && record.markers.size() < PracticeLimits::markers;
    case PracticeCommand::NextMarker:
    case PracticeCommand::PreviousMarker:
        return !record.markers.empty();
    case PracticeCommand::MoveStart:
    case PracticeCommand::MoveEnd:
    case PracticeCommand::MoveLoop:
    case PracticeCommand::SecondHalf:
    case PracticeCommand::TwiceAsLong:
        return m_audio->loop().has_value();
    case PracticeCommand::Tidy:
        return m_audio->loop() && m_peaks->frames() > 0;
    case PracticeCommand::PlaySelected:
        return m_practice->selection() || m_audio->loop();
    case PracticeCommand::Rename:
    case PracticeCommand::Remove:
        return named() && !store.isReadOnly();
    case PracticeCommand::Undo:
        return store.canUndo();
    case PracticeCommand::Redo:
        return store.canRedo();
    default:
        return false;
    }
}

void LoopCommands::perform(PracticeCommand command, int argument)
{
    if (!canPerform(command, argument))
        return;
    switch (command) {
    case PracticeCommand::KeepLoop:
        m_practice->keepLoop();
        break;
    case PracticeCommand::KeepSpeed:
        keepSpeed(static_cast<int>(std::lround(m_audio->playbackSpeedPct())),
                  static_cast<int>(std::lround(m_audio->playbackPitch())));
        break;
    case PracticeCommand::ForgetSpeed:
        keepSpeed(std::nullopt, std::nullopt);
        break;
    case PracticeCommand::MoveStart:
    case PracticeCommand::MoveEnd:
    case PracticeCommand::MoveLoop:
        move(command, argument);
        break;
    case PracticeCommand::Tidy:
        changeLoop(Grip::Whole, loopEdits::tidied(*m_audio->loop(), m_peaks->samples(),
                                                  m_audio->playbackSpeedPct() / 100.0));
        break;
    case PracticeCommand::SecondHalf:
        changeLoop(Grip::Start, loopEdits::secondHalf(*m_audio->loop()));
        break;
    case PracticeCommand::TwiceAsLong:
        changeLoop(Grip::End, loopEdits::twiceAsLong(*m_audio->loop(), m_audio->totalFrames()));
        break;
    default:
        performOnList(command, argument);
    }
}

/// Carries out a command that goes to an entry of the list, or adds, names or removes one.
void LoopCommands::performOnList(PracticeCommand command, int argument)
{
    switch (command) {
    case PracticeCommand::PlayLoop:
        playLoop(m_practice->record().loops[static_cast<std::size_t>(argument) - 1].id);
        break;
    case PracticeCommand::NextLoop:
    case PracticeCommand::PreviousLoop:
        if (const auto loop = neighbourLoop(command == PracticeCommand::NextLoop))
            m_practice->play(*loop);
        break;
    case PracticeCommand::AddMarker:
        m_practice->addMarker(pressedPlace(m_audio).frame);
        break;
    case PracticeCommand::AddNamedMarker:
        if (const auto marker = m_practice->addMarker(pressedPlace(m_audio).frame))
            m_practice->askForName(*marker);
        break;
    case PracticeCommand::NextMarker:
    case PracticeCommand::PreviousMarker:
        if (const auto marker = neighbourMarker(command == PracticeCommand::NextMarker))
            m_practice->seekTo(*marker);
        break;
    case PracticeCommand::PlaySelected:
        playSelected();
        break;
    case PracticeCommand::Rename:
        m_practice->askForName(*named());
        break;
    case PracticeCommand::Remove:
        Q_EMIT removeWanted();
        break;
    case PracticeCommand::Undo:
        m_practice->store().undo();
        break;
    case PracticeCommand::Redo:
        m_practice->store().redo();
        break;
    default:
        break;
    }
}

/// Calls a loop up, or plays it from its start if that was done before.
void LoopCommands::playLoop(PracticeId loop)
{
    if (m_practice->calledUp() == loop && m_audio->isRunning())
        m_practice->playFromStart();
    else
        m_practice->play(loop);
}

std::optional<PracticeId> LoopCommands::neighbourLoop(bool isNext) const
{
    return loopEdits::neighbourLoop(m_practice->record(), m_practice->calledUp(),
                                    m_audio->currentFrame(), m_audio->totalFrames(), isNext);
}

std::optional<PracticeId> LoopCommands::neighbourMarker(bool isNext) const
{
    // Who presses the key twice wants to go back by two, though the music has gone on a little.
    constexpr double secondsBetweenPresses = 1.0;
    const double framesPerSecond =
        m_audio->audioBufferFormat().mSampleRate * m_audio->playbackSpeedPct() / 100.0;
    return loopEdits::neighbourMarker(
        m_practice->record(), m_audio->currentFrame(), m_audio->totalFrames(),
        static_cast<std::uint64_t>(secondsBetweenPresses * framesPerSecond), isNext);
}

/// Changes the player's loop, unless it would stay as it is.
void LoopCommands::changeLoop(Grip grip, LoopRange range, PracticeStep step)
{
    if (m_audio->loop() != range)
        m_practice->changeLoop(range, grip, step);
}

void LoopCommands::move(PracticeCommand command, int milliseconds)
{
    const Grip grip = command == PracticeCommand::MoveStart ? Grip::Start
                      : command == PracticeCommand::MoveEnd ? Grip::End
                                                            : Grip::Whole;
    const Run run{command, milliseconds};
    const PracticeStep step = m_run == run ? PracticeStep::JoinsLast : PracticeStep::New;
    {
        const QScopedValueRollback moving(m_isMoving, true);
        changeLoop(grip, moved(grip, milliseconds), step);
    }
    // Only an edit of a kept loop is a step that the next one can join.
    m_run = m_practice->calledUp() ? std::optional(run) : std::nullopt;
}

/// The loop as a key moves it: the longest way is a beat, where there are beats.
LoopRange LoopCommands::moved(Grip grip, int milliseconds) const
{
    const LoopRange loop = *m_audio->loop();
    const std::uint64_t songFrames = m_audio->totalFrames();
    const BeatGrid &grid = m_practice->record().beats.grid;
    if (std::abs(milliseconds) < longestMove || grid.isEmpty())
        return loopEdits::moved(loop, grip, milliseconds, songFrames);
    return loopEdits::movedByBeats(loop, grip, milliseconds < 0 ? -1 : 1, grid, songFrames);
}

void LoopCommands::keepSpeed(std::optional<int> speed, std::optional<int> pitch)
{
    PracticeLoop loop = *m_practice->calledUpLoop();
    loop.speed = speed;
    loop.pitch = pitch;
    m_practice->store().apply({PutLoop{loop}});
}

void LoopCommands::playSelected()
{
    const std::optional<PracticeId> entry = m_practice->selection();
    if (!entry)
        m_practice->playFromStart();
    else if (!m_practice->play(*entry))
        m_practice->seekTo(*entry);
}

/// The entry that a new name or a removal is meant for.
std::optional<PracticeId> LoopCommands::named() const
{
    return m_practice->selection() ? m_practice->selection() : m_practice->calledUp();
}

} // namespace lyrabox
