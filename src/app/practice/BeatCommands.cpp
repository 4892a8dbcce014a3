#include "app/practice/BeatCommands.h"

#include "app/practice/SongBeats.h"
#include "app/practice/WaveView.h"
#include "practice/SongTime.h"

#include <algorithm>
#include <cmath>

namespace lyrabox {

BeatCommands::BeatCommands(SongBeats *beats, const WaveView *wave, QObject *parent)
    : CommandSet(parent), m_beats(beats), m_wave(wave)
{
    connect(beats, &SongBeats::changed, this, &BeatCommands::changed);
    connect(beats, &SongBeats::stateChanged, this, &BeatCommands::changed);
}

bool BeatCommands::canPerform(PracticeCommand command, int) const
{
    const bool hasBeats = !m_beats->grid().isEmpty();
    const bool hasSuggestion = !m_beats->suggestion().isEmpty();
    switch (command) {
    case PracticeCommand::Tap:
        return m_beats->canChange();
    case PracticeCommand::UseSuggestion:
        return m_beats->canChange() && hasSuggestion;
    case PracticeCommand::HalfTempo:
    case PracticeCommand::DoubleTempo:
    case PracticeCommand::ThreeHalvesTempo:
    case PracticeCommand::ClearBeats:
        return m_beats->canChange() && (hasBeats || hasSuggestion);
    case PracticeCommand::ShiftBars:
    case PracticeCommand::MoveBeat:
        return m_beats->canChange() && hasBeats;
    default:
        return false;
    }
}

void BeatCommands::perform(PracticeCommand command, int argument)
{
    if (!canPerform(command, argument))
        return;
    switch (command) {
    case PracticeCommand::Tap:
        m_beats->tap();
        break;
    case PracticeCommand::UseSuggestion:
        m_beats->useSuggestion();
        break;
    case PracticeCommand::HalfTempo:
        m_beats->scale(BeatScale::Half);
        break;
    case PracticeCommand::DoubleTempo:
        m_beats->scale(BeatScale::Double);
        break;
    case PracticeCommand::ThreeHalvesTempo:
        m_beats->scale(BeatScale::ThreeHalves);
        break;
    case PracticeCommand::ShiftBars:
        m_beats->shift(argument);
        break;
    case PracticeCommand::MoveBeat:
        m_beats->nudgeBeat(static_cast<std::uint64_t>(std::max(0.0, m_wave->line())), argument);
        break;
    case PracticeCommand::ClearBeats:
        m_beats->clear();
        break;
    default:
        break;
    }
}

} // namespace lyrabox
