#include "PracticingFixture.h"
#include "app/practice/PracticeDiary.h"
#include "engine/ClicksAndLeadIns.h"
#include "platform/foundation/NotificationCenter.h"
#include "platform/foundation/Notifications.h"

#include <QSignalSpy>
#include <QTimeZone>

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;
using Problem = PracticeDiary::Problem;

namespace {

constexpr int patience = 60000;

class TheDiary : public PracticingFixture {
protected:
    TheDiary()
    {
        load(u"A"_s);
        makeDiary();
    }

    ~TheDiary() override { diary.reset(); }

    void makeDiary()
    {
        const PracticeDiary::Clocks clocks{.running = [this] { return now; },
                                           .date = [this] { return begin.addMSecs(now.count()); }};
        diary.reset();
        diary = std::make_unique<PracticeDiary>(&audio(), practice.get(), folder(), clocks);
    }

    QString path() const { return folder() + u"/History.csv"_s; }

    void writeFile(const QByteArray &text) const
    {
        QDir().mkpath(folder());
        QFile file(path());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(text) == text.size());
    }

    /// What another process would read.
    std::vector<PracticeLogLine> lines() const { return PracticeLog(path()).read().lines; }

    /// Waits until the file has so many lines.
    bool hasLines(std::size_t count) const
    {
        return QTest::qWaitFor([&] { return lines().size() == count; }, patience);
    }

    /// Waits until what was asked of the disk before is done.
    PracticeLogReading wholeHistory()
    {
        std::optional<PracticeLogReading> reading;
        diary->read([&](PracticeLogReading result) { reading = std::move(result); });
        EXPECT_TRUE(QTest::qWaitFor([&] { return reading.has_value(); }, patience));
        return reading.value_or(PracticeLogReading());
    }

    PracticeId shortLoop(const QString &name = u"Riff"_s, std::uint64_t from = rate)
    {
        return addLoop(from, from + rate / 10, name);
    }

    /// Plays so many passes to their ends, and a little of the next one.
    void playPasses(int count)
    {
        const std::uint64_t wanted = engine::passes().ended + static_cast<std::uint64_t>(count);
        while (engine::passes().ended < wanted)
            transport.audio.pull(TimePitchUnit::sliceFrames);
        now += count * 100ms;
    }

    std::chrono::milliseconds now{0};
    const QDateTime begin{QDate(2026, 11, 23), QTime(20, 15, 2), QTimeZone(3600)};
    std::unique_ptr<PracticeDiary> diary;
};

TEST_F(TheDiary, HasALineForEachLoopAndSpeed)
{
    const PracticeId loop = shortLoop();
    practice->play(loop);
    playPasses(3);
    now += 20s;
    audio().setPlaybackSpeedPct(75.0F);
    playPasses(2);
    practice->play(shortLoop(u"Ending"_s, 5 * rate));
    playPasses(1);
    diary->save();
    const auto written = lines();
    ASSERT_EQ(written.size(), 3U);
    EXPECT_EQ(written[0], (PracticeLogLine{.at = begin,
                                           .song = u"A"_s,
                                           .loop = u"Riff"_s,
                                           .from = rate,
                                           .to = rate + rate / 10,
                                           .speed = 100.0,
                                           .passes = 3,
                                           .seconds = 20}));
    EXPECT_EQ(written[1].speed, 75.0);
    EXPECT_EQ(written[1].passes, 2);
    EXPECT_EQ(written[1].at, begin.addSecs(20));
    EXPECT_EQ(written[2].loop, u"Ending"_s);
}

TEST_F(TheDiary, WritesALineWhenItEndsAndWhenAPauseBegins)
{
    practice->play(shortLoop());
    playPasses(1);
    audio().setPlaybackSpeedPct(75.0F);
    EXPECT_TRUE(hasLines(1)) << "the program may be killed";
    playPasses(4);
    audio().setIsRunning(false);
    ASSERT_TRUE(hasLines(2));
    EXPECT_EQ(lines()[1].passes, 4);
}

TEST_F(TheDiary, ALineGoesOnAfterAShortPauseAndEndsWithALongOne)
{
    practice->play(shortLoop());
    playPasses(1);
    audio().setIsRunning(false);
    now += PracticeDiary::longPause;
    audio().setIsRunning(true);
    playPasses(2);
    audio().setIsRunning(false);
    ASSERT_EQ(wholeHistory().lines.size(), 1U);
    EXPECT_EQ(lines()[0].passes, 3);
    EXPECT_EQ(lines()[0].seconds, 0) << "a pause is no practice";
    now += PracticeDiary::longPause + 1ms;
    audio().setIsRunning(true);
    playPasses(5);
    diary->save();
    ASSERT_EQ(lines().size(), 2U);
    EXPECT_EQ(lines()[0].passes, 3);
    EXPECT_EQ(lines()[1].passes, 5);
}

