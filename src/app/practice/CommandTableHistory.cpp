#include "app/practice/CommandTable.h"

namespace lyrabox {

QList<PracticeCommandEntry> commandTable::history()
{
    return {
        {.command = PracticeCommand::ShowHistory,
         .text = Text::tr("Histor&y…"),
         .keys = {Qt::CTRL | Qt::Key_H},
         .beginsGroup = true},
    };
}

} // namespace lyrabox
