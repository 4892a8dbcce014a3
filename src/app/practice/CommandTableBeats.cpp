#include "app/practice/CommandTable.h"

namespace lyrabox {

using Entries = QList<PracticeCommandEntry>;
using commandTable::Text;

Entries commandTable::beats()
{
    const QString submenu = Text::tr("&Beats");
    constexpr int way = 10; // ms
    Entries entries{
        {.command = PracticeCommand::Tap,
         .text = Text::tr("&Tap Beat"),
         .keys = {Qt::Key_T},
         .submenu = submenu,
         .beginsGroup = true},
        {.command = PracticeCommand::UseSuggestion, .text = Text::tr("&Use Suggestion")},
        {.command = PracticeCommand::HalfTempo,
         .text = Text::tr("&Half the Tempo"),
         .beginsGroup = true},
        {.command = PracticeCommand::DoubleTempo, .text = Text::tr("T&wice the Tempo")},
        {.command = PracticeCommand::ThreeHalvesTempo,
         .text = Text::tr("Three Hal&ves of the Tempo")},
        {.command = PracticeCommand::ShiftBars,
         .text = Text::tr("Bars One Beat &Earlier"),
         .argument = -1,
         .beginsGroup = true},
        {.command = PracticeCommand::ShiftBars,
         .text = Text::tr("Bars One Beat &Later"),
         .argument = 1},
        {.command = PracticeCommand::MoveBeat,
         .text = Text::tr("Beat at the Line 10 ms E&arlier"),
         .argument = -way,
         .beginsGroup = true},
        {.command = PracticeCommand::MoveBeat,
         .text = Text::tr("Beat at the Line 10 ms Late&r"),
         .argument = way},
        {.command = PracticeCommand::ClearBeats,
         .text = Text::tr("&Clear Beats"),
         .beginsGroup = true},
    };
    for (PracticeCommandEntry &entry : entries) {
        entry.submenu = submenu;
        entry.isVariant = entry.keys.isEmpty();
    }
    return entries;
}

} // namespace lyrabox
