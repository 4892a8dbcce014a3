#include "app/practice/SongSound.h"

#include "PracticingFixture.h"
#include "engine/SongChannels.h"

#include <QSignalSpy>

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

namespace {

constexpr ChannelTools withoutMiddle{.centre = -100};

class TheSound : public PracticingFixture {
protected:
    TheSound() { sound = std::make_unique<SongSound>(&audio(), practice.get()); }

    PracticeStore &store() const { return practice->store(); }
    static ChannelTools heard() { return engine::channelTools(); }

    void play() const
    {
        transport.playPauseButton->setState(1);
        audio().playPauseButtonPressed(transport.playPauseButton);
    }

    std::unique_ptr<SongSound> sound;
};

TEST_F(TheSound, IsThatOfTheSongUntilSomethingIsChanged)
{
    EXPECT_FALSE(sound->canChange()) << "there is no song";
    EXPECT_FALSE(sound->change(withoutMiddle));
    load(u"A"_s);
    EXPECT_TRUE(sound->canChange());
    EXPECT_TRUE(heard().isNeutral());
    EXPECT_FALSE(store().canUndo());
    EXPECT_TRUE(sound->change({.mode = ChannelMode::Left, .balance = 130}));
    EXPECT_EQ(heard(), (ChannelTools{.mode = ChannelMode::Left, .balance = 100}));
    EXPECT_EQ(sound->tools(), heard());
}

TEST_F(TheSound, IsTakenBackAndMadeAgainStepByStep)
{
    load(u"A"_s);
    QSignalSpy changed(sound.get(), &SongSound::changed);
    sound->change({.mode = ChannelMode::Mono});
    sound->change({.mode = ChannelMode::Swapped});
    EXPECT_GE(changed.count(), 2);
    store().undo();
    EXPECT_EQ(heard().mode, ChannelMode::Mono);
    store().undo();
    EXPECT_EQ(heard().mode, ChannelMode::Both);
    store().redo();
    EXPECT_EQ(heard().mode, ChannelMode::Mono);
}

TEST_F(TheSound, OfADragIsOneStepAndTakesNoOtherStepWithIt)
{
    load(u"A"_s);
    practice->addMarker(1000);
    for (int centre = -10; centre >= -50; centre -= 10)
        sound->change({.centre = centre}, PracticeStep::JoinsLast);
    ASSERT_EQ(heard().centre, -50);
    store().undo();
    EXPECT_TRUE(heard().isNeutral());
    EXPECT_EQ(record().markers.size(), 1U) << "the marker is a step of its own";
    sound->change({.centre = 20});
    practice->addMarker(2000);
    sound->change({.centre = 30}, PracticeStep::JoinsLast);
    store().undo();
    EXPECT_EQ(heard().centre, 20);
    EXPECT_EQ(record().markers.size(), 2U);
}

TEST_F(TheSound, OfAKeptSongIsThereBeforeItStarts)
{
    load(u"A"_s);
    sound->change(withoutMiddle);
    load(u"B"_s);
    EXPECT_TRUE(heard().isNeutral());
    play();
    std::vector<ChannelTools> atStart;
    QObject::connect(&audio(), &LB_AudioController::runningChanged, sound.get(), [&](bool runs) {
        if (runs)
            atStart.push_back(heard());
    });
    load(u"A"_s);
    ASSERT_EQ(atStart.size(), 1U);
    EXPECT_EQ(atStart.front(), withoutMiddle);
    // The engine forgets the tools with every load, also that of the same song.
    load(u"A"_s);
    EXPECT_EQ(heard(), withoutMiddle);
    EXPECT_EQ(atStart.back(), withoutMiddle);
    load(u"B"_s);
    EXPECT_TRUE(atStart.back().isNeutral());
    audio().emptyPlayer();
    EXPECT_TRUE(heard().isNeutral());
}

TEST_F(TheSound, GoesOnWhenThePaneIsClosedUntilAnotherSongIsLoaded)
{
    load(u"A"_s);
    sound->change(withoutMiddle);
    practice->setOpen(false);
    EXPECT_EQ(heard(), withoutMiddle);
    load(u"A"_s);
    EXPECT_TRUE(heard().isNeutral()) << "its record is not open";
    practice->setOpen(true);
    EXPECT_EQ(heard(), withoutMiddle);
}

TEST_F(TheSound, IsTheOriginalWhileThatIsCompared)
{
    load(u"A"_s);
    sound->hearOriginal(true);
    EXPECT_FALSE(sound->originalIsHeard()) << "there is nothing to compare";
    sound->change(withoutMiddle);
    sound->hearOriginal(true);
    EXPECT_TRUE(heard().isNeutral());
    EXPECT_TRUE(sound->tools().isNeutral());
    EXPECT_EQ(sound->kept(), withoutMiddle);
    practice->addMarker(1000);
    EXPECT_TRUE(sound->originalIsHeard()) << "a marker changes no sound";
    sound->hearOriginal(false);
    EXPECT_EQ(heard(), withoutMiddle);
    sound->hearOriginal(true);
    sound->change({.centre = -80});
    EXPECT_FALSE(sound->originalIsHeard());
    EXPECT_EQ(heard().centre, -80);
    sound->hearOriginal(true);
    load(u"B"_s);
    load(u"A"_s);
    EXPECT_FALSE(sound->originalIsHeard());
    EXPECT_EQ(heard().centre, -80);
}

TEST_F(TheSound, HasNoCentreToFilterInAMonoSong)
{
    load(u"A"_s);
    EXPECT_FALSE(sound->isMono());
    sound->change({.balance = 30, .centre = -100});
    const auto former = audio().decodedSong();
    sound->noteMono(former);
    EXPECT_TRUE(sound->isMono());
    EXPECT_EQ(heard(), (ChannelTools{.balance = 30}));
    EXPECT_EQ(sound->kept().centre, -100) << "the record stays";
    load(u"B"_s);
    EXPECT_FALSE(sound->isMono());
    sound->noteMono(former);
    EXPECT_FALSE(sound->isMono()) << "that was another song";
}

TEST_F(TheSound, GetsItsCentreBackWithTheValueThatItHad)
{
    load(u"A"_s);
    sound->toggleCentre();
    EXPECT_EQ(heard().centre, -100);
    sound->change({.centre = 60});
    sound->toggleCentre();
    EXPECT_EQ(heard().centre, 0);
    sound->toggleCentre();
    EXPECT_EQ(heard().centre, 60);
    load(u"B"_s);
    sound->toggleCentre();
    EXPECT_EQ(heard().centre, -100) << "the other song's value is not its own";
}

TEST_F(TheSound, IsTheOriginalAgainWithoutItsOwner)
{
    load(u"A"_s);
    sound->change(withoutMiddle);
    sound.reset();
    EXPECT_TRUE(heard().isNeutral());
}

} // namespace
