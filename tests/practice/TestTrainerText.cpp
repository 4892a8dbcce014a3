#include "practice/PracticeText.h"
#include "practice/TrainerText.h"

#include <QJsonDocument>

#include <gtest/gtest.h>

namespace lyrabox {
namespace {

TrainerReading readingOf(const QByteArray &json)
{
    return readTrainer(QJsonDocument::fromJson(json).object());
}

TEST(TrainerText, ReadsWhatItWrites)
{
    const TrainerSettings all{.kind = LadderKind::TwoUpOneDown,
                              .unit = TempoUnit::BeatsPerMinute,
                              .from = 61,
                              .to = 122,
                              .step = 3,
                              .passes = 4,
                              .counting = PassCounting::InAll,
                              .afterMiss = AfterMiss::ToStart,
                              .atTop = AtTop::TenMore,
                              .judging = PassJudging::OnlyRight,
                              .between = BetweenPasses::RunUp,
                              .countInWhen = CountInWhen::EveryPass,
                              .beats = 8};
    EXPECT_EQ(trainerObject(all).size(), 13);
    const TrainerReading reading = readTrainer(trainerObject(all));
    EXPECT_EQ(reading.settings, all);
    EXPECT_TRUE(reading.isWhole);
    EXPECT_TRUE(trainerObject({}).isEmpty());
    EXPECT_EQ(readTrainer({}).settings, TrainerSettings{});
    EXPECT_TRUE(readTrainer({}).isWhole);
}

TEST(TrainerText, GivesOddValuesTheNearestMeaningAndSaysSo)
{
    const TrainerSettings normal;
    for (const auto &[text, expected] : std::vector<std::pair<QByteArray, TrainerSettings>>{
             {R"({"kind": "sideways"})", normal},
             {R"({"kind": 3})", normal},
             {R"({"from": 100, "to": 60})", {.from = 60, .to = 100}},
             {R"({"from": 5, "to": 500})", {.from = 10, .to = 200}},
             {R"({"from": "60"})", normal},
             {R"({"step": 2.6})", {.step = 3}},
             {R"({"step": 1e300})", normal},
             {R"({"passes": 0})", {.passes = 1}},
             {R"({"beats": null})", normal},
         }) {
        const TrainerReading reading = readingOf(text);
        EXPECT_EQ(reading.settings, expected) << text.toStdString();
        EXPECT_FALSE(reading.isWhole) << text.toStdString();
    }
}

TEST(TrainerText, IsPartOfALoopInAPracticeFile)
{
    PracticeRecord record;
    record.loops.push_back({.from = 44100, .to = 88200});
    record.loops.push_back({.from = 44100, .to = 99000});
    record.loops[0].trainer = TrainerSettings{.from = 50, .atTop = AtTop::Again};
    record.loops[1].trainer = TrainerSettings{};
    const QByteArray text = practiceText(record);
    EXPECT_TRUE(text.contains(R"("trainer": {"at the top":"again","from":50})"))
        << text.toStdString();
    const auto reading = readPractice(text);
    ASSERT_TRUE(reading);
    EXPECT_TRUE(reading->isWhole);
    EXPECT_EQ(reading->record.loops[0].trainer, record.loops[0].trainer);
    EXPECT_EQ(reading->record.loops[1].trainer, TrainerSettings{});
    EXPECT_EQ(practiceText(reading->record), text);
}

TEST(TrainerText, OfAnotherTypeIsLeftOutAndNotWhole)
{
    const auto reading = readPractice(
        R"({"lyrabox practice": 1, "loops": [{"from": "0:01.0", "to": "0:02.0", "trainer": 5}]})");
    ASSERT_TRUE(reading);
    EXPECT_FALSE(reading->record.loops.at(0).trainer);
    EXPECT_FALSE(reading->isWhole);
}

TEST(TrainerText, OfEveryLoopCountsForTheLimitOfTheFile)
{
    PracticeRecord record;
    record.loops.assign(
        PracticeLimits::loops,
        {.name = QString(200, u'\u4e16'), .from = 1, .to = 2, .note = QString(400, u'\u4e16')});
    for (PracticeLoop &loop : record.loops)
        loop.trainer = TrainerSettings{.kind = LadderKind::TwoUpOneDown, .from = 61, .passes = 9};
    EXPECT_EQ(fitsIntoFile(record), practiceText(record).size() <= PracticeLimits::fileBytes);
}

} // namespace
} // namespace lyrabox
