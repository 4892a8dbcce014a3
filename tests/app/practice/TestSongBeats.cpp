#include "BeatsFixture.h"

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

namespace {

class TheBeatsOfASong : public testing::Test, protected BeatsFixture {
protected:
    /// Whether every beat between two of the song lies within 8 ms of its place.
    void expectBeatsInPlace(int from, int to)
    {
        ASSERT_FALSE(grid().isEmpty());
        for (int beat = from; beat < to; ++beat) {
            const double place = static_cast<double>(beat) * beatFrames;
            const double nearest = grid().frameOfBeats(std::round(grid().beatsAt(place)));
            EXPECT_NEAR(nearest, place, 0.008 * rate) << beat;
            EXPECT_TRUE(grid().isKnown(nearest)) << beat;
        }
    }

    double tempo() { return grid().isEmpty() ? 0.0 : grid().tempoAt(10.0 * rate); }

    /// Beats whose bars 5 to 8 are lost.
    static BeatGrid withGap()
    {
        const auto at = [](std::uint64_t beats) { return beats * beatFrames; };
        return BeatGrid({{.frame = at(0), .bar = 1, .beat = 1},
                         {.frame = at(16), .bar = 5, .beat = 1, .isLost = true},
                         {.frame = at(40), .bar = 11, .beat = 1},
                         {.frame = at(56), .bar = 15, .beat = 1}});
    }
};

TEST_F(TheBeatsOfASong, AreSuggestedAndUsedByNothingUntilConfirmed)
{
    EXPECT_TRUE(grid().isEmpty());
    ASSERT_FALSE(beats().suggestion().isEmpty());
    EXPECT_NEAR(beats().suggestedTempo(), 120.0, 0.2);
    EXPECT_FALSE(store().canUndo());
    beats().useSuggestion();
    ASSERT_FALSE(grid().isEmpty());
    EXPECT_TRUE(beats().suggestion().isEmpty());
    expectBeatsInPlace(2, 56);
    EXPECT_TRUE(store().undo());
    EXPECT_TRUE(grid().isEmpty());
    EXPECT_FALSE(beats().suggestion().isEmpty());
}

TEST_F(TheBeatsOfASong, AreFollowedFromEightTapsAndUndoneInOneStep)
{
    tapBeats(7);
    EXPECT_TRUE(grid().isEmpty());
    EXPECT_NEAR(beats().taps().tempo().value_or(0.0), 120.0, 2.0);
    tapBeats(1, 11);
    ASSERT_FALSE(grid().isEmpty());
    expectBeatsInPlace(2, 56);
    EXPECT_NEAR(tempo(), 120.0, 0.12);
    ASSERT_FALSE(grid().isEmpty());
    const BarPlace tapped = grid().placeAt(4.0 * beatFrames + 500.0);
    EXPECT_EQ(static_cast<int>(tapped.beat), 1) << "the first tap is the first beat of a bar";
    EXPECT_TRUE(beats().lostParts().empty());
    EXPECT_TRUE(store().undo());
    EXPECT_TRUE(grid().isEmpty());
    EXPECT_FALSE(store().canUndo());
}

TEST_F(TheBeatsOfASong, AreStillOneStepAfterSixteenTapsWhoseTempoIsExact)
{
    tapBeats(16);
    EXPECT_NEAR(tempo(), 120.0, 0.12);
    EXPECT_TRUE(store().undo());
    EXPECT_TRUE(grid().isEmpty());
    EXPECT_FALSE(store().canUndo());
}

TEST_F(TheBeatsOfASong, AreTheTappedOnesInSilence)
{
    transport.song->sample = [](std::uint32_t, std::uint64_t) { return 0.0F; };
    transport.load(TransportFixture::track(u"Silence"_s));
    waitForAnalysis();
    EXPECT_TRUE(beats().suggestion().isEmpty());
    tapBeats(8, 4, {0, 15, -15});
    ASSERT_FALSE(grid().isEmpty());
    EXPECT_NEAR(tempo(), 120.0, 2.0);
    EXPECT_TRUE(grid().isKnown(8.0 * beatFrames));
    EXPECT_FALSE(grid().isKnown(30.0 * beatFrames));
    EXPECT_TRUE(beats().lostParts().empty()) << "nothing sounds there";
}

TEST_F(TheBeatsOfASong, DoNotComeFromTapsThatAreNoBeats)
{
    const auto tapEvery = [this](double period, int count) {
        pauseTaps();
        for (int tap = 0; tap < count; ++tap) {
            m_time += period * 1000.0;
            beats().tapAt(static_cast<std::uint64_t>((3.0 + tap * period) * rate), m_time);
        }
        waitForAnalysis();
    };
    tapEvery(3.0, 8);
    EXPECT_EQ(beats().remark(), SongBeats::Remark::TooSlow);
    EXPECT_TRUE(page()->stateText().contains(u"slower than 25 BPM"_s));
    tapEvery(0.1, 8);
    EXPECT_EQ(beats().remark(), SongBeats::Remark::TooFast);
    EXPECT_TRUE(page()->stateText().contains(u"faster than 320 BPM"_s));
    pauseTaps();
    for (int tap = 0; tap < 8; ++tap)
        beats().tapAt(5 * rate, m_time += 500.0);
    EXPECT_EQ(beats().remark(), SongBeats::Remark::TooFewPlaces);
    pauseTaps();
    for (const double place : {3.0, 3.41, 4.3, 4.5, 5.4, 5.75, 6.9, 7.1})
        beats().tapAt(static_cast<std::uint64_t>(place * rate), m_time += 500.0);
    EXPECT_EQ(beats().remark(), SongBeats::Remark::Uneven);
    EXPECT_TRUE(grid().isEmpty());
    EXPECT_FALSE(store().canUndo());
    beats().tap();
    EXPECT_EQ(beats().remark(), SongBeats::Remark::NotPlaying);
}

TEST_F(TheBeatsOfASong, AreJoinedWhereTheyWereLost)
{
    setBeats(withGap());
    EXPECT_EQ(beats().lostParts().size(), 1U);
    tapBeats(8, 20);
    EXPECT_TRUE(beats().lostParts().empty());
    expectBeatsInPlace(1, 56);
    EXPECT_TRUE(store().undo());
    EXPECT_EQ(grid(), withGap());
}

TEST_F(TheBeatsOfASong, GiveWayToTapsAmongThemAndOnlyThere)
{
    // Wrong by a quarter of a beat, and by a beat, up to the gap; right behind it.
    const auto at = [](double beats) { return static_cast<std::uint64_t>(beats * beatFrames); };
    setBeats(BeatGrid({{.frame = at(1.25), .bar = 1, .beat = 1},
                       {.frame = at(17.25), .bar = 5, .beat = 1, .isLost = true},
                       {.frame = at(40), .bar = 11, .beat = 1},
                       {.frame = at(56), .bar = 15, .beat = 1}}));
    tapBeats(8, 8);
    expectBeatsInPlace(2, 56);
    EXPECT_EQ(static_cast<int>(grid().placeAt(at(8) + 500.0).beat), 1);
}

TEST_F(TheBeatsOfASong, AreNotJoinedToAStepOfSomethingElse)
{
    tapBeats(8);
    practice->addMarker(5 * rate, u"Verse"_s);
    tapBeats(8, 13);
    EXPECT_TRUE(store().undo());
    EXPECT_FALSE(grid().isEmpty());
    EXPECT_EQ(practice->record().markers.size(), 1U);
    EXPECT_TRUE(store().undo());
    EXPECT_FALSE(grid().isEmpty());
    EXPECT_TRUE(practice->record().markers.empty());
    EXPECT_TRUE(store().undo());
    EXPECT_TRUE(grid().isEmpty());
}

TEST_F(TheBeatsOfASong, DoNotComeBackByATapAfterAnUndo)
{
    tapBeats(8);
    EXPECT_TRUE(store().undo());
    tapBeats(1, 12);
    EXPECT_TRUE(grid().isEmpty());
    EXPECT_EQ(beats().taps().count(), 1U);
}

TEST_F(TheBeatsOfASong, AreScaledShiftedAndBarredInStepsThatAreUndone)
{
    setBeats(steadyGrid());
    const BeatGrid before = grid();
    beats().scale(BeatScale::Half);
    EXPECT_NEAR(tempo(), 60.0, 0.01);
    EXPECT_TRUE(store().undo());
    beats().scale(BeatScale::Double);
    EXPECT_NEAR(tempo(), 240.0, 0.01);
    EXPECT_TRUE(store().undo());
    beats().scale(BeatScale::ThreeHalves);
    EXPECT_NEAR(tempo(), 180.0, 0.01);
    EXPECT_TRUE(store().undo());
    beats().shift(1);
    EXPECT_EQ(static_cast<int>(grid().placeAt(5.0 * beatFrames + 9.0).beat), 1);
    EXPECT_TRUE(store().undo());
    beats().setBeatsPerBar(3);
    EXPECT_EQ(grid().placeAt(6.0 * beatFrames + 9.0).bar, 3);
    EXPECT_TRUE(store().undo());
    beats().setBeatsPerBar(7, 16 * beatFrames);
    EXPECT_EQ(beats().beatsPerBar(8 * beatFrames), 4);
    EXPECT_EQ(beats().beatsPerBar(20 * beatFrames), 7);
    EXPECT_TRUE(store().undo());
    beats().moveBeat(8 * beatFrames, 8 * beatFrames + 400);
    EXPECT_NEAR(grid().frameOfBeats(8.0), 8.0 * beatFrames + 400.0, 1.0);
    EXPECT_TRUE(store().undo());
    beats().clear();
    EXPECT_TRUE(grid().isEmpty());
    EXPECT_TRUE(store().undo());
    EXPECT_EQ(grid(), before);
}

TEST_F(TheBeatsOfASong, AreLookedForAtATypedTempo)
{
    beats().setTempo(60.0);
    waitForAnalysis();
    EXPECT_TRUE(grid().isEmpty()) << "a guess changes nothing";
    EXPECT_NEAR(beats().suggestedTempo(), 60.0, 0.2);
    setBeats(steadyGrid());
    beats().setTempo(60.0);
    waitForAnalysis();
    EXPECT_NEAR(tempo(), 60.0, 0.1);
    EXPECT_TRUE(store().undo());
    EXPECT_EQ(grid(), steadyGrid());
    beats().setTempo(103.0);
    waitForAnalysis();
    const bool isFound = beats().remark() == SongBeats::Remark::None;
    EXPECT_NEAR(tempo(), isFound ? 103.0 : 120.0, 0.08 * 103.0);
    EXPECT_EQ(grid() == steadyGrid(), !isFound);
}

TEST_F(TheBeatsOfASong, AreNoLongerTappedAfterAPause)
{
    audio().setPlaybackSpeedPct(200.0F);
    audio().setIsRunning(true);
    beats().tap();
    beats().tap();
    EXPECT_EQ(beats().taps().count(), 2U);
    QSignalSpy changed(&beats(), &SongBeats::stateChanged);
    while (beats().taps().count() > 0)
        ASSERT_TRUE(changed.wait());
    audio().setIsRunning(false);
    beats().tap();
    EXPECT_EQ(beats().remark(), SongBeats::Remark::NotPlaying);
    while (beats().remark() != SongBeats::Remark::None)
        ASSERT_TRUE(changed.wait());
}

TEST_F(TheBeatsOfASong, OfAnotherSongAreItsOwn)
{
    tapBeats(5);
    transport.song->frames = 20 * rate;
    transport.load(TransportFixture::track(u"B"_s));
    EXPECT_TRUE(beats().suggestion().isEmpty()) << "the guess was made for the former song";
    EXPECT_EQ(beats().taps().count(), 0U);
    waitForAnalysis();
    EXPECT_FALSE(beats().suggestion().isEmpty());
    EXPECT_LE(beats().suggestion().anchors().back().frame, 20 * rate);
}

TEST_F(TheBeatsOfASong, AreNotLookedForWhileThePaneIsHidden)
{
    pane->hide();
    transport.load(TransportFixture::track(u"B"_s));
    EXPECT_FALSE(beats().isListening());
    EXPECT_TRUE(beats().suggestion().isEmpty());
    pane->show();
    EXPECT_TRUE(beats().isListening());
    waitForAnalysis();
    EXPECT_FALSE(beats().suggestion().isEmpty());
}

TEST_F(TheBeatsOfASong, AreLookedForAgainWhenThePaneWasHiddenMeanwhile)
{
    transport.load(TransportFixture::track(u"B"_s));
    pane->hide();
    pane->show();
    waitForAnalysis();
    EXPECT_FALSE(beats().suggestion().isEmpty());
}

} // namespace
