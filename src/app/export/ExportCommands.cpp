#include "app/export/ExportCommands.h"

#include "app/practice/SongPractice.h"
#include "platform/foundation/NotificationCenter.h"
#include "platform/foundation/Notifications.h"

namespace lyrabox {

ExportCommands::ExportCommands(const SongPractice *practice, QObject *parent)
    : CommandSet(parent), m_practice(practice)
{
    NotificationCenter::defaultCenter().addObserver(this, notification::currentTrackChanged,
                                                    [this] { Q_EMIT changed(); });
    connect(practice, &SongPractice::openChanged, this, &ExportCommands::changed);
}

bool ExportCommands::canPerform(PracticeCommand command, int) const
{
    return command == PracticeCommand::Export && m_practice->store().hasSong();
}

void ExportCommands::perform(PracticeCommand command, int)
{
    if (canPerform(command))
        Q_EMIT exportWanted();
}

} // namespace lyrabox
