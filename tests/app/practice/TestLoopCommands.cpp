#include "PracticingFixture.h"
#include "app/practice/LoopCommands.h"
#include "app/practice/SongPeaks.h"

#include <QSignalSpy>

#include <cmath>
#include <numbers>

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;
using Command = PracticeCommand;

namespace {

class TheLoopCommands : public PracticingFixture {
protected:
    TheLoopCommands()
    {
        // A click every half second.
        transport.song->sample = [](std::uint32_t, std::uint64_t frame) {
            const double time = static_cast<double>(frame % (rate / 2)) / rate;
            return static_cast<float>(0.6 * std::exp(-30.0 * time) *
                                      std::sin(2.0 * std::numbers::pi * 1000.0 * time));
        };
        load(u"A"_s);
        peaks.setSong(audio().decodedSong());
    }

    LoopRange player() const { return audio().loop().value_or(LoopRange{0, 0}); }

    SongPeaks peaks;
    LoopCommands commands{&audio(), practice.get(), &peaks};
};

TEST_F(TheLoopCommands, CanDoOnlyWhatApplies)
{
    const auto can = [&](Command command, int argument = 0) {
        return commands.canPerform(command, argument);
    };
    EXPECT_TRUE(can(Command::AddMarker));
    for (const Command command :
         {Command::KeepLoop, Command::KeepSpeed, Command::ForgetSpeed, Command::NextLoop,
          Command::NextMarker, Command::MoveStart, Command::Tidy, Command::SecondHalf,
          Command::PlaySelected, Command::Rename, Command::Remove, Command::Undo, Command::Redo,
          Command::ZoomIn})
        EXPECT_FALSE(can(command)) << static_cast<int>(command);
    EXPECT_FALSE(can(Command::PlayLoop, 1));
    audio().setLoop({10 * rate, 15 * rate});
    EXPECT_TRUE(can(Command::KeepLoop));
    EXPECT_TRUE(can(Command::MoveStart, -10));
    EXPECT_TRUE(can(Command::Tidy));
    EXPECT_FALSE(can(Command::KeepSpeed));
    commands.perform(Command::KeepLoop);
    EXPECT_TRUE(can(Command::PlayLoop, 1));
    EXPECT_FALSE(can(Command::PlayLoop, 2));
    EXPECT_TRUE(can(Command::Remove));
    EXPECT_TRUE(can(Command::Undo));
    EXPECT_TRUE(can(Command::KeepSpeed));
    audio().emptyPlayer();
    EXPECT_FALSE(can(Command::AddMarker));
    EXPECT_FALSE(can(Command::PlayLoop, 1));
}

TEST_F(TheLoopCommands, TellWhenTheyApply)
{
    QSignalSpy changed(&commands, &LoopCommands::changed);
    audio().setLoop({10 * rate, 15 * rate});
    EXPECT_GT(changed.size(), 0);
    changed.clear();
    commands.perform(Command::KeepLoop);
    EXPECT_GT(changed.size(), 0);
}

TEST_F(TheLoopCommands, ANumberCallsItsLoopUpAndPlaysItFromItsStartAgain)
{
    addLoop(30 * rate, 35 * rate);
    const PracticeId first = addLoop(10 * rate, 15 * rate);
    commands.perform(Command::PlayLoop, 1);
    EXPECT_EQ(practice->calledUp(), first);
    audio().setCurrentFrame(14 * rate);
    audio().setPlaybackSpeedPct(60.0F);
    commands.perform(Command::PlayLoop, 1);
    EXPECT_EQ(audio().currentFrame(), 10 * rate);
    EXPECT_EQ(audio().playbackSpeedPct(), 60.0F);
    commands.perform(Command::PlayLoop, 2);
    EXPECT_EQ(player(), (LoopRange{30 * rate, 35 * rate}));
    commands.perform(Command::PlayLoop, 3);
    EXPECT_EQ(player(), (LoopRange{30 * rate, 35 * rate}));
}

TEST_F(TheLoopCommands, TheNextAndThePreviousLoopArePlayed)
{
    const PracticeId first = addLoop(10 * rate, 15 * rate);
    const PracticeId second = addLoop(30 * rate, 35 * rate);
    commands.perform(Command::NextLoop);
    EXPECT_EQ(practice->calledUp(), first);
    commands.perform(Command::NextLoop);
    EXPECT_EQ(practice->calledUp(), second);
    commands.perform(Command::NextLoop);
    EXPECT_EQ(practice->calledUp(), second);
    commands.perform(Command::PreviousLoop);
    EXPECT_EQ(practice->calledUp(), first);
}

TEST_F(TheLoopCommands, MarkersAreSetAtTheHeardFrameAndSought)
{
    audio().setCurrentFrame(20 * rate);
    commands.perform(Command::AddMarker);
    ASSERT_EQ(record().markers.size(), 1U);
    EXPECT_EQ(record().markers.front().at, audio().heardFrame());
    QSignalSpy asked(practice.get(), &SongPractice::nameWanted);
    audio().setCurrentFrame(40 * rate);
    commands.perform(Command::AddNamedMarker);
    ASSERT_EQ(record().markers.size(), 2U);
    ASSERT_EQ(asked.size(), 1);
    EXPECT_EQ(asked.first().first().value<PracticeId>(), record().markers.back().id);
    commands.perform(Command::PreviousMarker);
    EXPECT_EQ(audio().currentFrame(), record().markers.front().at);
    commands.perform(Command::NextMarker);
    EXPECT_EQ(audio().currentFrame(), record().markers.back().at);
}

TEST_F(TheLoopCommands, ANudgeOfAKeptLoopEditsItAndARunOfThemIsOneStep)
{
    const PracticeId loop = addLoop(10 * rate, 15 * rate);
    practice->play(loop);
    for (int press = 0; press < 5; ++press)
        commands.perform(Command::MoveStart, -10);
    EXPECT_EQ(record().loop(loop)->from, 10 * rate - 5 * 441);
    EXPECT_EQ(player().start, 10 * rate - 5 * 441);
    EXPECT_EQ(audio().currentFrame(), player().start);
    commands.perform(Command::MoveEnd, 100);
    EXPECT_EQ(audio().currentFrame(), player().end - rate * 3 / 2);
    commands.perform(Command::Undo);
    EXPECT_EQ(player(), (LoopRange{10 * rate - 5 * 441, 15 * rate}));
    commands.perform(Command::Undo);
    EXPECT_EQ(player(), (LoopRange{10 * rate, 15 * rate}));
    commands.perform(Command::Redo);
    EXPECT_EQ(player().start, 10 * rate - 5 * 441);
}

TEST_F(TheLoopCommands, ARunOfNudgesEndsWithAnyOtherEdit)
{
    const PracticeId loop = addLoop(10 * rate, 15 * rate);
    practice->play(loop);
    commands.perform(Command::MoveLoop, 10);
    practice->rename(loop, u"Solo"_s);
    commands.perform(Command::MoveLoop, 10);
    commands.perform(Command::Undo);
    EXPECT_EQ(record().loop(loop)->from, 10 * rate + 441);
    EXPECT_EQ(record().loop(loop)->name, u"Solo"_s);
    // After an undone step the next nudge is a step of its own, too.
    commands.perform(Command::MoveLoop, 10);
    commands.perform(Command::Undo);
    EXPECT_EQ(record().loop(loop)->from, 10 * rate + 441);
}

TEST_F(TheLoopCommands, ANudgeOfALoopThatIsNotKeptMovesThePlayersLoop)
{
    audio().setLoop({10 * rate, 15 * rate});
    commands.perform(Command::MoveEnd, -100);
    commands.perform(Command::MoveEnd, -100);
    EXPECT_EQ(player(), (LoopRange{10 * rate, 15 * rate - 8820}));
    EXPECT_TRUE(record().loops.empty());
    EXPECT_FALSE(practice->store().canUndo());
}

TEST_F(TheLoopCommands, AShortLoopPlaysFromItsStartAfterItsEndWasMoved)
{
    audio().setLoop({10 * rate, 11 * rate});
    commands.perform(Command::MoveEnd, 10);
    EXPECT_EQ(audio().currentFrame(), 10 * rate);
}

TEST_F(TheLoopCommands, TidyMovesBothEndsToTheClicksTimesTheSpeed)
{
    audio().setPlaybackSpeedPct(50.0F);
    const std::uint64_t late = rate * 6 / 100; // 120 ms at half the speed
    const PracticeId loop = addLoop(10 * rate + late, 12 * rate + late);
    practice->play(loop);
    commands.perform(Command::Tidy);
    constexpr double threeMilliseconds = 0.003 * rate;
    EXPECT_NEAR(static_cast<double>(player().start), 10.0 * rate, threeMilliseconds);
    EXPECT_NEAR(static_cast<double>(player().end), 12.0 * rate, threeMilliseconds);
    EXPECT_EQ(record().loop(loop)->from, player().start);
}

TEST_F(TheLoopCommands, ALoopIsHalvedAndDoubled)
{
    const PracticeId loop = addLoop(10 * rate, 14 * rate);
    practice->play(loop);
    commands.perform(Command::SecondHalf);
    EXPECT_EQ(player(), (LoopRange{12 * rate, 14 * rate}));
    EXPECT_EQ(audio().currentFrame(), 12 * rate);
    commands.perform(Command::TwiceAsLong);
    EXPECT_EQ(player(), (LoopRange{12 * rate, 16 * rate}));
    EXPECT_EQ(record().loop(loop)->to, 16 * rate);
}

TEST_F(TheLoopCommands, SpeedAndPitchAreKeptWithALoopAndForgotten)
{
    const PracticeId loop = addLoop(10 * rate, 14 * rate);
    practice->play(loop);
    audio().setPlaybackSpeedPct(75.0F);
    audio().setPlaybackPitch(100.0F);
    commands.perform(Command::KeepSpeed);
    EXPECT_EQ(record().loop(loop)->speed, 75);
    EXPECT_EQ(record().loop(loop)->pitch, 100);
    EXPECT_TRUE(commands.canPerform(Command::ForgetSpeed));
    commands.perform(Command::ForgetSpeed);
    EXPECT_FALSE(record().loop(loop)->speed);
    EXPECT_FALSE(record().loop(loop)->pitch);
}

TEST_F(TheLoopCommands, WhatIsSelectedIsPlayedNamedAndAskedToBeRemoved)
{
    const PracticeId loop = addLoop(10 * rate, 14 * rate);
    const auto marker = practice->addMarker(20 * rate);
    ASSERT_TRUE(marker); // and selected
    commands.perform(Command::PlaySelected);
    EXPECT_EQ(audio().currentFrame(), 20 * rate);
    EXPECT_FALSE(practice->calledUp());
    QSignalSpy removing(&commands, &LoopCommands::removeWanted);
    commands.perform(Command::Remove);
    EXPECT_EQ(removing.size(), 1);
    practice->select(loop);
    commands.perform(Command::PlaySelected);
    EXPECT_EQ(practice->calledUp(), loop);
    QSignalSpy asked(practice.get(), &SongPractice::nameWanted);
    commands.perform(Command::Rename);
    ASSERT_EQ(asked.size(), 1);
    EXPECT_EQ(asked.first().first().value<PracticeId>(), loop);
    practice->remove(loop);
    EXPECT_TRUE(record().loops.empty());
    EXPECT_EQ(player(), (LoopRange{10 * rate, 14 * rate}));
    practice->select(std::nullopt);
    commands.perform(Command::Remove);
    EXPECT_EQ(removing.size(), 1) << "nothing is selected";
}

} // namespace
