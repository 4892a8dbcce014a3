// Loops and markers in the real program, by mouse and keys, and in the files that it leaves.

#include "practice/PracticeText.h"
#include "program/PaneOnScreen.h"
#include "program/Places.h"

#include <QDir>
#include <QFile>

#include <cmath>
#include <functional>
#include <random>
#include <unistd.h>

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

namespace {

class ProgramWithLoops : public ProgramWithPane {
protected:
    static constexpr double rate = 44100.0;

    QStringList practiceFiles() const
    {
        QStringList files = QDir(settingsFile(u"Practice"_s)).entryList({u"*.json"_s}, QDir::Files);
        files.removeAll(u"Index.json"_s);
        return files;
    }

    /// What the only practice file contains. None if there is no file, or if it is not whole.
    std::optional<PracticeRecord> kept() const
    {
        const QStringList files = practiceFiles();
        if (files.size() != 1)
            return std::nullopt;
        QFile file(settingsFile(u"Practice/"_s + files.first()));
        if (!file.open(QIODevice::ReadOnly))
            return std::nullopt;
        const std::optional<PracticeReading> reading = readPractice(file.readAll());
        return reading && reading->isWhole ? std::optional(reading->record) : std::nullopt;
    }

    bool comesToKeep(const std::function<bool(const PracticeRecord &)> &holds) const
    {
        const bool came = waitUntil([&] {
            const std::optional<PracticeRecord> record = kept();
            return record && holds(*record);
        });
        EXPECT_TRUE(came) << practiceText(kept().value_or(PracticeRecord())).toStdString();
        return came;
    }

    /// Makes a loop of the seconds 10 and 11 and keeps it.
    void keepLoop()
    {
        display.key(u"w"_s);
        display.drag(placeOf(10.02), placeOf(11.95));
        ASSERT_TRUE(hears(stepFrequency(10), 3.0));
        display.key(u"k"_s);
        ASSERT_TRUE(comesToKeep([](const PracticeRecord &record) {
            return record.loops.size() == 1 && record.loops.front().name == u"Loop 1"_s;
        }));
    }

