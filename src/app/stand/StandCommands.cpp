#include "app/stand/StandCommands.h"

namespace lyrabox {

bool StandCommands::canPerform(PracticeCommand command, int) const
{
    return command == PracticeCommand::StandView;
}

void StandCommands::perform(PracticeCommand command, int)
{
    if (canPerform(command))
        Q_EMIT standViewWanted(!m_isShown);
}

bool StandCommands::isChecked(PracticeCommand command, int) const
{
    return command == PracticeCommand::StandView && m_isShown;
}

void StandCommands::setShown(bool shown)
{
    m_isShown = shown;
    Q_EMIT changed();
}

} // namespace lyrabox
