#include "pedals/PedalText.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>
#include <cmath>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox {

namespace {

constexpr auto versionKey = "lyrabox pedals"_L1;

struct FormName {
    PedalDial::Form form;
    QLatin1StringView name;
};
constexpr FormName formNames[] = {
    {PedalDial::Form::Position, "position"_L1},
    {PedalDial::Form::TwosComplement, "twos complement"_L1},
    {PedalDial::Form::Offset, "offset"_L1},
    {PedalDial::Form::SignBit, "sign bit"_L1},
};

/// One object of the file. Every key that is taken leaves it; the rest is what this version does
/// not know.
class Keys {
public:
    Keys(QJsonObject object, bool &isWhole) : m_object(std::move(object)), m_isWhole(isWhole) {}

    QJsonValue take(QLatin1StringView key) { return m_object.take(key); }

    QString text(QLatin1StringView key)
    {
        const QJsonValue value = take(key);
        const QString text = value.toString();
        const bool fits = text.size() <= PedalLimits::textLength;
        m_isWhole = m_isWhole && fits && (value.isString() || value.isUndefined());
        return fits ? text : QString();
    }

    std::optional<PedalControl> control()
    {
        std::optional<PedalControl> control = controlOf(text("control"_L1));
        const QString port = text("port"_L1);
        const QJsonValue channel = take("channel"_L1);
        if (!control)
            return std::nullopt;
        control->port = port;
        if (channel.isUndefined())
            return control;
        constexpr double channels = 16.0;
        const double number = channel.toDouble(0.0);
        if (!(number >= 1.0 && number <= channels) || std::round(number) != number)
            return std::nullopt;
        control->channel = static_cast<int>(number);
        return control;
    }

    QJsonObject rest() { return std::exchange(m_object, {}); }

private:
    QJsonObject m_object;
    bool &m_isWhole;
};

std::optional<PedalSwitch> readSwitch(Keys keys)
{
    const auto control = keys.control();
    if (!control)
        return std::nullopt;
    PedalSwitch entry{.control = *control};
    entry.tap = keys.text("tap"_L1);
    entry.doubleTap = keys.text("double tap"_L1);
    entry.hold = keys.text("hold"_L1);
    entry.unknown = keys.rest();
    return entry;
}

std::optional<PedalDial> readDial(Keys keys)
{
    const auto control = keys.control();
    const QString target = keys.text("sets"_L1);
    const QString name = keys.text("form"_L1);
    const auto *form = std::ranges::find(formNames, name, &FormName::name);
    const bool hasForm = form != std::end(formNames);
    if (!control || target.isEmpty() || (!hasForm && !name.isEmpty()))
        return std::nullopt;
    return PedalDial{.control = *control,
                     .target = target,
                     .form = hasForm ? form->form : PedalDial::Form::Position,
                     .unknown = keys.rest()};
}

std::optional<CommandKeys> readKeys(Keys keys, bool &isWhole)
{
    CommandKeys entry{.command = keys.text("command"_L1)};
    const QJsonValue replaces = keys.take("instead"_L1);
    const QJsonValue texts = keys.take("keys"_L1);
    entry.unknown = keys.rest();
    if (entry.command.isEmpty())
        return std::nullopt;
    entry.replaces = replaces.toBool();
    isWhole = isWhole && (replaces.isBool() || replaces.isUndefined()) &&
              (texts.isArray() || texts.isUndefined());
    for (const QJsonValue &value : texts.toArray()) {
        const QString key = value.toString();
        if (key.isEmpty() || key.size() > PedalLimits::textLength || entry.keys.contains(key) ||
            entry.keys.size() == PedalLimits::keys)
            isWhole = false;
        else
            entry.keys.append(key);
    }
    return entry;
}

/// Reads the elements of an array with `read`, up to a limit. Leaves out those that are no valid
/// entries, and those that `isTaken` says are there already.
template <typename Entry, typename Read, typename IsTaken>
void readAll(const QJsonValue &array, std::size_t limit, bool &isWhole, std::vector<Entry> &entries,
             Read read, IsTaken isTaken)
{
    if (!array.isArray()) {
        isWhole = isWhole && array.isUndefined();
        return;
    }
    for (const QJsonValue &value : array.toArray()) {
        if (entries.size() == limit) {
            isWhole = false;
            return;
        }
        std::optional<Entry> entry;
        if (value.isObject())
            entry = read(Keys(value.toObject(), isWhole));
        if (entry && !isTaken(*entry))
            entries.push_back(std::move(*entry));
        else
            isWhole = false;
    }
}

void putControl(QJsonObject &object, const PedalControl &control)
{
    object.insert("control"_L1, controlText(control));
    if (!control.port.isEmpty())
        object.insert("port"_L1, control.port);
    if (control.channel != 0)
        object.insert("channel"_L1, control.channel);
}

QJsonObject switchObject(const PedalSwitch &entry)
{
    QJsonObject object = entry.unknown;
    putControl(object, entry.control);
    const auto put = [&](QLatin1StringView key, const QString &command) {
        if (!command.isEmpty())
            object.insert(key, command);
    };
    put("tap"_L1, entry.tap);
    put("double tap"_L1, entry.doubleTap);
    put("hold"_L1, entry.hold);
    return object;
}

QJsonObject dialObject(const PedalDial &dial)
{
    QJsonObject object = dial.unknown;
    putControl(object, dial.control);
    object.insert("sets"_L1, dial.target);
    if (dial.form != PedalDial::Form::Position)
        object.insert("form"_L1,
                      QString(std::ranges::find(formNames, dial.form, &FormName::form)->name));
    return object;
}

QJsonObject keysObject(const CommandKeys &entry)
{
    QJsonObject object = entry.unknown;
    object.insert("command"_L1, entry.command);
    object.insert("keys"_L1, QJsonArray::fromStringList(entry.keys));
    if (entry.replaces)
        object.insert("instead"_L1, true);
    return object;
}

QByteArray valueText(const QJsonValue &value)
{
    const QByteArray array = QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact);
    return array.sliced(1, array.size() - 2);
}

