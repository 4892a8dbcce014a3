#include "app/practice/PracticeCommands.h"

#include "app/practice/CommandTable.h"
#include "platform/ui/MenuText.h"

#include <QMetaEnum>

#include <algorithm>
#include <string_view>

namespace lyrabox {

namespace {

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

QString PracticeCommandEntry::id() const
{
    QString words;
    for (const char letter : std::string_view(
             QMetaEnum::fromType<PracticeCommand>().valueToKey(static_cast<int>(command)))) {
        const QChar character = QLatin1Char(letter);
        if (character.isUpper() && !words.isEmpty())
            words += u' ';
        words += character.toLower();
    }
    return argument == 0 ? words : words + u' ' + QString::number(argument);
}

QString PracticeCommandEntry::keyText() const
{
    return keys.isEmpty() ? QString() : keys.first().toString(QKeySequence::NativeText);
}

QList<PracticeCommandEntry> practiceCommands()
{
    return commandTable::play() + commandTable::markers() + commandTable::loopMoves() +
           commandTable::trainer() + commandTable::edits() + commandTable::beats() +
           commandTable::click() + commandTable::sound() + commandTable::wave() +
           commandTable::history() + commandTable::exports() + commandTable::stand() +
           commandTable::sharing();
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