    bool playsTheLoop() const
    {
        return hears(stepFrequency(10), 4.0) && hears(stepFrequency(11), 4.0) &&
               hears(stepFrequency(10), 4.0);
    }
};

TEST_F(ProgramWithLoops, ALoopIsKeptNamedPlayedMovedAndDeletedByKeys)
{
    startAndPlay();
    openPane();
    EXPECT_TRUE(practiceFiles().isEmpty()) << "nothing is written before the first edit";
    keepLoop();
    display.key(u"F2"_s);
    display.key(u"ctrl+a"_s);
    display.type(u"Solo"_s);
    display.key(u"Return"_s);
    ASSERT_TRUE(comesToKeep(
        [](const PracticeRecord &record) { return record.loops.front().name == u"Solo"_s; }));

    display.key(u"l"_s); // clears the loop
    EXPECT_TRUE(hears(stepFrequency(13), 6.0));
    display.key(u"1"_s);
    EXPECT_TRUE(playsTheLoop());

    const std::uint64_t from = kept()->loops.front().from;
    display.key(u"shift+a"_s, 6);
    EXPECT_TRUE(comesToKeep([from](const PracticeRecord &record) {
        return record.loops.front().from == from - 6 * 4410;
    }));
    EXPECT_TRUE(hears(stepFrequency(9), 4.0));
    display.key(u"alt+a"_s);
    EXPECT_TRUE(comesToKeep([from](const PracticeRecord &record) {
        return record.loops.front().from == from - 6 * 4410 - 44;
    }));
    display.key(u"ctrl+z"_s, 2); // a run of moves is one step
    EXPECT_TRUE(comesToKeep(
        [from](const PracticeRecord &record) { return record.loops.front().from == from; }));

    display.key(u"Delete"_s);
    EXPECT_TRUE(comesToKeep([](const PracticeRecord &record) { return record.loops.empty(); }));
    display.key(u"ctrl+z"_s);
    EXPECT_TRUE(comesToKeep([](const PracticeRecord &record) { return record.loops.size() == 1; }));
    EXPECT_EQ(quit(), 0);
}

TEST_F(ProgramWithLoops, EveryOtherKeyAndTheMenuActAsTheGuideSays)
{
    startAndPlay();
    openPane();
    keepLoop();
    display.drag(placeOf(4.02), placeOf(5.95));
    ASSERT_TRUE(hears(stepFrequency(4), 3.0));
    display.key(u"alt+i"_s); // Practice > Keep Loop
    display.key(u"k"_s);
    EXPECT_TRUE(comesToKeep([](const PracticeRecord &record) { return record.loops.size() == 2; }));
    display.key(u"n"_s);
    EXPECT_TRUE(playsTheLoop());
    display.key(u"u"_s); // only the second half
    EXPECT_TRUE(comesToKeep([](const PracticeRecord &record) {
        return std::abs(static_cast<double>(record.loops.back().from) / rate - 11.0) < 0.1;
    }));
    EXPECT_TRUE(hears(stepFrequency(11), 2.0));
    display.key(u"shift+u"_s);
    EXPECT_TRUE(hears(stepFrequency(12), 4.0));
    display.key(u"ctrl+z"_s, 2);
    display.key(u"ctrl+shift+z"_s);
    display.key(u"ctrl+z"_s);
    EXPECT_TRUE(playsTheLoop());
    display.key(u"p"_s);
    EXPECT_TRUE(hears(stepFrequency(4), 3.0));

    display.key(u"minus"_s, 2);
    display.key(u"shift+k"_s);
    EXPECT_TRUE(
        comesToKeep([](const PracticeRecord &record) { return record.loops.front().speed == 90; }));
    display.key(u"0"_s);
    display.key(u"1"_s);
    display.key(u"1"_s); // from its start
    display.key(u"ctrl+shift+k"_s);
    EXPECT_TRUE(
        comesToKeep([](const PracticeRecord &record) { return !record.loops.front().speed; }));

    display.key(u"l"_s); // clears the loop
    display.key(u"shift+m"_s);
    display.type(u"Here"_s);
    display.key(u"Return"_s);
    EXPECT_TRUE(comesToKeep([](const PracticeRecord &record) {
        return record.markers.size() == 1 && record.markers.front().name == u"Here"_s;
    }));
    display.click(placeOf(17.5));
    EXPECT_TRUE(hears(stepFrequency(17), 3.0));
    // The first whole second behind the marker.
    const double marked = std::ceil(static_cast<double>(kept()->markers.front().at) / rate);
    display.key(u"shift+p"_s);
    EXPECT_TRUE(hears(stepFrequency(marked), 3.0));
    EXPECT_EQ(quit(), 0);
}

TEST_F(ProgramWithLoops, EditsOfTheLastMomentAreWrittenAtTheEnd)
{
    startAndPlay();
    openPane();
    display.key(u"m"_s);
    display.key(u"w"_s); // its turn comes after the marker's
    EXPECT_EQ(quit(), 0);
    ASSERT_TRUE(kept());
    EXPECT_EQ(kept()->markers.size(), 1U);
}

TEST_F(ProgramWithLoops, ALoopIsThereAgainAfterTheSongWasRenamedMovedAndCopied)
{
    startAndPlay();
    openPane();
    keepLoop();
    EXPECT_EQ(quit(), 0);
    const QDir folder(homeFolder() + u"/Steps"_s);
    ASSERT_TRUE(folder.exists(u"steps.flac"_s));
    ASSERT_TRUE(QFile::rename(folder.filePath(u"steps.flac"_s), folder.filePath(u"other.flac"_s)));
    start();
    ASSERT_TRUE(waitForSongs(2));
    display.place(mainWindow(), frame);
    doubleClickSong(0);
    ASSERT_TRUE(hears(stepFrequency(0)));
    display.key(u"1"_s);
    EXPECT_TRUE(playsTheLoop()) << "renamed";
    EXPECT_EQ(quit(), 0);

    ASSERT_TRUE(QFile::copy(folder.filePath(u"other.flac"_s), folder.filePath(u"copy.flac"_s)));
    ASSERT_TRUE(QFile::remove(folder.filePath(u"other.flac"_s)));
    start();
    ASSERT_TRUE(waitForSongs(2));
    display.place(mainWindow(), frame);
    doubleClickSong(0);
    ASSERT_TRUE(hears(stepFrequency(0)));
    // The copy is recognised by its sound, in the background.
    EXPECT_TRUE(waitUntil([&] {
        display.key(u"1"_s);
        return hears(stepFrequency(10), 1.0);
    }));
    EXPECT_TRUE(playsTheLoop()) << "copied";
    EXPECT_EQ(quit(), 0);
    EXPECT_EQ(practiceFiles().size(), 1);
}

/// Counts what the user does.
class ProgramWithCountedActions : public ProgramWithLoops {
protected:
    void act(const std::function<void()> &action)
    {
        ++actions;
        action();
    }

