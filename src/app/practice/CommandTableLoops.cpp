#include "app/practice/CommandTable.h"

#include "platform/ui/MenuText.h"

#include <cstdlib>

namespace lyrabox {

using Entries = QList<PracticeCommandEntry>;
using Reach = PracticeCommandEntry::Reach;
using commandTable::Text;

namespace {

constexpr int loopKeys = 9;
constexpr int usualWay = 10; // ms

/// The six ways in which one part of the loop is moved.
Entries moves(PracticeCommand command, const QString &submenu, Qt::Key earlier, Qt::Key later)
{
    struct Way {
        int milliseconds;
        Qt::KeyboardModifiers modifiers;
        QString text;
    };
    const Way ways[] = {
        {-usualWay, Qt::NoModifier, Text::tr("10 ms &Earlier")},
        {usualWay, Qt::NoModifier, Text::tr("10 ms &Later")},
        {-1, Qt::AltModifier, Text::tr("1 ms E&arlier")},
        {1, Qt::AltModifier, Text::tr("1 ms La&ter")},
        {-longestMove, Qt::ShiftModifier, Text::tr("One Beat or 100 ms Earl&ier")},
        {longestMove, Qt::ShiftModifier, Text::tr("One Beat or 100 ms Late&r")},
    };
    Entries entries;
    for (const Way &way : ways) {
        const bool isEarlier = way.milliseconds < 0;
        entries.append({.command = command,
                        .text = way.text,
                        .keys = {QKeySequence(way.modifiers | (isEarlier ? earlier : later))},
                        .argument = way.milliseconds,
                        .submenu = submenu,
                        .helpText = Text::tr("%1 by 10 ms (with Alt 1 ms, with Shift a beat)")
                                        .arg(withoutMnemonic(submenu)),
                        .repeats = true,
                        .joinsPrevious = !isEarlier,
                        .isVariant = std::abs(way.milliseconds) != usualWay});
    }
    return entries;
}

} // namespace

Entries commandTable::play()
{
    const QString submenu = Text::tr("&Play");
    Entries entries{
        {.command = PracticeCommand::KeepLoop, .text = Text::tr("&Keep Loop"), .keys = {Qt::Key_K}},
    };
    for (int number = 1; number <= loopKeys; ++number)
        entries.append({.command = PracticeCommand::PlayLoop,
                        .text = Text::tr("Loop %1").arg(u'&' + QString::number(number)),
                        .keys = {QKeySequence(Qt::Key_0 + number)},
                        .argument = number,
                        .submenu = submenu,
                        .helpText = Text::tr("Play Loop"),
                        .joinsPrevious = number > 1});
    entries += Entries{
        {.command = PracticeCommand::NextLoop,
         .text = Text::tr("&Next Loop"),
         .keys = {Qt::Key_N},
         .submenu = submenu},
        {.command = PracticeCommand::PreviousLoop,
         .text = Text::tr("&Previous Loop"),
         .keys = {Qt::Key_P},
         .submenu = submenu,
         .joinsPrevious = true},
        {.command = PracticeCommand::PlaySelected,
         .text = Text::tr("Play &Selected"),
         .keys = {Qt::Key_Return, Qt::Key_Enter},
         .submenu = submenu,
         .reach = Reach::Pane},
    };
    return entries;
}

Entries commandTable::markers()
{
    const QString submenu = Text::tr("&Marker");
    return {
        {.command = PracticeCommand::AddMarker,
         .text = Text::tr("&Add Marker"),
         .keys = {Qt::Key_M},
         .submenu = submenu},
        {.command = PracticeCommand::AddNamedMarker,
         .text = Text::tr("Add Marker with &Name…"),
         .keys = {Qt::SHIFT | Qt::Key_M},
         .submenu = submenu,
         .joinsPrevious = true},
        {.command = PracticeCommand::NextMarker,
         .text = Text::tr("Ne&xt Marker"),
         .keys = {Qt::SHIFT | Qt::Key_N},
         .submenu = submenu},
        {.command = PracticeCommand::PreviousMarker,
         .text = Text::tr("&Previous Marker"),
         .keys = {Qt::SHIFT | Qt::Key_P},
         .submenu = submenu,
         .joinsPrevious = true},
    };
}

Entries commandTable::loopMoves()
{
    Entries entries =
        moves(PracticeCommand::MoveStart, Text::tr("Move &Start"), Qt::Key_A, Qt::Key_S);
    entries.first().beginsGroup = true;
    entries += moves(PracticeCommand::MoveEnd, Text::tr("Mo&ve End"), Qt::Key_D, Qt::Key_F);
    entries += moves(PracticeCommand::MoveLoop, Text::tr("Move &Loop"), Qt::Key_G, Qt::Key_H);
    entries += Entries{
        {.command = PracticeCommand::Tidy, .text = Text::tr("&Tidy Loop"), .keys = {Qt::Key_Y}},
        {.command = PracticeCommand::SecondHalf,
         .text = Text::tr("Second &Half"),
         .keys = {Qt::Key_U}},
        {.command = PracticeCommand::TwiceAsLong,
         .text = Text::tr("Twice as Lon&g"),
         .keys = {Qt::SHIFT | Qt::Key_U},
         .joinsPrevious = true},
    };
    return entries;
}

Entries commandTable::edits()
{
    return {
        {.command = PracticeCommand::KeepSpeed,
         .text = Text::tr("Keep Speed and P&itch with Loop"),
         .keys = {Qt::SHIFT | Qt::Key_K},
         .beginsGroup = true},
        {.command = PracticeCommand::ForgetSpeed,
         .text = Text::tr("&Forget Speed and Pitch of Loop"),
         .keys = {Qt::CTRL | Qt::SHIFT | Qt::Key_K},
         .joinsPrevious = true},
        {.command = PracticeCommand::Rename, .text = Text::tr("&Rename…"), .keys = {Qt::Key_F2}},
        {.command = PracticeCommand::Remove,
         .text = Text::tr("&Delete"),
         .keys = {Qt::Key_Delete},
         .reach = Reach::Pane,
         .joinsPrevious = true},
        {.command = PracticeCommand::Undo,
         .text = Text::tr("&Undo"),
         .keys = {Qt::CTRL | Qt::Key_Z},
         .beginsGroup = true},
        {.command = PracticeCommand::Redo,
         .text = Text::tr("Red&o"),
         .keys = {Qt::CTRL | Qt::SHIFT | Qt::Key_Z},
         .joinsPrevious = true},
    };
}

} // namespace lyrabox
