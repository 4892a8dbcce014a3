#include "app/practice/CommandTable.h"

namespace lyrabox {

using Entries = QList<PracticeCommandEntry>;
using commandTable::Text;

Entries commandTable::click()
{
    const QString submenu = Text::tr("&Click and Count-in");
    return {
        {.command = PracticeCommand::Click,
         .text = Text::tr("&Click"),
         .keys = {Qt::Key_C},
         .submenu = submenu,
         .isCheckable = true,
         .beginsGroup = true},
        {.command = PracticeCommand::CountIn,
         .text = Text::tr("Count-&in"),
         .keys = {Qt::SHIFT | Qt::Key_C},
         .submenu = submenu,
         .isCheckable = true,
         .joinsPrevious = true},
        {.command = PracticeCommand::ClickSettings,
         .text = Text::tr("Click &Settings…"),
         .keys = {},
         .submenu = submenu,
         .isVariant = true},
        {.command = PracticeCommand::CountInSettings,
         .text = Text::tr("Count-in S&ettings…"),
         .keys = {},
         .submenu = submenu,
         .isVariant = true},
    };
}

} // namespace lyrabox