    int actions = 0;
};

TEST_F(ProgramWithCountedActions, FromOpeningTheSongToLoopingBars7And8At75PercentInSevenActions)
{
    // A bar is a second long: bar 7 begins at 6 s.
    const QString folder = makeFolder(u"Steps"_s, {{u"Zeta"_s, 250.0, 20.0}});
    addStepSong(folder, u"Steps"_s, seconds);
    showFolder(folder);
    setUserDefault(u"practicePane"_s, false); // else the window grows
    start();
    ASSERT_TRUE(waitForSongs(2));

    act([&] { doubleClickSong(0); });
    ASSERT_TRUE(hears(stepFrequency(0)));
    act([&] { display.key(u"ctrl+3"_s); });
    ASSERT_TRUE(waitUntil([&] {
        return display.screen().pixelColor(place::mainWindow.topLeft() + QPoint(30, 440)) ==
               QColor(Qt::white);
    })) << "the pane is not shown";
    act([&] { display.key(u"w"_s); });
    const auto placeOfBar = [](double bar) {
        return place::mainWindow.topLeft() +
               QPoint(qRound(waveLeft + (bar - 1.0) / seconds * waveWidth), 440);
    };
    act([&] { display.drag(placeOfBar(7.0), placeOfBar(9.0)); });
    ASSERT_TRUE(hears(stepFrequency(6), 3.0));
    act([&] { click(place::speedField.center(), 2); });
    act([&] { display.type(u"75"_s); });
    act([&] { display.key(u"Return"_s); });
    EXPECT_LE(actions, 8);

    // Both bars are heard, nothing else, and each takes 1/0.75 s.
    for (int pass = 0; pass < 2; ++pass) {
        ASSERT_TRUE(hears(stepFrequency(6), 4.0));
        ASSERT_TRUE(hears(stepFrequency(7), 4.0));
        const auto begin = static_cast<double>(recorder->size());
        ASSERT_TRUE(hears(stepFrequency(6), 4.0));
        const double length =
            (static_cast<double>(recorder->size()) - begin) / Recorder::sampleRate;
        EXPECT_NEAR(length, 1.0 / 0.75, 0.2) << "pass " << pass;
    }
    EXPECT_EQ(quit(), 0);
}

TEST_F(ProgramWithLoops, AKillWhileEditingLeavesTheFileOldOrNew)
{
    startAndPlay();
    openPane();
    display.key(u"m"_s);
    ASSERT_TRUE(
        comesToKeep([](const PracticeRecord &record) { return record.markers.size() == 1; }));
    const int rounds = qEnvironmentVariableIntValue("LYRABOX_FAULT_ROUNDS") > 0
                           ? qEnvironmentVariableIntValue("LYRABOX_FAULT_ROUNDS")
                           : 4;
    std::mt19937 dice(18); // chooses the time of the kill, around that of the writing
    std::uniform_int_distribution<useconds_t> moment(1'850'000, 2'150'000);
    for (int round = 0; round < rounds; ++round) {
        const std::size_t before = kept()->markers.size();
        display.key(u"m"_s, 2);
        ::usleep(moment(dice));
        killAtOnce();
        const std::optional<PracticeRecord> record = kept();
        ASSERT_TRUE(record) << "the file is broken in round " << round;
        EXPECT_GE(record->markers.size(), before);
        EXPECT_LE(record->markers.size(), before + 2);
        start();
        ASSERT_TRUE(waitForSongs(2));
        display.place(mainWindow(), frame);
        doubleClickSong(0);
        ASSERT_TRUE(hears(stepFrequency(1)));
    }
    EXPECT_EQ(quit(), 0);
}

} // namespace
