#include "practice/SoundText.h"

#include <QJsonArray>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox {

namespace {

constexpr std::array modes{"both"_L1, "mono"_L1, "left"_L1, "right"_L1, "swapped"_L1};
constexpr std::array notes{"C"_L1,  "C#"_L1, "D"_L1,  "Eb"_L1, "E"_L1,  "F"_L1,
                           "F#"_L1, "G"_L1,  "Ab"_L1, "A"_L1,  "Bb"_L1, "B"_L1};
constexpr auto notClear = "not clear"_L1;

QString keyText(const KeyOfSong &key)
{
    const QString note = notes.at(static_cast<std::size_t>(key.tonic));
    return note + (key.isMinor ? " minor"_L1 : " major"_L1);
}

/// A letter from A to G, perhaps with # or b, and "major" or "minor".
std::optional<KeyOfSong> keyOf(const QString &text)
{
    static constexpr std::array letters{9, 11, 0, 2, 4, 5, 7};
    const qsizetype space = text.indexOf(u' ');
    const QString mode = text.sliced(space + 1);
    if (space < 1 || space > 2 || text[0] < u'A' || text[0] > u'G' ||
        (mode != "major"_L1 && mode != "minor"_L1))
        return std::nullopt;
    if (space == 2 && text[1] != u'#' && text[1] != u'b')
        return std::nullopt;
    const KeyOfSong key{.tonic = letters.at(static_cast<std::size_t>(text[0].unicode() - u'A')),
                        .isMinor = mode == "minor"_L1};
    return transposed(key, space < 2 ? 0 : text[1] == u'#' ? 1 : -1);
}

/// Takes values out of an object, and notes whether they were valid.
class SoundReader {
public:
    explicit SoundReader(const QJsonObject &object) : m_object(object) {}

    void number(QLatin1StringView key, int &number)
    {
        const QJsonValue value = m_object.take(key);
        const double found = value.toDouble(number);
        // Numbers that no int can hold lie beyond every range, too.
        constexpr double most = std::numeric_limits<int>::max();
        number = static_cast<int>(std::lround(std::clamp(found, -most, most)));
        isWhole = isWhole && (value.isUndefined() || (value.isDouble() && number == found));
    }

    void mode(ChannelMode &mode)
    {
        const QJsonValue value = m_object.take("channels"_L1);
        for (std::size_t i = 0; i < modes.size(); ++i) {
            if (value.toString() == modes.at(i)) {
                mode = static_cast<ChannelMode>(i);
                return;
            }
        }
        isWhole = isWhole && value.isUndefined();
    }

    std::optional<PracticeTuning> tuning()
    {
        const QJsonValue cents = m_object.take("tuning"_L1);
        const QJsonValue lowest = m_object.take("tuning from"_L1);
        const QJsonValue highest = m_object.take("tuning to"_L1);
        const bool hasRange = !lowest.isUndefined() || !highest.isUndefined();
        if (cents.isDouble()) {
            isWhole = isWhole && (!hasRange || (lowest.isDouble() && highest.isDouble()));
            const double middle = cents.toDouble();
            return PracticeTuning{.isClear = true,
                                  .tuning = {.cents = middle,
                                             .lowest = lowest.toDouble(middle),
                                             .highest = highest.toDouble(middle)}};
        }
        const bool isUnclear = cents.toString() == notClear;
        isWhole = isWhole && !hasRange && (isUnclear || cents.isUndefined());
        return isUnclear ? std::optional(PracticeTuning{}) : std::nullopt;
    }

    std::optional<KeyGuess> keys()
    {
        const QJsonValue value = m_object.take("keys"_L1);
        const QJsonArray texts = value.toArray();
        const auto first = keyOf(texts.at(0).toString());
        const auto second = keyOf(texts.at(1).toString());
        const bool isValid = texts.size() == 2 && first && second;
        isWhole = isWhole && (isValid || value.isUndefined());
        return isValid ? std::optional(KeyGuess{*first, *second}) : std::nullopt;
    }

    QJsonObject rest() const { return m_object; }

    bool isWhole = true;

private:
    QJsonObject m_object;
};

} // namespace

QJsonObject soundObject(const PracticeSound &sound)
{
    QJsonObject object = sound.unknown;
    const ChannelTools &tools = sound.channels;
    const ChannelTools normal;
    if (tools.mode != normal.mode)
        object.insert("channels"_L1, modes.at(static_cast<std::size_t>(tools.mode)));
    const auto put = [&object](QLatin1StringView key, int value, int normalValue) {
        if (value != normalValue)
            object.insert(key, value);
    };
    put("balance"_L1, tools.balance, normal.balance);
    put("centre"_L1, tools.centre, normal.centre);
    put("centre from"_L1, tools.centreFrom, normal.centreFrom);
    put("centre to"_L1, tools.centreUpTo, normal.centreUpTo);
    if (sound.tuning && sound.tuning->isClear) {
        const SongTuning &tuning = sound.tuning->tuning;
        object.insert("tuning"_L1, tuning.cents);
        if (tuning.drifts()) {
            object.insert("tuning from"_L1, tuning.lowest);
            object.insert("tuning to"_L1, tuning.highest);
        }
    } else if (sound.tuning) {
        object.insert("tuning"_L1, notClear);
    }
    if (sound.keys)
        object.insert("keys"_L1,
                      QJsonArray{keyText(sound.keys->first), keyText(sound.keys->second)});
    return object;
}

bool readSound(const QJsonValue &value, PracticeSound &sound)
{
    sound = {};
    if (!value.isObject())
        return value.isUndefined();
    SoundReader reader(value.toObject());
    reader.mode(sound.channels.mode);
    reader.number("balance"_L1, sound.channels.balance);
    reader.number("centre"_L1, sound.channels.centre);
    reader.number("centre from"_L1, sound.channels.centreFrom);
    reader.number("centre to"_L1, sound.channels.centreUpTo);
    sound.tuning = reader.tuning();
    sound.keys = reader.keys();
    sound.unknown = reader.rest();
    const PracticeSound asFound = sound;
    clean(sound);
    return reader.isWhole && sound == asFound;
}

} // namespace lyrabox
