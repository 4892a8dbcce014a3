#include "app/practice/HistoryCommands.h"

namespace lyrabox {

bool HistoryCommands::canPerform(PracticeCommand command, int) const
{
    return command == PracticeCommand::ShowHistory;
}

void HistoryCommands::perform(PracticeCommand command, int)
{
    if (canPerform(command))
        Q_EMIT historyWanted();
}

} // namespace lyrabox