TEST_F(TheDiary, ALoopThatIsCalledUpAgainGoesOnWithItsLine)
{
    const PracticeLoop slow{
        .name = u"Slow"_s, .from = rate, .to = rate + rate / 10, .speed = 75, .pitch = 100};
    ASSERT_TRUE(practice->store().apply({PutLoop{slow}}));
    practice->play(slow.id);
    playPasses(2);
    practice->play(slow.id);
    playPasses(1);
    audio().clearLoop();
    now += 5s;
    practice->play(slow.id);
    playPasses(1);
    diary->save();
    ASSERT_EQ(lines().size(), 1U);
    EXPECT_EQ(lines()[0].passes, 4);
}

TEST_F(TheDiary, LeavesOutSpeedsThatWereOnlyPassedThrough)
{
    practice->play(shortLoop());
    playPasses(1);
    for (const float speed : {99.0F, 90.0F, 80.0F}) {
        audio().setPlaybackSpeedPct(speed);
        now += PracticeDiary::shortest - 1ms;
    }
    audio().setPlaybackSpeedPct(70.0F);
    now += PracticeDiary::shortest;
    diary->save();
    ASSERT_EQ(lines().size(), 2U);
    EXPECT_EQ(lines()[1].speed, 70.0);
    EXPECT_EQ(lines()[1].passes, 0);
    EXPECT_EQ(lines()[1].seconds, 10);
}

TEST_F(TheDiary, ALoopThatIsNotKeptIsNotWritten)
{
    audio().setLoop({rate, 2 * rate});
    audio().setIsRunning(true);
    now += 60s;
    diary->save();
    EXPECT_FALSE(QFile::exists(path()));
}

TEST_F(TheDiary, TheEndOfASongEndsItsLine)
{
    practice->play(shortLoop());
    playPasses(2);
    load(u"B"_s);
    EXPECT_EQ(diary->songLine().song, u"B"_s);
    practice->play(shortLoop());
    playPasses(1);
    NotificationCenter::defaultCenter().post(notification::applicationWillTerminate);
    ASSERT_EQ(lines().size(), 2U);
    EXPECT_EQ(lines()[0].song, u"A"_s);
    EXPECT_EQ(lines()[0].passes, 2);
    EXPECT_EQ(lines()[1].song, u"B"_s);
    EXPECT_EQ(lines()[1].passes, 1) << "the end of the program";
}

TEST_F(TheDiary, ALoopHasTheNameAndTheEndsThatItGotWhileItWasPlayed)
{
    const PracticeId loop = shortLoop();
    practice->play(loop);
    playPasses(1);
    practice->rename(loop, u"Turnaround"_s);
    practice->changeLoop({rate, rate + rate / 5}, loopHands::Grip::End);
    playPasses(1);
    diary->save();
    ASSERT_EQ(lines().size(), 1U);
    EXPECT_EQ(lines()[0].loop, u"Turnaround"_s);
    EXPECT_EQ(lines()[0].to, rate + rate / 5);
    EXPECT_EQ(lines()[0].passes, 2);
}

TEST_F(TheDiary, AMissRightAfterThePassIsThatOfTheLineBeforeEvenIfTheSpeedHasChanged)
{
    practice->play(shortLoop());
    playPasses(3);
    audio().setPlaybackSpeedPct(105.0F);
    diary->missed(1.9);
    diary->missed(1.95); // the second one is about the present pass
    playPasses(2);
    diary->save();
    ASSERT_EQ(lines().size(), 2U);
    EXPECT_EQ(lines()[0].passes, 3);
    EXPECT_EQ(lines()[0].missed, 1);
    EXPECT_EQ(lines()[1].passes, 2);
    EXPECT_EQ(lines()[1].missed, 1);
}

TEST_F(TheDiary, AMissLaterThanTwoSecondsIsThatOfThePresentPass)
{
    practice->play(shortLoop());
    playPasses(1);
    diary->missed(2.0);
    playPasses(1);
    EXPECT_EQ(wholeHistory().lines.at(0).missed, 1);
    diary->right(0.5); // the player changes their mind
    EXPECT_EQ(wholeHistory().lines.at(0).missed, 0);
    diary->missed(0.6);
    playPasses(1);
    diary->save();
    EXPECT_EQ(lines().at(0).passes, 3);
    EXPECT_EQ(lines().at(0).missed, 1);
}

TEST_F(TheDiary, PassesWithoutAVerdictDoNotCountIfOnlyRightOnesDo)
{
    diary->setOnlyRightCounts(true);
    const PracticeId loop = shortLoop();
    practice->play(loop);
    playPasses(4);
    EXPECT_FALSE(diary->bestSpeed(*record().loop(loop)));
    diary->right(0.1);
    playPasses(1);
    diary->missed(0.1);
    diary->save();
    EXPECT_EQ(lines().at(0).passes, 2);
    EXPECT_EQ(lines().at(0).missed, 1);
    EXPECT_EQ(diary->bestSpeed(*record().loop(loop)), 100.0);
}

