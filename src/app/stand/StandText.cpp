#include "app/stand/StandText.h"

#include "app/practice/BeatMarks.h"
#include "app/practice/TrainerLadder.h"
#include "app/practice/TrainerWords.h"
#include "platform/ui/OneLine.h"

#include <QCoreApplication>
#include <QStringList>

#include <algorithm>
#include <cmath>

namespace lyrabox::standText {

namespace {

struct Text {
    Q_DECLARE_TR_FUNCTIONS(lyrabox::StandText)
};

using Silence = StandFacts::Silence;

QString countInText(const CountInLength &length)
{
    if (length.unit == CountInLength::Unit::Beats)
        return length.amount == 1 ? Text::tr("Count-in: 1 beat")
                                  : Text::tr("Count-in: %1 beats").arg(length.amount);
    return length.amount == 1 ? Text::tr("Count-in: 1 bar")
                              : Text::tr("Count-in: %1 bars").arg(length.amount);
}

/// The place in bars that is heard. A silence counts up to the place where the music begins.
BarPlace heardPlace(const StandFacts &facts)
{
    const auto frame = static_cast<double>(facts.frame);
    const double beatFrames = 60.0 * 44100.0 / facts.grid.tempoAt(frame);
    const double beats = facts.grid.beatsAt(frame) - facts.silenceLeft / beatFrames;
    return facts.grid.placeAt(facts.grid.frameOfBeats(beats));
}

void addBar(StandPage &page, const StandFacts &facts)
{
    const bool isSilent = facts.silence != Silence::None;
    if (!isSilent && !beatMarks::isShown(facts.grid, static_cast<double>(facts.frame))) {
        page.numbers.push_back({.caption = Text::tr("Bar"), .value = QStringLiteral("–")});
        return;
    }
    const BarPlace place = heardPlace(facts);
    page.beats = beatMarks::beatsPerBarAt(facts.grid, facts.frame);
    page.beat = std::clamp(static_cast<int>(place.beat), 1, page.beats);
    if (isSilent)
        page.numbers.push_back(
            {.caption = facts.silence == Silence::CountIn ? Text::tr("Count-in") : Text::tr("Rest"),
             .value = QString::number(page.beat)});
    else
        page.numbers.push_back(
            {.caption = Text::tr("Bar"), .value = QString::number(std::max(0, place.bar))});
}

void addNumbers(StandPage &page, const StandFacts &facts)
{
    page.numbers.push_back({.caption = Text::tr("Speed"),
                            .value = trainerWords::speed(facts.speed, TempoUnit::Percent, 0.0)});
    if (facts.grid.isEmpty())
        return;
    const double tempo = facts.grid.tempoAt(static_cast<double>(facts.frame)) * facts.speed / 100.0;
    page.numbers.push_back(
        {.caption = Text::tr("BPM"), .value = QString::number(std::lround(tempo))});
    addBar(page, facts);
}

void addLadder(StandPage &page, const StandFacts &facts)
{
    const TrainerStrip &strip = facts.strip;
    if (!strip.isRunning || facts.ladder.empty())
        return;
    const double tempo =
        strip.tempo && strip.speed > 0.0 ? *strip.tempo * 100.0 / strip.speed : 0.0;
    const int present = strip.rung - 1;
    const ShownRungs shown =
        shownRungs(static_cast<int>(facts.ladder.size()), std::max(0, present), mostSteps);
    for (int rung = shown.first; rung < shown.first + shown.count; ++rung) {
        const bool isPresent = rung == present;
        // A speed between two steps stands on the lower one.
        const double speed = isPresent ? strip.speed : facts.ladder[static_cast<std::size_t>(rung)];
        const double part = 1.0 * strip.passesDone / std::max(1, strip.passesNeeded);
        page.steps.push_back({.text = trainerWords::number(speed, facts.unit, tempo),
                              .state = isPresent        ? StandStep::State::Present
                                       : rung < present ? StandStep::State::Done
                                                        : StandStep::State::Coming,
                              .part = isPresent ? std::clamp(part, 0.0, 1.0) : 0.0});
    }
    const QString next =
        facts.nextSpeed ? trainerWords::speed(*facts.nextSpeed, facts.unit, tempo) : QString();
    page.passes = trainerWords::strip(strip, next);
}

} // namespace

StandPage page(const StandFacts &facts)
{
    StandPage page;
    if (!facts.hasSong) {
        page.title = Text::tr("Play a song.");
        return page;
    }
    page.title = oneLine(facts.title).simplified();
    page.loop = oneLine(facts.loop).simplified();
    page.loopColour = facts.loopColour;
    addNumbers(page, facts);
    addLadder(page, facts);
    if (facts.countIn && !facts.grid.isEmpty())
        page.countIn = countInText(*facts.countIn);
    return page;
}

QString spoken(const StandPage &page)
{
    QStringList parts{page.title, page.loop};
    // The bar changes too often to be said.
    for (std::size_t index = 0; index < std::min<std::size_t>(2, page.numbers.size()); ++index) {
        const StandNumber &number = page.numbers[index];
        parts.append(QStringLiteral("%1: %2").arg(number.caption, number.value));
    }
    parts << page.passes << page.countIn;
    parts.removeAll(QString());
    return parts.join(QStringLiteral(", "));
}

} // namespace lyrabox::standText
