#include "pedals/PedalMap.h"

#include <QSet>

#include <algorithm>

namespace lyrabox {

namespace {

template <typename Entry>
const Entry *best(const std::vector<Entry> &entries, const PedalControl &sent)
{
    const Entry *found = nullptr;
    for (const Entry &entry : entries) {
        const bool isMeant = includes(entry.control, sent);
        if (isMeant &&
            (found == nullptr || specificity(entry.control) > specificity(found->control)))
            found = &entry;
    }
    return found;
}

template <typename Entry>
auto entryOf(std::vector<Entry> &entries, const PedalControl &control)
{
    return std::ranges::find(entries, control, &Entry::control);
}

bool isUseless(const PedalSwitch &entry)
{
    return entry.inUse() == GesturesInUse{} && entry.unknown.isEmpty();
}

} // namespace

const QString &PedalSwitch::command(PedalGesture gesture) const
{
    return gesture == PedalGesture::Tap         ? tap
           : gesture == PedalGesture::DoubleTap ? doubleTap
                                                : hold;
}

QString &PedalSwitch::command(PedalGesture gesture)
{
    return gesture == PedalGesture::Tap         ? tap
           : gesture == PedalGesture::DoubleTap ? doubleTap
                                                : hold;
}

GesturesInUse PedalSwitch::inUse() const
{
    return {.tap = !tap.isEmpty(), .doubleTap = !doubleTap.isEmpty(), .hold = !hold.isEmpty()};
}

const PedalSwitch *PedalMap::switchOf(const PedalControl &sent) const
{
    return best(switches, sent);
}

const PedalDial *PedalMap::dialOf(const PedalControl &sent) const
{
    return best(dials, sent);
}

bool setSwitch(PedalMap &map, const PedalControl &control, PedalGesture gesture,
               const QString &command)
{
    auto entry = entryOf(map.switches, control);
    if (entry == map.switches.end()) {
        if (command.isEmpty())
            return true;
        if (map.switches.size() >= PedalLimits::switches)
            return false;
        map.switches.push_back({.control = control});
        entry = map.switches.end() - 1;
    }
    entry->command(gesture) = command;
    if (isUseless(*entry))
        map.switches.erase(entry);
    if (!command.isEmpty())
        removeDial(map, control);
    return true;
}

bool setDial(PedalMap &map, const PedalControl &control, PedalDial::Form form,
             const QString &target)
{
    auto entry = entryOf(map.dials, control);
    if (entry == map.dials.end()) {
        if (map.dials.size() >= PedalLimits::dials)
            return false;
        map.dials.push_back({.control = control});
        entry = map.dials.end() - 1;
    }
    entry->target = target;
    entry->form = form;
    std::erase_if(map.switches, [&](const PedalSwitch &other) { return other.control == control; });
    return true;
}

void removeDial(PedalMap &map, const PedalControl &control)
{
    std::erase_if(map.dials, [&](const PedalDial &dial) { return dial.control == control; });
}

std::vector<KeysOfCommand> effectiveKeys(const std::vector<KeysOfCommand> &builtIn,
                                         const PedalMap &map)
{
    std::vector<KeysOfCommand> result;
    QSet<QString> taken;
    QSet<QString> replaced;
    for (const KeysOfCommand &entry : builtIn)
        result.push_back({.command = entry.command, .keys = {}});
    for (const CommandKeys &entry : map.keys) {
        const auto found = std::ranges::find(result, entry.command, &KeysOfCommand::command);
        if (found == result.end())
            continue;
        if (entry.replaces)
            replaced.insert(entry.command);
        for (const QString &key : entry.keys) {
            if (taken.contains(key))
                continue;
            taken.insert(key);
            found->keys.append(key);
        }
    }
    for (std::size_t index = 0; index < builtIn.size(); ++index) {
        if (replaced.contains(builtIn[index].command))
            continue;
        QStringList keys;
        for (const QString &key : builtIn[index].keys) {
            if (!taken.contains(key))
                keys.append(key);
        }
        result[index].keys = keys + result[index].keys;
    }
    return result;
}

bool setKey(PedalMap &map, const std::vector<KeysOfCommand> &builtIn, const QString &key,
            const QString &command)
{
    PedalMap changed = map;
    const auto entryFor = [&](const QString &name) -> CommandKeys & {
        const auto found = std::ranges::find(changed.keys, name, &CommandKeys::command);
        if (found != changed.keys.end())
            return *found;
        changed.keys.push_back({.command = name});
        return changed.keys.back();
    };
    for (CommandKeys &entry : changed.keys)
        entry.keys.removeAll(key);
    bool hasKey = false;
    for (const KeysOfCommand &entry : builtIn) {
        if (!entry.keys.contains(key))
            continue;
        CommandKeys &own = entryFor(entry.command);
        if (entry.command == command) {
            hasKey = !own.replaces;
        } else if (!own.replaces) {
            // The command keeps its other built-in keys.
            QStringList others = entry.keys;
            others.removeAll(key);
            own.keys = others + own.keys;
            own.replaces = true;
        }
    }
    if (!command.isEmpty() && !hasKey)
        entryFor(command).keys.append(key);
    for (CommandKeys &entry : changed.keys) {
        const auto original = std::ranges::find(builtIn, entry.command, &KeysOfCommand::command);
        if (entry.replaces && original != builtIn.end() && original->keys == entry.keys) {
            entry.replaces = false;
            entry.keys.clear();
        }
    }
    std::erase_if(changed.keys, [](const CommandKeys &entry) {
        return entry.keys.isEmpty() && !entry.replaces && entry.unknown.isEmpty();
    });
    const auto isFull = [](const CommandKeys &entry) {
        return entry.keys.size() > PedalLimits::keys;
    };
    if (changed.keys.size() > PedalLimits::commands || std::ranges::any_of(changed.keys, isFull))
        return false;
    map = std::move(changed);
    return true;
}

} // namespace lyrabox
