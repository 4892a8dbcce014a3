#include "app/practice/CommandTable.h"

namespace lyrabox {

QList<PracticeCommandEntry> commandTable::sharing()
{
    const QString submenu = Text::tr("E&xchange");
    return {
        {.command = PracticeCommand::SharePractice,
         .text = Text::tr("&Share Practice…"),
         .submenu = submenu,
         .isVariant = true},
        {.command = PracticeCommand::SharePractice,
         .text = Text::tr("Share as &Label Track…"),
         .argument = shareAsLabels,
         .submenu = submenu,
         .isVariant = true},
        {.command = PracticeCommand::OpenPractice,
         .text = Text::tr("&Open Practice…"),
         .submenu = submenu,
         .isVariant = true},
    };
}

} // namespace lyrabox
