#include "PracticingFixture.h"
#include "platform/foundation/NotificationCenter.h"
#include "platform/foundation/Notifications.h"

#include <QSignalSpy>

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;
using loopHands::Grip;

namespace {

class TheSongsPractice : public PracticingFixture {};

TEST_F(TheSongsPractice, CreatesNothingBeforeTheFirstEdit)
{
    load(u"A"_s);
    audio().setLoop({rate, 2 * rate});
    practice->store().save();
    practice.reset();
    EXPECT_FALSE(QDir(folder()).exists());
}

TEST_F(TheSongsPractice, IsThereWhenTheLoadOfAKnownSongReturns)
{
    load(u"A"_s);
    addLoop(rate, 2 * rate, u"Kept"_s);
    load(u"B"_s);
    EXPECT_TRUE(record().loops.empty());
    load(u"A"_s);
    ASSERT_EQ(record().loops.size(), 1U);
    EXPECT_EQ(record().loops.front().name, u"Kept"_s);
}

TEST_F(TheSongsPractice, ALoopToTheSongsEndJumpsBackBeforeTheSongEnds)
{
    load(u"A"_s);
    const quint64 total = audio().totalFrames();
    practice->changeLoop({rate, total}, Grip::Nothing);
    ASSERT_TRUE(audio().loop());
    EXPECT_EQ(audio().loop()->end, audio().lastLoopEnd());
    EXPECT_LT(audio().lastLoopEnd(), total);
    ASSERT_TRUE(practice->keepLoop());
    EXPECT_TRUE(practice->calledUp());

    // One from a file may end exactly with the song. It is called up as it is.
    const PracticeLoop whole{.name = u"Whole"_s, .from = 0, .to = total};
    ASSERT_TRUE(practice->store().apply({PutLoop{whole}}));
    ASSERT_TRUE(practice->play(whole.id));
    EXPECT_EQ(practice->calledUp(), whole.id);
    EXPECT_EQ(audio().loop()->end, audio().lastLoopEnd());
    EXPECT_EQ(record().loop(whole.id)->to, total);
}

TEST_F(TheSongsPractice, IsClosedWithItsSong)
{
    load(u"A"_s);
    addLoop(rate, 2 * rate);
    audio().emptyPlayer();
    EXPECT_FALSE(practice->store().hasSong());
    load(u"A"_s);
    EXPECT_EQ(record().loops.size(), 1U);
    transport.song->openStatus = status::fileNotFound;
    EXPECT_NE(transport.load(song(u"B"_s)), 0);
    EXPECT_FALSE(practice->store().hasSong());
}

TEST_F(TheSongsPractice, OpensNoSongWhileThePaneIsClosedAndKeepsTheStepsOfThePresentOne)
{
    load(u"A"_s);
    addLoop(rate, 2 * rate);
    practice->setOpen(false);
    EXPECT_EQ(QDir(folder()).entryList({u"A*.json"_s}).size(), 1) << "edits must be written";
    practice->setOpen(true);
    EXPECT_TRUE(practice->store().canUndo());
    practice->setOpen(false);
    load(u"B"_s);
    EXPECT_FALSE(practice->store().hasSong());
    practice->setOpen(true);
    EXPECT_TRUE(practice->store().hasSong());
    EXPECT_TRUE(record().loops.empty());
}

TEST_F(TheSongsPractice, ASongThatIsLoadedAgainKeepsItsSteps)
{
    load(u"A"_s);
    addLoop(rate, 2 * rate);
    load(u"A"_s);
    EXPECT_EQ(record().loops.size(), 1U);
    EXPECT_TRUE(practice->store().canUndo());
}

TEST_F(TheSongsPractice, IsSavedWhenTheProgramEnds)
{
    load(u"A"_s);
    addLoop(rate, 2 * rate);
    NotificationCenter::defaultCenter().post(notification::applicationWillTerminate);
    EXPECT_EQ(QDir(folder()).entryList({u"A*.json"_s}).size(), 1);
}

TEST_F(TheSongsPractice, ALoopThatIsCalledUpIsTheStateOfTwoPressesOfTheLoopButton)
{
    load(u"A"_s);
    const PracticeId loop = addLoop(10 * rate, 15 * rate);
    audio().setCurrentFrame(30 * rate);
    ASSERT_TRUE(practice->play(loop));
    EXPECT_EQ(practice->calledUp(), loop);
    EXPECT_EQ(practice->selection(), loop);
    EXPECT_EQ(audio().loop(), (LoopRange{10 * rate, 15 * rate}));
    EXPECT_TRUE(audio().loopStartIsSet());
    EXPECT_EQ(audio().loopButton()->state(), 1);
    EXPECT_EQ(audio().currentFrame(), 10 * rate);
}

TEST_F(TheSongsPractice, PlayingALoopStartsAPausedPlayer)
{
    load(u"A"_s);
    const PracticeId loop = addLoop(10 * rate, 15 * rate);
    ASSERT_FALSE(audio().isRunning());
    ASSERT_TRUE(practice->play(loop));
    EXPECT_TRUE(audio().isRunning());
    EXPECT_EQ(audio().playPauseButton()->state(), 1);
}

TEST_F(TheSongsPractice, TheThirdPressOfTheLoopButtonClearsTheLoopAndOnlyUnselectsIt)
{
    load(u"A"_s);
    const PracticeId loop = addLoop(10 * rate, 15 * rate);
    practice->play(loop);
    QSignalSpy changed(practice.get(), &SongPractice::calledUpChanged);
    audio().loopButton()->setState(0);
    audio().loopButtonPressed(audio().loopButton());
    EXPECT_FALSE(practice->calledUp());
    EXPECT_FALSE(practice->selection());
    EXPECT_EQ(changed.size(), 1);
    EXPECT_NE(record().loop(loop), nullptr);
}

TEST_F(TheSongsPractice, ANewLoopUnselectsTheOneThatWasCalledUp)
{
    load(u"A"_s);
    const PracticeId loop = addLoop(10 * rate, 15 * rate);
    practice->play(loop);
    practice->changeLoop({20 * rate, 21 * rate}, Grip::Nothing);
    EXPECT_FALSE(practice->calledUp());
    EXPECT_EQ(audio().loop(), (LoopRange{20 * rate, 21 * rate}));
    EXPECT_EQ(audio().currentFrame(), 20 * rate);
    EXPECT_EQ(record().loop(loop)->from, 10 * rate);
}

TEST_F(TheSongsPractice, MovingTheEndsOfALoopThatIsCalledUpEditsIt)
{
    load(u"A"_s);
    const PracticeId loop = addLoop(10 * rate, 15 * rate);
    practice->play(loop);
    practice->changeLoop({10 * rate, 16 * rate}, Grip::End);
    EXPECT_EQ(record().loop(loop)->to, 16 * rate);
    EXPECT_EQ(audio().loop(), (LoopRange{10 * rate, 16 * rate}));
    EXPECT_EQ(audio().currentFrame(), 16 * rate - rate * 3 / 2);
    EXPECT_EQ(practice->calledUp(), loop);
    ASSERT_TRUE(practice->store().undo());
    EXPECT_EQ(audio().loop(), (LoopRange{10 * rate, 15 * rate})) << "the player must follow";
    EXPECT_EQ(practice->calledUp(), loop);
}

TEST_F(TheSongsPractice, AnEditLeavesTheSelectionAloneThoughALoopIsCalledUp)
{
    load(u"A"_s);
    const PracticeId loop = addLoop(10 * rate, 20 * rate);
    ASSERT_TRUE(practice->play(loop));
    EXPECT_EQ(practice->selection(), loop);
    const auto marker = practice->addMarker(30 * rate);
    ASSERT_TRUE(marker);
    EXPECT_EQ(practice->selection(), marker);
    ASSERT_TRUE(practice->rename(*marker, u"Bridge"_s));
    EXPECT_EQ(practice->selection(), marker);
    practice->changeLoop({.start = 10 * rate, .end = 21 * rate}, loopHands::Grip::End);
    EXPECT_EQ(practice->selection(), marker);
    ASSERT_TRUE(practice->play(loop));
    EXPECT_EQ(practice->selection(), loop);
}

TEST_F(TheSongsPractice, MovingTheEndsOfALoopThatIsNotKeptKeepsNothing)
{
    load(u"A"_s);
    audio().setLoop({10 * rate, 15 * rate});
    practice->changeLoop({9 * rate, 15 * rate}, Grip::Start);
    EXPECT_EQ(audio().loop(), (LoopRange{9 * rate, 15 * rate}));
    EXPECT_EQ(audio().currentFrame(), 9 * rate);
    EXPECT_TRUE(record().loops.empty());
}

TEST_F(TheSongsPractice, ALoopBeyondTheEndOfTheSongIsKeptButNeverCalledUp)
{
    load(u"A"_s);
    const PracticeId loop = addLoop(55 * rate, 61 * rate);
    EXPECT_FALSE(practice->isPlayable(*record().loop(loop)));
    EXPECT_FALSE(practice->play(loop));
    EXPECT_FALSE(audio().loop());
    EXPECT_EQ(record().loops.size(), 1U);
}

TEST_F(TheSongsPractice, SetsTheSpeedAndThePitchThatAreKeptWithALoop)
{
    load(u"A"_s);
    PracticeLoop slow{.from = rate, .to = 2 * rate, .speed = 75, .pitch = -100};
    ASSERT_TRUE(practice->store().apply({PutLoop{slow}}));
    const PracticeId other = addLoop(5 * rate, 6 * rate);
    practice->play(slow.id);
    EXPECT_EQ(audio().playbackSpeedPct(), 75.0F);
    EXPECT_EQ(audio().playbackPitch(), -100.0F);
    practice->play(other);
    EXPECT_EQ(audio().playbackSpeedPct(), 75.0F) << "this loop keeps no speed";
}

TEST_F(TheSongsPractice, TheLoopOfThePlayerIsKeptAndThenCalledUp)
{
    load(u"A"_s);
    EXPECT_FALSE(practice->canKeepLoop());
    audio().setLoop({10 * rate, 15 * rate});
    ASSERT_TRUE(practice->canKeepLoop());
    ASSERT_TRUE(practice->keepLoop());
    ASSERT_EQ(record().loops.size(), 1U);
    EXPECT_EQ(record().loops.front().name, u"Loop 1"_s);
    EXPECT_EQ(practice->calledUp(), record().loops.front().id);
    EXPECT_FALSE(practice->keepLoop()) << "it is kept already";
    ASSERT_TRUE(practice->store().undo());
    EXPECT_FALSE(practice->calledUp());
    EXPECT_EQ(audio().loop(), (LoopRange{10 * rate, 15 * rate})) << "it goes on";
}

TEST_F(TheSongsPractice, ALoopWithoutLengthIsNotKept)
{
    load(u"A"_s);
    audio().setLoop({10 * rate, 10 * rate});
    EXPECT_FALSE(practice->keepLoop());
    EXPECT_TRUE(record().loops.empty());
}

TEST_F(TheSongsPractice, ALoopThatIsRemovedGoesOnAndIsNotKept)
{
    load(u"A"_s);
    const PracticeId loop = addLoop(10 * rate, 15 * rate);
    practice->play(loop);
    ASSERT_TRUE(practice->remove(loop));
    EXPECT_FALSE(practice->calledUp());
    EXPECT_FALSE(practice->selection());
    EXPECT_EQ(audio().loop(), (LoopRange{10 * rate, 15 * rate}));
    EXPECT_TRUE(practice->canKeepLoop());
}

TEST_F(TheSongsPractice, ALoopStaysCalledUpWhenAnotherProgramChangesItsFile)
{
    load(u"A"_s);
    const PracticeId loop = addLoop(10 * rate, 15 * rate, u"Solo"_s);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !practice->store().isIdentifying(); }, 60000));
    practice->store().save();
    practice->play(loop);
    const QString path =
        folder() + u'/' + QDir(folder()).entryList({u"A*.json"_s}).value(0, u"none"_s);
    PracticeFile found = loadPractice(path);
    ASSERT_TRUE(found.reading);
    found.reading->record.markers.push_back({.at = rate, .name = u"Theirs"_s});
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(practiceText(found.reading->record));
    file.close();
    ASSERT_TRUE(QTest::qWaitFor([&] { return record().markers.size() == 1; }, 60000));
    ASSERT_TRUE(practice->calledUp());
    EXPECT_EQ(practice->calledUp(), record().loops.front().id);
    EXPECT_EQ(practice->selection(), practice->calledUp());
}

TEST_F(TheSongsPractice, MarkersAreAddedNamedSoughtAndRemoved)
{
    load(u"A"_s);
    const auto marker = practice->addMarker(20 * rate);
    ASSERT_TRUE(marker);
    EXPECT_EQ(practice->selection(), marker);
    ASSERT_TRUE(practice->rename(*marker, u"Verse"_s));
    EXPECT_EQ(record().markers.front().name, u"Verse"_s);
    ASSERT_TRUE(practice->seekTo(*marker));
    EXPECT_EQ(audio().currentFrame(), 20 * rate);
    ASSERT_TRUE(practice->remove(*marker));
    EXPECT_FALSE(practice->seekTo(*marker));
    EXPECT_FALSE(practice->remove(*marker));
    EXPECT_FALSE(practice->rename(*marker, u"Gone"_s));
}

} // namespace
