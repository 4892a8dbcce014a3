#include "app/practice/TrainerWords.h"

#include <QCoreApplication>
#include <QStringList>

#include <algorithm>
#include <cmath>

namespace lyrabox::trainerWords {

namespace {

struct Text {
    Q_DECLARE_TR_FUNCTIONS(lyrabox::TrainerWords)
};

/// What was said of the pass that plays comes first, because it is the answer to a key.
QString news(const TrainerStrip &strip)
{
    if (strip.thisPass == PassVerdict::Missed)
        return Text::tr("this pass is missed");
    if (strip.thisPass == PassVerdict::Right)
        return Text::tr("this pass is right");
    switch (strip.news) {
    case TrainerStrip::News::None:
    case TrainerStrip::News::Up:
        break;
    case TrainerStrip::News::Down:
        return Text::tr("slower");
    case TrainerStrip::News::Missed:
        return Text::tr("missed");
    case TrainerStrip::News::AtTop:
        return Text::tr("at the top");
    }
    return {};
}

/// The pass that plays. The count stays at its end, where the speed does not go on.
int passNumber(const TrainerStrip &strip)
{
    return std::min(strip.passesDone + 1, strip.passesNeeded);
}

} // namespace

QString number(double percent, TempoUnit unit, double tempo)
{
    const bool isBeats = unit == TempoUnit::BeatsPerMinute && tempo > 0.0;
    return QString::number(std::lround(isBeats ? tempo * percent / 100.0 : percent));
}

QString speed(double percent, TempoUnit unit, double tempo)
{
    const bool isBeats = unit == TempoUnit::BeatsPerMinute && tempo > 0.0;
    return (isBeats ? Text::tr("%1 BPM") : Text::tr("%1 %")).arg(number(percent, unit, tempo));
}

QString strip(const TrainerStrip &strip, const QString &next)
{
    if (!strip.isRunning)
        return {};
    QStringList parts;
    if (const QString said = news(strip); !said.isEmpty())
        parts.append(said);
    parts.append(Text::tr("pass %1 of %2").arg(passNumber(strip)).arg(strip.passesNeeded));
    if (!next.isEmpty())
        parts.append(Text::tr("next %1").arg(next));
    return parts.join(QStringLiteral(" · "));
}

QString shortStrip(const TrainerStrip &strip)
{
    return strip.isRunning ? Text::tr("%1 of %2").arg(passNumber(strip)).arg(strip.passesNeeded)
                           : QString();
}

} // namespace lyrabox::trainerWords
