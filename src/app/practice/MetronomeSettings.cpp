#include "app/practice/MetronomeSettings.h"

#include "platform/foundation/UserDefaults.h"

#include <algorithm>
#include <iterator>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox {

namespace {

const QString loudnessKey = u"clickLoudness"_s;
const QString timbreKey = u"clickSound"_s;
const QString sideKey = u"clickSide"_s;
const QString accentsKey = u"clickAccents"_s;
const QString subdivisionKey = u"clickSubdivision"_s;
const QString backbeatsKey = u"clickBackbeats"_s;
const QString barsOnKey = u"clickBarsOn"_s;
const QString barsOffKey = u"clickBarsOff"_s;
const QString amountKey = u"countInAmount"_s;
const QString unitKey = u"countInUnit"_s;
const QString whenKey = u"countInWhen"_s;

constexpr std::pair<ClickTimbre, QStringView> timbres[] = {
    {ClickTimbre::Tick, u"tick"}, {ClickTimbre::Wood, u"wood"}, {ClickTimbre::Beep, u"beep"}};
constexpr std::pair<ClickSide, QStringView> sides[] = {
    {ClickSide::Both, u"both"}, {ClickSide::Left, u"left"}, {ClickSide::Right, u"right"}};
constexpr std::pair<CountInLength::Unit, QStringView> units[] = {
    {CountInLength::Unit::Bars, u"bars"}, {CountInLength::Unit::Beats, u"beats"}};
constexpr std::pair<CountInSettings::When, QStringView> moments[] = {
    {CountInSettings::When::AtPlay, u"play"}, {CountInSettings::When::EveryPass, u"pass"}};

/// The word of a value.
template <typename Words, typename Value>
QString wordOf(const Words &words, Value value)
{
    for (const auto &[candidate, word] : words) {
        if (candidate == value)
            return word.toString();
    }
    return {};
}

/// The value of the stored word. The first one if it is missing or unknown.
template <typename Words>
auto storedValue(const Words &words, const QString &key)
{
    const QString stored = userDefaults().value(key).toString();
    for (const auto &[value, word] : words) {
        if (word == stored)
            return value;
    }
    return std::begin(words)->first;
}

int storedNumber(const QString &key, int usual)
{
    bool isNumber = false;
    const int number = userDefaults().value(key).toInt(&isNumber);
    return isNumber ? number : usual;
}

bool storedFlag(const QString &key, bool usual)
{
    return userDefaults().value(key, usual).toBool();
}

} // namespace

ClickSound ClickSettings::sound() const
{
    return {.loudness = static_cast<float>(loudness) / 100.0F,
            .timbre = timbre,
            .side = side,
            .hasAccents = hasAccents};
}

void clean(ClickSettings &settings)
{
    settings.loudness = std::clamp(settings.loudness, 0, 100);
    ClickPattern &pattern = settings.pattern;
    pattern.subdivision = std::clamp(pattern.subdivision, 1, ClickPattern::maximumSubdivision);
    pattern.barsOn = std::clamp(pattern.barsOn, 1, ClickPattern::maximumBars);
    pattern.barsOff = std::clamp(pattern.barsOff, 0, ClickPattern::maximumBars);
}

void clean(CountInSettings &settings)
{
    CountInLength &length = settings.length;
    const bool isInBars = length.unit == CountInLength::Unit::Bars;
    length.amount = std::clamp(length.amount, 1,
                               isInBars ? CountInLength::maximumBars : CountInLength::maximumBeats);
}

ClickSettings storedClickSettings()
{
    const ClickSettings usual;
    ClickSettings settings{
        .loudness = storedNumber(loudnessKey, usual.loudness),
        .timbre = storedValue(timbres, timbreKey),
        .side = storedValue(sides, sideKey),
        .hasAccents = storedFlag(accentsKey, usual.hasAccents),
        .pattern = {.subdivision = storedNumber(subdivisionKey, usual.pattern.subdivision),
                    .onlyBackbeats = storedFlag(backbeatsKey, usual.pattern.onlyBackbeats),
                    .barsOn = storedNumber(barsOnKey, usual.pattern.barsOn),
                    .barsOff = storedNumber(barsOffKey, usual.pattern.barsOff)}};
    clean(settings);
    return settings;
}

CountInSettings storedCountInSettings()
{
    const CountInSettings usual;
    CountInSettings settings{.length = {.unit = storedValue(units, unitKey),
                                        .amount = storedNumber(amountKey, usual.length.amount)},
                             .when = storedValue(moments, whenKey)};
    clean(settings);
    return settings;
}

void store(const ClickSettings &settings)
{
    QSettings &defaults = userDefaults();
    defaults.setValue(loudnessKey, settings.loudness);
    defaults.setValue(timbreKey, wordOf(timbres, settings.timbre));
    defaults.setValue(sideKey, wordOf(sides, settings.side));
    defaults.setValue(accentsKey, settings.hasAccents);
    defaults.setValue(subdivisionKey, settings.pattern.subdivision);
    defaults.setValue(backbeatsKey, settings.pattern.onlyBackbeats);
    defaults.setValue(barsOnKey, settings.pattern.barsOn);
    defaults.setValue(barsOffKey, settings.pattern.barsOff);
}

void store(const CountInSettings &settings)
{
    QSettings &defaults = userDefaults();
    defaults.setValue(amountKey, settings.length.amount);
    defaults.setValue(unitKey, wordOf(units, settings.length.unit));
    defaults.setValue(whenKey, wordOf(moments, settings.when));
}

} // namespace lyrabox
