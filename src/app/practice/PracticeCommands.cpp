#include "app/practice/PracticeCommands.h"

#include <QCoreApplication>

#include <algorithm>
#include <cstdlib>

namespace lyrabox {

namespace {

using Entries = QList<PracticeCommandEntry>;
using Reach = PracticeCommandEntry::Reach;

struct Text {
    Q_DECLARE_TR_FUNCTIONS(lyrabox::PracticeCommands)
};

QString withoutMnemonic(QString text)
{
    return text.remove(u'&');
}

constexpr int loopKeys = 9;
constexpr int usualWay = 10; // ms

Entries playCommands()
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

Entries markerCommands()
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
        {-100, Qt::ShiftModifier, Text::tr("100 ms Earl&ier")},
        {100, Qt::ShiftModifier, Text::tr("100 ms Late&r")},
    };
    Entries entries;
    for (const Way &way : ways) {
        const bool isEarlier = way.milliseconds < 0;
        entries.append({.command = command,
                        .text = way.text,
                        .keys = {QKeySequence(way.modifiers | (isEarlier ? earlier : later))},
                        .argument = way.milliseconds,
                        .submenu = submenu,
                        .helpText = Text::tr("%1 by 10 ms (with Alt 1 ms, with Shift 100 ms)")
                                        .arg(withoutMnemonic(submenu)),
                        .repeats = true,
                        .joinsPrevious = !isEarlier,
                        .isVariant = std::abs(way.milliseconds) != usualWay});
    }
    return entries;
}

Entries moveCommands()
{
    Entries entries =
        moves(PracticeCommand::MoveStart, Text::tr("Move &Start"), Qt::Key_A, Qt::Key_S);
    entries.first().beginsGroup = true;
    entries += moves(PracticeCommand::MoveEnd, Text::tr("Move &End"), Qt::Key_D, Qt::Key_F);
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

Entries editCommands()
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

Entries waveCommands()
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

/// "1 … 9" for many keys, else all of them.
QString joinedKeys(const QStringList &keys)
{
    constexpr qsizetype many = 4;
    return keys.size() < many ? keys.join(QStringLiteral(", "))
                              : keys.first() + QStringLiteral(" … ") + keys.last();
}

} // namespace

QString PracticeCommandEntry::name() const
{
    return withoutMnemonic(text);
}

QString PracticeCommandEntry::keyText() const
{
    return keys.isEmpty() ? QString() : keys.first().toString(QKeySequence::NativeText);
}

QList<PracticeCommandEntry> practiceCommands()
{
    return playCommands() + markerCommands() + moveCommands() + editCommands() + waveCommands();
}

PracticeCommandEntry practiceCommand(PracticeCommand command)
{
    const QList<PracticeCommandEntry> all = practiceCommands();
    return *std::ranges::find(all, command, &PracticeCommandEntry::command);
}

QList<PracticeKeyLine> practiceKeyLines()
{
    QList<PracticeKeyLine> lines;
    QStringList keys;
    QStringList names;
    const auto endLine = [&] {
        if (!keys.isEmpty())
            lines.append({joinedKeys(keys), names.join(QStringLiteral(", "))});
        keys.clear();
        names.clear();
    };
    for (const PracticeCommandEntry &entry : practiceCommands()) {
        if (entry.isVariant)
            continue;
        if (!entry.joinsPrevious)
            endLine();
        keys.append(entry.keyText());
        const QString name = entry.helpText.isEmpty() ? entry.name() : entry.helpText;
        if (!names.contains(name))
            names.append(name);
    }
    endLine();
    return lines;
}

} // namespace lyrabox