template <typename Entry>
QByteArray linesText(const std::vector<Entry> &entries, QJsonObject (*object)(const Entry &))
{
    QByteArray result = "[";
    for (const Entry &entry : entries) {
        result += result.size() > 1 ? ",\n  " : "\n  ";
        result += valueText(object(entry));
    }
    return result + ']';
}

} // namespace

std::optional<PedalReading> readPedals(const QByteArray &text)
{
    if (text.size() > PedalLimits::fileBytes)
        return std::nullopt;
    const QJsonDocument document = QJsonDocument::fromJson(text);
    if (!document.isObject())
        return std::nullopt;
    PedalReading reading;
    bool &isWhole = reading.isWhole;
    PedalMap &map = reading.map;
    Keys keys(document.object(), isWhole);
    const double version = keys.take(versionKey).toDouble(0.0);
    if (!(version >= pedalsVersion))
        return std::nullopt;
    reading.isNewer = version > pedalsVersion;
    const auto isSwitch = [&map](const PedalControl &control) {
        return std::ranges::find(map.switches, control, &PedalSwitch::control) !=
               map.switches.end();
    };
    readAll(keys.take("switches"_L1), PedalLimits::switches, isWhole, map.switches, readSwitch,
            [&](const PedalSwitch &entry) { return isSwitch(entry.control); });
    readAll(keys.take("dials"_L1), PedalLimits::dials, isWhole, map.dials, readDial,
            [&](const PedalDial &dial) {
                return isSwitch(dial.control) ||
                       std::ranges::find(map.dials, dial.control, &PedalDial::control) !=
                           map.dials.end();
            });
    readAll(
        keys.take("keys"_L1), PedalLimits::commands, isWhole, map.keys,
        [&](Keys entry) { return readKeys(std::move(entry), isWhole); },
        [&](const CommandKeys &entry) {
            return std::ranges::find(map.keys, entry.command, &CommandKeys::command) !=
                   map.keys.end();
        });
    map.unknown = keys.rest();
    return reading;
}

QByteArray pedalsText(const PedalMap &map)
{
    QByteArray text = "{\"lyrabox pedals\": " + QByteArray::number(pedalsVersion);
    for (auto entry = map.unknown.begin(); entry != map.unknown.end(); ++entry)
        text += ",\n " + valueText(entry.key()) + ": " + valueText(entry.value());
    text += ",\n \"switches\": " + linesText(map.switches, &switchObject);
    text += ",\n \"dials\": " + linesText(map.dials, &dialObject);
    text += ",\n \"keys\": " + linesText(map.keys, &keysObject);
    return text + "}\n";
}

} // namespace lyrabox
