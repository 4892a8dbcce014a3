#include "app/practice/CommandTable.h"

namespace lyrabox {

QList<PracticeCommandEntry> commandTable::stand()
{
    return {
        {.command = PracticeCommand::StandView,
         // All letters of these words belong to other entries of the menu.
         .text = Text::tr("Stand View (&Q)"),
         .keys = {Qt::Key_F11},
         .isCheckable = true},
    };
}

} // namespace lyrabox
