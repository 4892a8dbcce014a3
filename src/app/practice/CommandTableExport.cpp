#include "app/practice/CommandTable.h"

namespace lyrabox {

QList<PracticeCommandEntry> commandTable::exports()
{
    return {
        {.command = PracticeCommand::Export,
         .text = Text::tr("&Export…"),
         .keys = {Qt::CTRL | Qt::Key_E}},
    };
}

} // namespace lyrabox
