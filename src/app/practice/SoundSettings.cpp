#include "app/practice/SoundSettings.h"

#include "platform/foundation/UserDefaults.h"

#include <algorithm>
#include <array>
#include <cmath>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox {

namespace {

const QString ownAKey = u"tuningA"_s;
const QString instrumentKey = u"instrument"_s;

struct Transposing {
    QStringView word; ///< in the user defaults
    int readAbove;
};
constexpr std::array<Transposing, transposingInstruments> instruments{
    {{u"C", 0}, {u"Bb", 2}, {u"Eb", 9}, {u"F", 7}, {u"A", 3}, {u"G", 5}}};

QString wordOf(int instrument)
{
    const int fret = capoOf(instrument);
    return fret > 0 ? u"capo %1"_s.arg(fret)
                    : instruments.at(static_cast<std::size_t>(instrument)).word.toString();
}

} // namespace

int readAbove(int instrument)
{
    const int fret = capoOf(instrument);
    return fret > 0 ? 12 - fret : instruments.at(static_cast<std::size_t>(instrument)).readAbove;
}

int capoOf(int instrument)
{
    return std::max(0, instrument - transposingInstruments + 1);
}

void clean(SoundSettings &settings)
{
    const double within = std::clamp<double>(settings.ownA, ownARange.minimum, ownARange.maximum);
    settings.ownA = std::isnan(within) ? usualA : std::round(10.0 * within) / 10.0;
    settings.instrument = std::clamp(settings.instrument, 0, instrumentCount - 1);
}

SoundSettings storedSoundSettings()
{
    SoundSettings settings;
    bool isNumber = false;
    if (const double ownA = userDefaults().value(ownAKey).toDouble(&isNumber); isNumber)
        settings.ownA = ownA;
    const QString word = userDefaults().value(instrumentKey).toString();
    for (int instrument = 0; instrument < instrumentCount; ++instrument) {
        if (wordOf(instrument) == word)
            settings.instrument = instrument;
    }
    clean(settings);
    return settings;
}

void store(const SoundSettings &settings)
{
    userDefaults().setValue(ownAKey, settings.ownA);
    userDefaults().setValue(instrumentKey, wordOf(settings.instrument));
}

} // namespace lyrabox
