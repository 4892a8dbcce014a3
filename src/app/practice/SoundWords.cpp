#include "app/practice/SoundWords.h"

#include "app/practice/SoundSettings.h"

#include <QCoreApplication>
#include <QLocale>

#include <array>
#include <cmath>
#include <utility>

namespace lyrabox {

namespace {

struct Text {
    Q_DECLARE_TR_FUNCTIONS(lyrabox::SoundWords)
};

int rounded(double cents)
{
    return static_cast<int>(std::lround(cents));
}

/// The lowest and the highest A of the song. Whole hertz, unless they would hide a difference.
std::pair<QString, QString> hertzOf(const HeardTuning &heard)
{
    const double low = heard.hertz(heard.lowest);
    const double high = heard.hertz(heard.highest);
    const auto isHidden = [&heard](double cents) {
        return rounded(cents) != 0 && std::round(heard.hertz(cents)) == std::round(heard.ownA);
    };
    const bool needsDecimals = isHidden(heard.lowest) || isHidden(heard.highest) ||
                               (heard.drifts() && std::round(low) == std::round(high));
    const auto text = [needsDecimals](double hertz) {
        return QLocale().toString(hertz, 'f', needsDecimals ? 1 : 0);
    };
    return {text(low), text(high)};
}

QString driftText(const HeardTuning &heard)
{
    const int lowest = rounded(heard.lowest);
    const int highest = rounded(heard.highest);
    const auto [low, high] = hertzOf(heard);
    if (highest <= 0)
        return Text::tr("Drifts: %1 to %2 cents flat (A = %3 to %4)")
            .arg(QString::number(-highest), QString::number(-lowest), low, high);
    if (lowest >= 0)
        return Text::tr("Drifts: %1 to %2 cents sharp (A = %3 to %4)")
            .arg(QString::number(lowest), QString::number(highest), low, high);
    return Text::tr("Drifts: %1 cents flat to %2 cents sharp (A = %3 to %4)")
        .arg(QString::number(-lowest), QString::number(highest), low, high);
}

/// What a language calls the notes.
struct NoteNames {
    Q_DECLARE_TR_FUNCTIONS(lyrabox::NoteNames)
};

using Names = std::array<const char *, 12>;

// The signatures with the fewest signs. A key and its relative have signs of one kind.
constexpr Names majorNames{
    QT_TRANSLATE_NOOP("lyrabox::NoteNames", "C"),  QT_TRANSLATE_NOOP("lyrabox::NoteNames", "D♭"),
    QT_TRANSLATE_NOOP("lyrabox::NoteNames", "D"),  QT_TRANSLATE_NOOP("lyrabox::NoteNames", "E♭"),
    QT_TRANSLATE_NOOP("lyrabox::NoteNames", "E"),  QT_TRANSLATE_NOOP("lyrabox::NoteNames", "F"),
    QT_TRANSLATE_NOOP("lyrabox::NoteNames", "F♯"), QT_TRANSLATE_NOOP("lyrabox::NoteNames", "G"),
    QT_TRANSLATE_NOOP("lyrabox::NoteNames", "A♭"), QT_TRANSLATE_NOOP("lyrabox::NoteNames", "A"),
    QT_TRANSLATE_NOOP("lyrabox::NoteNames", "B♭"), QT_TRANSLATE_NOOP("lyrabox::NoteNames", "B"),
};
constexpr Names minorNames{
    "C",
    QT_TRANSLATE_NOOP("lyrabox::NoteNames", "C♯"),
    "D",
    QT_TRANSLATE_NOOP("lyrabox::NoteNames", "D♯"),
    "E",
    "F",
    "F♯",
    "G",
    QT_TRANSLATE_NOOP("lyrabox::NoteNames", "G♯"),
    "A",
    "B♭",
    "B",
};

QString nameOf(const Names &names, int semitonesAboveC)
{
    return NoteNames::tr(names.at(static_cast<std::size_t>(semitonesAboveC)));
}

} // namespace

QString soundWords::hertz(double hertz)
{
    const bool isWhole = std::abs(hertz - std::round(hertz)) < 0.05;
    return QLocale().toString(hertz, 'f', isWhole ? 0 : 1);
}

QString soundWords::tuning(const HeardTuning &heard)
{
    if (heard.drifts())
        return driftText(heard);
    const int cents = rounded(heard.cents);
    if (cents == 0)
        return Text::tr("In tune (A = %1)").arg(hertz(heard.ownA));
    const QString a = hertzOf(heard).first;
    if (cents == -1)
        return Text::tr("1 cent flat (A = %1)").arg(a);
    if (cents == 1)
        return Text::tr("1 cent sharp (A = %1)").arg(a);
    return cents < 0 ? Text::tr("%1 cents flat (A = %2)").arg(QString::number(-cents), a)
                     : Text::tr("%1 cents sharp (A = %2)").arg(QString::number(cents), a);
}

QString soundWords::key(const KeyOfSong &key)
{
    return key.isMinor ? Text::tr("%1 minor").arg(nameOf(minorNames, key.tonic))
                       : Text::tr("%1 major").arg(nameOf(majorNames, key.tonic));
}

QString soundWords::keys(const KeyGuess &guess)
{
    return Text::tr("%1 (or %2)").arg(key(guess.first), key(guess.second));
}

QStringList soundWords::instruments()
{
    QStringList names;
    for (int instrument = 0; instrument < instrumentCount; ++instrument) {
        const int fret = capoOf(instrument);
        // An instrument is named after the note that its player reads as a C.
        names.append(fret > 0 ? Text::tr("Capo %1").arg(fret)
                              : Text::tr("in %1").arg(
                                    nameOf(majorNames, (12 - readAbove(instrument)) % 12)));
    }
    return names;
}

} // namespace lyrabox
