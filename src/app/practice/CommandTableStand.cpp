#include "app/practice/CommandTable.h"

namespace lyrabox {

QList<PracticeCommandEntry> commandTable::stand()
{
    // All letters of these words belong to other entries of the menu.
    const QString submenu = Text::tr("Show and Print (&Q)");
    return {
        {.command = PracticeCommand::StandView,
         .text = Text::tr("&Stand View"),
         .keys = {Qt::Key_F11},
         .submenu = submenu,
         .isCheckable = true},
    };
}

} // namespace lyrabox
