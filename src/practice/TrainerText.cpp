#include "practice/TrainerText.h"

#include <QJsonValue>
#include <QLatin1StringView>

#include <array>
#include <cmath>
#include <limits>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox {

namespace {

/// The words of an enumeration, in the order of its values.
template <std::size_t Count>
using Words = std::array<QLatin1StringView, Count>;

constexpr Words<4> kinds{"steady"_L1, "ladder"_L1, "two up, one down"_L1, "up and back"_L1};
constexpr Words<2> units{"percent"_L1, "bpm"_L1};
constexpr Words<2> countings{"in a row"_L1, "in all"_L1};
constexpr Words<4> misses{"stay"_L1, "one down"_L1, "two down"_L1, "to start"_L1};
constexpr Words<5> tops{"go on"_L1, "stop"_L1, "next loop"_L1, "again"_L1, "ten more"_L1};
constexpr Words<2> judgings{"unless missed"_L1, "only right"_L1};
constexpr Words<4> betweens{"nothing"_L1, "count-in"_L1, "run-up"_L1, "rest"_L1};
constexpr Words<4> whens{"at play"_L1, "at new speed"_L1, "every pass"_L1, "never"_L1};

/// Calls `visit` with the key of each setting, its value in `settings` and that in `defaults`, and
/// its words if it has some.
template <typename Settings, typename Visitor>
void visitAll(Settings &settings, Visitor &visitor)
{
    constexpr TrainerSettings defaults;
    visitor.word("kind"_L1, settings.kind, defaults.kind, kinds);
    visitor.word("unit"_L1, settings.unit, defaults.unit, units);
    visitor.number("from"_L1, settings.from, defaults.from);
    visitor.number("to"_L1, settings.to, defaults.to);
    visitor.number("step"_L1, settings.step, defaults.step);
    visitor.number("passes"_L1, settings.passes, defaults.passes);
    visitor.word("counting"_L1, settings.counting, defaults.counting, countings);
    visitor.word("after a miss"_L1, settings.afterMiss, defaults.afterMiss, misses);
    visitor.word("at the top"_L1, settings.atTop, defaults.atTop, tops);
    visitor.word("judging"_L1, settings.judging, defaults.judging, judgings);
    visitor.word("between"_L1, settings.between, defaults.between, betweens);
    visitor.word("count-in"_L1, settings.countInWhen, defaults.countInWhen, whens);
    visitor.number("beats"_L1, settings.beats, defaults.beats);
}

class Writer {
public:
    template <typename Value, std::size_t Count>
    void word(QLatin1StringView key, const Value &value, Value normal, const Words<Count> &words)
    {
        if (value != normal)
            object.insert(key, words[static_cast<std::size_t>(value)]);
    }
    void number(QLatin1StringView key, int value, int normal)
    {
        if (value != normal)
            object.insert(key, value);
    }

    QJsonObject object;
};

class Reader {
public:
    explicit Reader(const QJsonObject &from) : m_object(from) {}

    template <typename Value, std::size_t Count>
    void word(QLatin1StringView key, Value &value, Value normal, const Words<Count> &words)
    {
        value = normal;
        const QJsonValue found = m_object.value(key);
        if (found.isUndefined())
            return;
        const QString text = found.toString();
        for (std::size_t i = 0; i < Count; ++i) {
            if (text == words[i]) {
                value = static_cast<Value>(i);
                return;
            }
        }
        isWhole = false;
    }
    void number(QLatin1StringView key, int &value, int normal)
    {
        value = normal;
        const QJsonValue found = m_object.value(key);
        if (found.isUndefined())
            return;
        const double number = found.toDouble(std::nan(""));
        const bool fits = std::abs(number) <= std::numeric_limits<int>::max();
        if (fits)
            value = static_cast<int>(std::lround(number));
        isWhole = isWhole && fits && std::round(number) == number;
    }

    bool isWhole = true;

private:
    const QJsonObject &m_object;
};

} // namespace

QJsonObject trainerObject(const TrainerSettings &settings)
{
    Writer writer;
    visitAll(settings, writer);
    return writer.object;
}

TrainerReading readTrainer(const QJsonObject &object)
{
    TrainerReading reading;
    Reader reader(object);
    visitAll(reading.settings, reader);
    const TrainerSettings asFound = reading.settings;
    clean(reading.settings);
    reading.isWhole = reader.isWhole && reading.settings == asFound;
    return reading;
}

} // namespace lyrabox
