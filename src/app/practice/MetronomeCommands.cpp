#include "app/practice/MetronomeCommands.h"

#include "app/practice/Metronome.h"

namespace lyrabox {

MetronomeCommands::MetronomeCommands(Metronome *metronome, QObject *parent)
    : CommandSet(parent), m_metronome(metronome)
{
    connect(metronome, &Metronome::changed, this, &MetronomeCommands::changed);
}

bool MetronomeCommands::canPerform(PracticeCommand command, int) const
{
    switch (command) {
    case PracticeCommand::Click:
    case PracticeCommand::CountIn:
    case PracticeCommand::ClickSettings:
    case PracticeCommand::CountInSettings:
        return true;
    default:
        return false;
    }
}

void MetronomeCommands::perform(PracticeCommand command, int)
{
    switch (command) {
    case PracticeCommand::Click:
        m_metronome->setClickOn(!m_metronome->clickIsOn());
        break;
    case PracticeCommand::CountIn:
        m_metronome->setCountInOn(!m_metronome->countInIsOn());
        break;
    case PracticeCommand::ClickSettings:
        Q_EMIT clickSettingsWanted();
        break;
    case PracticeCommand::CountInSettings:
        Q_EMIT countInSettingsWanted();
        break;
    default:
        break;
    }
}

bool MetronomeCommands::isChecked(PracticeCommand command, int) const
{
    return (command == PracticeCommand::Click && m_metronome->clickIsOn()) ||
           (command == PracticeCommand::CountIn && m_metronome->countInIsOn());
}

} // namespace lyrabox
