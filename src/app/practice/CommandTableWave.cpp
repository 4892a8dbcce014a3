#include "app/practice/CommandTable.h"

namespace lyrabox {

using Entries = QList<PracticeCommandEntry>;
using commandTable::Text;

Entries commandTable::wave()
{
    const QString submenu = Text::tr("&Wave");
    return {
        {.command = PracticeCommand::ZoomIn,
         .text = Text::tr("Zoom &In"),
         .keys = {Qt::CTRL | Qt::Key_Plus, Qt::CTRL | Qt::Key_Equal},
         .submenu = submenu,
         .beginsGroup = true},
        {.command = PracticeCommand::ZoomOut,
         .text = Text::tr("Zoom &Out"),
         .keys = {Qt::CTRL | Qt::Key_Minus},
         .submenu = submenu,
         .joinsPrevious = true},
        {.command = PracticeCommand::ZoomToLoop,
         .text = Text::tr("Zoom to &Loop"),
         .keys = {Qt::Key_Z},
         .submenu = submenu},
        {.command = PracticeCommand::WholeSong,
         .text = Text::tr("&Whole Song"),
         .keys = {Qt::Key_W},
         .submenu = submenu,
         .joinsPrevious = true},
        {.command = PracticeCommand::Follow,
         .text = Text::tr("&Follow"),
         .keys = {Qt::CTRL | Qt::SHIFT | Qt::Key_F},
         .submenu = submenu,
         .isCheckable = true},
    };
}

} // namespace lyrabox