TEST_F(TheDiary, ReadsTheBestSpeedsOfTheFile)
{
    const PracticeId loop = shortLoop();
    const PracticeId other = shortLoop(u"Other"_s);
    PracticeLogLine line{
        .at = begin, .song = u"A"_s, .loop = u"Riff"_s, .speed = 85.0, .passes = 2, .missed = 1};
    QByteArray text = practiceLogHeader() + practiceLogText(line);
    line.speed = 95.0;
    line.missed = 2;
    text += practiceLogText(line);
    line.song = u"B"_s;
    line.missed = 0;
    text += practiceLogText(line);
    writeFile(text);
    makeDiary();
    QSignalSpy changed(diary.get(), &PracticeDiary::bestSpeedsChanged);
    ASSERT_TRUE(changed.wait(patience));
    EXPECT_EQ(diary->bestSpeed(*record().loop(loop)), 85.0);
    EXPECT_FALSE(diary->bestSpeed(*record().loop(other)));

    // What is played now counts as soon as a verdict, a pause or a change tells of it.
    practice->play(loop);
    audio().setPlaybackSpeedPct(90.0F);
    playPasses(1);
    audio().setIsRunning(false);
    EXPECT_EQ(diary->bestSpeed(*record().loop(loop)), 90.0);
    diary->missed(0.1);
    EXPECT_EQ(diary->bestSpeed(*record().loop(loop)), 85.0) << "it was missed after all";
}

TEST_F(TheDiary, LoopsWithoutANameAreToldApartByTheirPlaces)
{
    const PracticeId one = shortLoop({});
    const PracticeId other = shortLoop({}, 9 * rate);
    practice->play(one);
    playPasses(1);
    audio().setIsRunning(false);
    EXPECT_TRUE(diary->bestSpeed(*record().loop(one)));
    EXPECT_FALSE(diary->bestSpeed(*record().loop(other)));
}

TEST_F(TheDiary, TellsThatTheFileCannotBeWrittenAndWritesItLater)
{
    ASSERT_TRUE(QDir().mkpath(path())); // a folder is in the way
    QSignalSpy told(diary.get(), &PracticeDiary::problemChanged);
    practice->play(shortLoop());
    playPasses(1);
    audio().setIsRunning(false);
    ASSERT_TRUE(told.wait(patience));
    EXPECT_EQ(diary->problem(), Problem::NotWritable);
    ASSERT_TRUE(QDir().rmdir(path()));
    audio().setIsRunning(true);
    playPasses(1);
    audio().setIsRunning(false);
    ASSERT_TRUE(told.wait(patience));
    EXPECT_EQ(diary->problem(), Problem::None);
    ASSERT_EQ(lines().size(), 1U);
    EXPECT_EQ(lines()[0].passes, 2);
}

TEST_F(TheDiary, TellsOfLinesThatAreNotUnderstoodUntilTheNextSong)
{
    writeFile(practiceLogHeader() + "a good day\n");
    makeDiary();
    QSignalSpy told(diary.get(), &PracticeDiary::problemChanged);
    ASSERT_TRUE(told.wait(patience));
    EXPECT_EQ(diary->problem(), Problem::PartlyRead);
    load(u"B"_s);
    EXPECT_EQ(diary->problem(), Problem::None);
}

TEST_F(TheDiary, AFileThatWasEditedMeanwhileKeepsWhatTheEditorHasWritten)
{
    practice->play(shortLoop());
    playPasses(2);
    audio().setIsRunning(false);
    ASSERT_TRUE(hasLines(1));
    PracticeLogLine edited = lines().front();
    edited.loop = u"My riff"_s;
    writeFile(practiceLogHeader() + practiceLogText(edited));
    audio().setIsRunning(true);
    playPasses(3);
    diary->save();
    ASSERT_EQ(lines().size(), 2U);
    EXPECT_EQ(lines()[0], edited);
    EXPECT_EQ(lines()[1].passes, 3) << "only those that are not in the file";
}

TEST_F(TheDiary, ForgetsTheFileAndTheBestSpeedsAndBeginsAnew)
{
    const PracticeId loop = shortLoop();
    practice->play(loop);
    playPasses(2);
    audio().setPlaybackSpeedPct(80.0F);
    playPasses(1);
    ASSERT_TRUE(hasLines(1));
    std::optional<bool> isGone;
    diary->forget([&](bool gone) { isGone = gone; });
    EXPECT_FALSE(diary->bestSpeed(*record().loop(loop)));
    ASSERT_TRUE(QTest::qWaitFor([&] { return isGone.has_value(); }, patience));
    EXPECT_TRUE(*isGone);
    EXPECT_FALSE(QFile::exists(path()));
    playPasses(4);
    diary->save();
    ASSERT_EQ(lines().size(), 1U);
    EXPECT_EQ(lines()[0].speed, 80.0);
    EXPECT_EQ(lines()[0].passes, 4);
}

} // namespace
