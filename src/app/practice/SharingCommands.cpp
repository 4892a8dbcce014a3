#include "app/practice/SharingCommands.h"

#include "app/practice/PracticeSharing.h"
#include "app/practice/SongPractice.h"

namespace lyrabox {

SharingCommands::SharingCommands(PracticeSharing *sharing, SongPractice *practice, QObject *parent)
    : CommandSet(parent), m_sharing(sharing)
{
    connect(&practice->store(), &PracticeStore::recordChanged, this, &CommandSet::changed);
}

bool SharingCommands::canPerform(PracticeCommand command, int) const
{
    switch (command) {
    case PracticeCommand::SharePractice:
        return m_sharing->canShare();
    case PracticeCommand::OpenPractice:
        return true;
    default:
        return false;
    }
}

void SharingCommands::perform(PracticeCommand command, int argument)
{
    if (!canPerform(command, argument))
        return;
    if (command == PracticeCommand::OpenPractice)
        Q_EMIT openWanted();
    else
        Q_EMIT shareWanted(argument == shareAsLabels);
}

} // namespace lyrabox
