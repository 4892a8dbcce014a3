#include "app/export/ExportPlan.h"
#include "app/practice/MetronomeRules.h"

#include <gtest/gtest.h>

using namespace lyrabox;
using namespace Qt::Literals::StringLiterals;

namespace {

constexpr LoopRange loop{.start = 441'000, .end = 529'200}; // two seconds

/// 120 beats a minute in bars of four, the first one at the start.
BeatGrid beats()
{
    return BeatGrid({{.frame = 0, .bar = 1, .beat = 1, .beatsPerBar = 4},
                     {.frame = 44'100 * 60, .bar = 31, .beat = 1, .beatsPerBar = 4}});
}

TrainerSettings quick()
{
    TrainerSettings settings;
    settings.from = 60;
    settings.to = 80;
    settings.step = 10;
    settings.passes = 2;
    return settings;
}

std::vector<int> speeds(const std::vector<ExportPass> &passes)
{
    std::vector<int> all;
    for (const ExportPass &pass : passes)
        all.push_back(qRound(pass.rate * 100.0F));
    return all;
}

TEST(ALadderAsAFile, HasEachSpeedAsOftenAsItsPassesAndThenEnds)
{
    const std::vector<ExportPass> passes = exportPlan::ladderPasses(loop, quick(), beats());
    EXPECT_EQ(speeds(passes), (std::vector{60, 60, 70, 70, 80, 80}));
    for (const ExportPass &pass : passes) {
        EXPECT_EQ(pass.start, loop.start);
        EXPECT_EQ(pass.end, loop.end);
    }
}

TEST(ALadderAsAFile, HasItsCountInsWhereTheTrainerHasThem)
{
    TrainerSettings settings = quick();
    const auto counted = [&] {
        std::vector<std::uint32_t> clicks;
        for (const ExportPass &pass : exportPlan::ladderPasses(loop, settings, beats()))
            clicks.push_back(pass.before.clickCount);
        return clicks;
    };
    EXPECT_EQ(counted(), (std::vector<std::uint32_t>{4, 0, 4, 0, 4, 0}));
    settings.countInWhen = CountInWhen::EveryPass;
    EXPECT_EQ(counted(), (std::vector<std::uint32_t>{4, 4, 4, 4, 4, 4}));
    settings.countInWhen = CountInWhen::Never;
    EXPECT_EQ(counted(), (std::vector<std::uint32_t>{0, 0, 0, 0, 0, 0}));
    const ExportPass first = exportPlan::ladderPasses(loop, quick(), beats()).front();
    EXPECT_EQ(first.before,
              metronome::countInBefore(beats(), loop.start,
                                       {.unit = CountInLength::Unit::Beats, .amount = 4}));
    EXPECT_EQ(first.before.frames, 88'200U);
}

TEST(ALadderAsAFile, HasRestsAndRunUps)
{
    TrainerSettings settings = quick();
    settings.between = BetweenPasses::Rest;
    std::vector<ExportPass> passes = exportPlan::ladderPasses(loop, settings, beats());
    EXPECT_EQ(passes[0].before.frames, 0U) << "nothing to rest from";
    EXPECT_EQ(passes[1].before.frames, 88'200U);
    EXPECT_EQ(passes[1].before.clickCount, 0U);
    settings.between = BetweenPasses::RunUp;
    passes = exportPlan::ladderPasses(loop, settings, beats());
    EXPECT_EQ(passes[0].start, loop.start - 88'200);
    EXPECT_EQ(passes[0].end, loop.end);
}

TEST(ALadderAsAFile, EndsWhateverFollowsAtItsTopAndWhoeverJudges)
{
    for (const AtTop atTop :
         {AtTop::GoOn, AtTop::Stop, AtTop::NextLoop, AtTop::Again, AtTop::TenMore}) {
        TrainerSettings settings = quick();
        settings.atTop = atTop;
        settings.judging = PassJudging::OnlyRight;
        EXPECT_EQ(exportPlan::ladderPasses(loop, settings, beats()).size(), 6U);
    }
    TrainerSettings settings = quick();
    settings.passes = 1;
    settings.kind = LadderKind::UpAndBack;
    EXPECT_EQ(speeds(exportPlan::ladderPasses(loop, settings, beats())),
              (std::vector{60, 70, 80, 70, 60}));
    settings.kind = LadderKind::TwoUpOneDown;
    EXPECT_EQ(speeds(exportPlan::ladderPasses(loop, settings, beats())).back(), 80);
    settings.kind = LadderKind::Steady;
    EXPECT_EQ(speeds(exportPlan::ladderPasses(loop, settings, beats())), std::vector{60});
}

TEST(ALadderAsAFile, InBeatsPerMinuteNeedsTheBeats)
{
    TrainerSettings settings = quick();
    settings.unit = TempoUnit::BeatsPerMinute;
    EXPECT_TRUE(exportPlan::ladderPasses(loop, settings, {}).empty());
    EXPECT_EQ(speeds(exportPlan::ladderPasses(loop, settings, beats())).front(), 50);
}

TEST(AnExport, IsAsHeardUnlessThatIsNotWanted)
{
    exportPlan::Heard heard{.speed = 75.0,
                            .pitch = -200.0,
                            .channels = {.centre = -100},
                            .beats = beats(),
                            .clicks = std::make_shared<ClickTable>(),
                            .clickSound = {.loudness = 0.25F}};
    heard.levels[5] = 3.0F;
    const exportPlan::Part part{.range = loop};
    ExportRequest request = exportPlan::request(part, {.times = 3}, heard);
    EXPECT_EQ(speeds(request.passes), (std::vector{75, 75, 75}));
    EXPECT_EQ(request.pitchCents, -200.0F);
    EXPECT_EQ(request.levels, heard.levels);
    EXPECT_EQ(request.channels, heard.channels);
    EXPECT_EQ(request.clicks, heard.clicks);
    EXPECT_EQ(request.clickSound, heard.clickSound);
    EXPECT_EQ(request.passes.front().before.frames, 0U) << "no count-in";

    request = exportPlan::request(
        part,
        {.hasSpeedAndPitch = false, .hasEqualizer = false, .hasChannels = false, .hasClick = false},
        heard);
    EXPECT_EQ(speeds(request.passes), std::vector{100});
    EXPECT_EQ(request.pitchCents, 0.0F);
    EXPECT_EQ(request.levels, equalizer::Levels{});
    EXPECT_TRUE(request.channels.isNeutral());
    EXPECT_EQ(request.clicks, nullptr);
}

TEST(AnExport, OfALoopThatKeepsASpeedHasThatSpeed)
{
    const exportPlan::Heard heard{.speed = 75.0, .pitch = 100.0};
    const ExportRequest request =
        exportPlan::request({.range = loop, .speed = 60, .pitch = 0}, {}, heard);
    EXPECT_EQ(speeds(request.passes), std::vector{60});
    EXPECT_EQ(request.pitchCents, 0.0F);
}

TEST(AnExport, HasTheCountInOfTheMetronome)
{
    exportPlan::Heard heard{.beats = beats(), .countIn = CountInSettings{}};
    const exportPlan::Part part{.range = loop};
    ExportRequest request = exportPlan::request(part, {.times = 2}, heard);
    EXPECT_EQ(request.passes[0].before.frames, 88'200U);
    EXPECT_EQ(request.passes[1].before.frames, 0U);
    heard.countIn->when = CountInSettings::When::EveryPass;
    request = exportPlan::request(part, {.times = 2}, heard);
    EXPECT_EQ(request.passes[1].before.frames, 88'200U);
    request = exportPlan::request(part, {.times = 2, .hasClick = false}, heard);
    EXPECT_EQ(request.passes[0].before.frames, 0U);
}

TEST(AnExport, IsToldBeforeWithItsLengthSizeAndTime)
{
    const exportPlan::Heard heard{.speed = 50.0};
    ExportRequest request = exportPlan::request({.range = loop}, {.times = 3}, heard);
    request.format = SongFormat::Wav16;
    const exportPlan::Estimate slow = exportPlan::estimate(request, 44'100 * 60);
    EXPECT_EQ(slow.seconds, 12.0);
    EXPECT_EQ(slow.bytes, 12.0 * 176'400);
    request = exportPlan::request({.range = loop}, {.times = 6, .hasSpeedAndPitch = false}, heard);
    const exportPlan::Estimate untouched = exportPlan::estimate(request, 44'100 * 60);
    EXPECT_EQ(untouched.seconds, 12.0);
    EXPECT_LT(untouched.workSeconds, slow.workSeconds);
    request = exportPlan::request({}, {}, {});
    EXPECT_EQ(exportPlan::estimate(request, 44'100 * 60).seconds, 60.0);
}

TEST(AnExport, IsNamedAfterSongLoopAndSpeed)
{
    const auto title = [](const exportPlan::Part &part, const exportPlan::Wanted &wanted,
                          double speed) {
        const ExportRequest request =
            exportPlan::request(part, wanted, {.speed = speed, .beats = beats()});
        return exportPlan::title(u"Blues"_s, part, request);
    };
    const exportPlan::Part riff{.name = u"Riff"_s, .range = loop, .trainer = quick()};
    EXPECT_EQ(title({}, {}, 100.0), u"Blues"_s);
    EXPECT_EQ(title(riff, {}, 100.0), u"Blues - Riff"_s);
    EXPECT_EQ(title(riff, {}, 75.0), u"Blues - Riff 75 %"_s);
    EXPECT_EQ(title(riff, {.asLadder = true}, 75.0), u"Blues - Riff 60-80 %"_s);
}

TEST(NamesOfFiles, AreMadeDifferentAndFitIntoTheFileSystem)
{
    EXPECT_EQ(exportPlan::different({u"Riff"_s, u"riff"_s, u"Coda"_s, u"Riff"_s}),
              (QStringList{u"Riff"_s, u"riff (2)"_s, u"Coda"_s, u"Riff (3)"_s}));
    EXPECT_EQ(exportPlan::different({u"Riff"_s, u"Riff (2)"_s, u"Riff"_s}),
              (QStringList{u"Riff"_s, u"Riff (2)"_s, u"Riff (3)"_s}));
    const QString longName = QString(u"ü🎵"_s).repeated(100);
    const QStringList names = exportPlan::different({longName, longName + u"b"_s});
    EXPECT_NE(names[0], names[1]);
    EXPECT_TRUE(names[1].endsWith(u" (2)"_s));
    for (const QString &name : names)
        EXPECT_LE(exportFileName(name, SongFormat::Opus, {}).toUtf8().size(), 255);
}

} // namespace
