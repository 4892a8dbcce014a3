#include "practice/PracticeEdits.h"
#include "practice/PracticeText.h"
#include "practice/SoundText.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <gtest/gtest.h>

#include <tuple>
#include <utility>
#include <vector>

using namespace lyrabox;
using namespace Qt::Literals::StringLiterals;

namespace {

/// What is read of the object with these keys, and whether all of it was valid.
std::pair<PracticeSound, bool> read(const QByteArray &keys)
{
    PracticeSound sound;
    const bool isWhole = readSound(QJsonDocument::fromJson('{' + keys + '}').object(), sound);
    return {sound, isWhole};
}

PracticeSound fullSound()
{
    return {.channels = {.mode = ChannelMode::Swapped,
                         .balance = -20,
                         .centre = -80,
                         .centreFrom = 200,
                         .centreUpTo = 7000},
            .tuning = PracticeTuning{.isClear = true,
                                     .tuning = {.cents = -23.4, .lowest = -30.1, .highest = -20.0}},
            .keys = KeyGuess{{.tonic = 9, .isMinor = true}, {.tonic = 0, .isMinor = false}},
            .unknown = QJsonObject{{u"mine"_s, 3}}};
}

TEST(SoundText, ComesBackAsItWasWrittenWithUnknownKeys)
{
    PracticeRecord record;
    record.sound = fullSound();
    const QByteArray text = practiceText(record);
    EXPECT_TRUE(text.contains(R"("sound": {"balance":-20,"centre":-80,"centre from":200,)"
                              R"("centre to":7000,"channels":"swapped","keys":["A minor",)"
                              R"("C major"],"mine":3,"tuning":-23.4,"tuning from":-30.1,)"
                              R"("tuning to":-20})"))
        << text.toStdString();
    const auto reading = readPractice(text);
    ASSERT_TRUE(reading && reading->isWhole);
    EXPECT_EQ(reading->record.sound, record.sound);
}

TEST(SoundText, IsLeftOutWhileEverythingIsNormal)
{
    EXPECT_FALSE(practiceText({}).contains("sound"));
    PracticeSound sound;
    EXPECT_TRUE(readSound(QJsonValue(QJsonValue::Undefined), sound));
    EXPECT_EQ(sound, PracticeSound());
}

TEST(SoundText, KnowsATuningThatIsNotClearFromNone)
{
    PracticeSound sound{.tuning = PracticeTuning{}};
    EXPECT_EQ(soundObject(sound).value("tuning"_L1).toString(), u"not clear"_s);
    EXPECT_EQ(read(R"("tuning": "not clear")").first, sound);
    EXPECT_FALSE(read("").first.tuning);
    EXPECT_TRUE(read(R"("tuning": 12)").first.tuning->isClear);
    EXPECT_FALSE(read(R"("tuning": 12)").first.tuning->tuning.drifts());
}

TEST(SoundText, GivesOddValuesTheNearestMeaningAndSaysSo)
{
    for (const auto &[text, channels] : std::vector<std::pair<QByteArray, ChannelTools>>{
             {R"("balance": 1000)", {.balance = 100}},
             {R"("balance": -1e300)", {.balance = -100}},
             {R"("centre": 0.6)", {.centre = 1}},
             {R"("centre": "50")", {}},
             {R"("centre from": -4)", {.centreFrom = 0}},
             {R"("centre to": 90000)", {.centreUpTo = 20'000}},
             {R"("channels": "upside down")", {}},
             {R"("channels": 4)", {}}}) {
        const auto [sound, isWhole] = read(text);
        EXPECT_FALSE(isWhole) << text.toStdString();
        EXPECT_EQ(sound.channels, channels) << text.toStdString();
        EXPECT_TRUE(sound.unknown.isEmpty());
    }
    EXPECT_FALSE(read(R"("tuning": 70)").second);
    EXPECT_EQ(read(R"("tuning": 70)").first.tuning->tuning.cents, 50.0);
    EXPECT_FALSE(read(R"("tuning": true)").second);
    EXPECT_FALSE(read(R"("tuning to": 4)").second);
    const auto reversed = read(R"("tuning": 5, "tuning from": 9, "tuning to": -9)");
    EXPECT_FALSE(reversed.second);
    EXPECT_FALSE(reversed.first.tuning->tuning.drifts());
    PracticeSound sound;
    EXPECT_FALSE(readSound(QJsonArray(), sound));
}

TEST(SoundText, ReadsKeysInEverySpelling)
{
    for (const auto &[text, tonic, isMinor] :
         std::vector<std::tuple<QByteArray, int, bool>>{{"C major", 0, false},
                                                        {"Cb major", 11, false},
                                                        {"B# minor", 0, true},
                                                        {"F# minor", 6, true},
                                                        {"Ab major", 8, false}}) {
        const auto [sound, isWhole] = read(R"("keys": ["G minor", ")" + text + R"("])");
        EXPECT_TRUE(isWhole);
        ASSERT_TRUE(sound.keys);
        EXPECT_EQ(sound.keys->first, (KeyOfSong{.tonic = 7, .isMinor = true}));
        EXPECT_EQ(sound.keys->second, (KeyOfSong{.tonic = tonic, .isMinor = isMinor}));
    }
    for (const char *text : {"", "C", "C ", "H major", "C## major", "c major", "Cx major", " major",
                             "C Major", "C major "}) {
        const auto [sound, isWhole] = read(R"("keys": ["G minor", ")" + QByteArray(text) + R"("])");
        EXPECT_FALSE(isWhole) << text;
        EXPECT_FALSE(sound.keys) << text;
    }
    EXPECT_FALSE(read(R"("keys": ["C major"])").first.keys);
    EXPECT_FALSE(read(R"("keys": "C major")").first.keys);
}

TEST(SoundText, OfEveryKeyComesBack)
{
    for (int i = 0; i < 24; ++i) {
        const KeyOfSong key{.tonic = i % 12, .isMinor = i >= 12};
        const PracticeSound sound{.keys = KeyGuess{key, transposed(key, 5)}};
        PracticeSound again;
        EXPECT_TRUE(readSound(soundObject(sound), again));
        EXPECT_EQ(again, sound);
    }
}

TEST(PracticeEdits, OfTheChannelsAreUndoneAndRedone)
{
    const ChannelTools first{.mode = ChannelMode::Left};
    const ChannelTools second{.centre = -100};
    PracticeHistory history;
    EXPECT_TRUE(history.apply({PutChannels{first}}));
    EXPECT_TRUE(history.apply({PutChannels{second}}));
    EXPECT_TRUE(history.undo());
    EXPECT_EQ(history.record().sound.channels, first);
    EXPECT_TRUE(history.undo());
    EXPECT_EQ(history.record().sound.channels, ChannelTools());
    EXPECT_TRUE(history.redo());
    EXPECT_TRUE(history.redo());
    EXPECT_EQ(history.record().sound.channels, second);
    const std::uint64_t revision = history.revision();
    EXPECT_TRUE(history.apply({PutChannels{second}}));
    EXPECT_EQ(history.revision(), revision) << "nothing has changed";
}

TEST(PracticeEdits, ARunOfMovesOfTheCentreIsOneStep)
{
    PracticeHistory history;
    EXPECT_TRUE(history.apply({PutChannels{{.centre = -1}}}));
    for (int centre = -2; centre >= -100; --centre)
        EXPECT_TRUE(history.apply({PutChannels{{.centre = centre}}}, PracticeStep::JoinsLast));
    EXPECT_EQ(history.record().sound.channels.centre, -100);
    EXPECT_TRUE(history.undo());
    EXPECT_EQ(history.record().sound.channels.centre, 0);
    EXPECT_FALSE(history.canUndo());
}

TEST(PracticeEdits, BringTheChannelsWithinTheirRanges)
{
    PracticeHistory history;
    EXPECT_TRUE(history.apply({PutChannels{{.balance = 400}}}));
    EXPECT_EQ(history.record().sound.channels.balance, 100);
}

TEST(PracticeEdits, MergeTheChannelsOnlyIfTheyAreNeutral)
{
    PracticeRecord mine;
    PracticeRecord other;
    other.sound.channels.balance = 30;
    ASSERT_EQ(editsThatMerge(mine, other).size(), 1U);
    EXPECT_TRUE(applyEdits(mine, editsThatMerge(mine, other)));
    EXPECT_EQ(mine.sound.channels.balance, 30);
    other.sound.channels.balance = 50;
    EXPECT_TRUE(editsThatMerge(mine, other).empty());
}

TEST(PracticeHistory, NotesFindingsWithoutAStep)
{
    PracticeHistory history;
    history.setFindings(
        PracticeTuning{.isClear = true,
                       .tuning = {.cents = 12.34, .lowest = 12.34, .highest = 12.34}},
        fullSound().keys);
    EXPECT_FALSE(history.canUndo());
    EXPECT_EQ(history.record().sound.tuning->tuning.cents, 12.3);
    EXPECT_EQ(history.record().sound.keys, fullSound().keys);
    EXPECT_TRUE(history.apply({PutChannels{{.centre = 5}}}));
    EXPECT_TRUE(history.undo());
    EXPECT_TRUE(history.record().sound.tuning) << "an undone step leaves them";
}

} // namespace
