#include "app/export/ExportPlan.h"

#include "app/practice/MetronomeRules.h"
#include "practice/SpeedTrainer.h"
#include "practice/TrainerTempo.h"

#include <QSet>

#include <algorithm>
#include <array>
#include <cmath>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox::exportPlan {

namespace {

constexpr double rate = 44100.0;

/// Seconds of sound that one second of work gives, see docs/export.md. Other work goes on beside.
constexpr double stretchedInASecond = 10.0;
constexpr double untouchedInASecond = 60.0;

/// Roughly the bytes of a second of each format.
constexpr std::array<double, allSongFormats.size()> bytesPerSecond = {
    150'000.0, 176'400.0, 264'600.0, 352'800.0, 20'000.0, 30'600.0, 32'000.0};

LeadIn leadInOf(const BeforePass &before, std::uint64_t start, const BeatGrid &beats)
{
    const CountInLength length{.unit = CountInLength::Unit::Beats, .amount = before.beats};
    switch (before.kind) {
    case BetweenPasses::CountIn:
        return metronome::countInBefore(beats, start, length);
    case BetweenPasses::Rest:
        return metronome::restBefore(beats, start, before.beats);
    case BetweenPasses::RunUp:
    case BetweenPasses::Nothing:
        break;
    }
    return {};
}

std::vector<ExportPass> repeatedPasses(const Part &part, const Wanted &wanted, const Heard &heard)
{
    ExportPass pass{.start = part.range.start,
                    .end = part.range.end,
                    .rate = static_cast<float>(speedOf(part, wanted, heard) / 100.0)};
    const int times = std::clamp(wanted.times, 1, Wanted::mostTimes);
    if (!wanted.hasClick || !heard.countIn)
        return repeatedPass(pass, times);
    const LeadIn countIn = metronome::countInBefore(heard.beats, pass.start, heard.countIn->length);
    ExportPass first = pass;
    first.before = countIn;
    if (heard.countIn->when == CountInSettings::When::EveryPass)
        pass.before = countIn;
    std::vector<ExportPass> passes = repeatedPass(pass, times);
    passes.front() = first;
    return passes;
}

bool isStretched(const ExportRequest &request)
{
    return request.pitchCents != 0.0F ||
           std::ranges::any_of(request.passes,
                               [](const ExportPass &pass) { return pass.rate != 1.0F; });
}

constexpr qsizetype longestName = 240; // bytes, without the suffix

/// The name with the ending, shortened in front of it.
QString withEnding(QString name, const QString &ending)
{
    while (name.toUtf8().size() + ending.size() > longestName)
        name.chop(name.size() > 1 && name.back().isLowSurrogate() ? 2 : 1);
    return name + ending;
}

int percentOf(const ExportPass &pass)
{
    return static_cast<int>(std::lround(static_cast<double>(pass.rate) * 100.0));
}

} // namespace

std::vector<ExportPass> ladderPasses(const LoopRange &loop, const TrainerSettings &settings,
                                     const BeatGrid &beats)
{
    // Nobody says of a file's passes what they were, and it must come to an end.
    TrainerSettings plain = settings;
    plain.judging = PassJudging::UnlessMissed;
    plain.atTop = AtTop::Stop;
    SpeedTrainer trainer;
    if (!trainer.start(plain, 100.0, tempoBetween(beats, loop.start, loop.end)))
        return {};
    std::vector<ExportPass> passes;
    BeforePass before = trainer.beforeFirstPass();
    while (trainer.isRunning()) {
        const TrainerOrder order = trainer.order();
        const std::uint64_t runUp =
            before.kind == BetweenPasses::RunUp ? runUpFrames(beats, loop.start, before.beats) : 0;
        passes.push_back({.start = loop.start - runUp,
                          .end = loop.end,
                          .rate = static_cast<float>(order.strip.speed / 100.0),
                          .before = leadInOf(before, loop.start, beats)});
        before = order.next;
        trainer.passEnded();
    }
    return passes;
}

double speedOf(const Part &part, const Wanted &wanted, const Heard &heard)
{
    if (!wanted.hasSpeedAndPitch)
        return 100.0;
    return part.speed ? static_cast<double>(*part.speed) : heard.speed;
}

ExportRequest request(const Part &part, const Wanted &wanted, const Heard &heard)
{
    ExportRequest made;
    made.passes = wanted.asLadder ? ladderPasses(part.range, part.trainer, heard.beats)
                                  : repeatedPasses(part, wanted, heard);
    if (wanted.hasSpeedAndPitch)
        made.pitchCents =
            static_cast<float>(part.pitch ? static_cast<double>(*part.pitch) : heard.pitch);
    if (wanted.hasEqualizer)
        made.levels = heard.levels;
    if (wanted.hasChannels)
        made.channels = heard.channels;
    if (wanted.hasClick)
        made.clicks = heard.clicks;
    made.clickSound = heard.clickSound;
    return made;
}

Estimate &Estimate::operator+=(const Estimate &other)
{
    seconds += other.seconds;
    bytes += other.bytes;
    workSeconds += other.workSeconds;
    return *this;
}

Estimate estimate(const ExportRequest &request, std::uint64_t songFrames)
{
    const double seconds = static_cast<double>(exportedFrames(request.passes, songFrames)) / rate;
    return {.seconds = seconds,
            .bytes = seconds * bytesPerSecond[static_cast<std::size_t>(request.format)],
            .workSeconds =
                seconds / (isStretched(request) ? stretchedInASecond : untouchedInASecond)};
}

QString title(const QString &song, const Part &part, const ExportRequest &request)
{
    QString text = part.name.isEmpty() ? song : song + u" - "_s + part.name;
    if (request.passes.empty())
        return text;
    const auto [low, high] = std::ranges::minmax_element(request.passes, {}, &ExportPass::rate);
    if (percentOf(*low) != percentOf(*high))
        text += u" %1-%2 %"_s.arg(percentOf(*low)).arg(percentOf(*high));
    else if (percentOf(*low) != 100)
        text += u" %1 %"_s.arg(percentOf(*low));
    return text;
}

QStringList different(QStringList names)
{
    QSet<QString> taken;
    for (QString &name : names) {
        QString free = withEnding(name, {});
        for (int number = 2; taken.contains(free.toCaseFolded()); ++number)
            free = withEnding(name, u" (%1)"_s.arg(number));
        taken.insert(free.toCaseFolded());
        name = free;
    }
    return names;
}

} // namespace lyrabox::exportPlan
