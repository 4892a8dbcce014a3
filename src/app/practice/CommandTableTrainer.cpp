#include "app/practice/CommandTable.h"

namespace lyrabox {

using Entries = QList<PracticeCommandEntry>;
using commandTable::Text;

Entries commandTable::trainer()
{
    const QString submenu = Text::tr("Tr&ainer");
    return {
        {.command = PracticeCommand::Train,
         .text = Text::tr("&Train Loop"),
         .keys = {Qt::Key_R},
         .submenu = submenu,
         .isCheckable = true,
         .beginsGroup = true},
        {.command = PracticeCommand::Rotate,
         .text = Text::tr("&Rotate Loops"),
         .keys = {Qt::SHIFT | Qt::Key_R},
         .submenu = submenu,
         .isCheckable = true,
         .joinsPrevious = true},
        {.command = PracticeCommand::PassMissed,
         .text = Text::tr("Pass &Missed"),
         .keys = {Qt::Key_X},
         .submenu = submenu},
        {.command = PracticeCommand::PassRight,
         .text = Text::tr("Pass R&ight"),
         .keys = {Qt::Key_V},
         .submenu = submenu,
         .joinsPrevious = true},
    };
}

} // namespace lyrabox
