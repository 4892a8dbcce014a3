#include "SoundFixture.h"

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

namespace {

class TheTones : public testing::Test, protected SoundFixture {};

TEST_F(TheTones, OfTheSongAreFoundAndNotedInItsRecord)
{
    EXPECT_FALSE(tones.tuning());
    hearSong();
    ASSERT_TRUE(tones.tuning());
    EXPECT_NEAR(tones.tuning()->cents, -23.0, 0.6);
    ASSERT_TRUE(tones.keys());
    EXPECT_EQ(tones.keys()->first, (KeyOfSong{.tonic = 9, .isMinor = true}));
    const PracticeSound &noted = practice->record().sound;
    ASSERT_TRUE(noted.tuning);
    EXPECT_TRUE(noted.tuning->isClear);
    EXPECT_TRUE(noted.keys);
    EXPECT_FALSE(store().canUndo()) << "listening is no step";
    EXPECT_FALSE(sound->isMono());
}

TEST_F(TheTones, ThatTheRecordHasAreNotLookedForAgain)
{
    transport.load(TransportFixture::track(u"A"_s));
    store().setFindings(
        PracticeTuning{.isClear = true, .tuning = {.cents = 12.0, .lowest = 12.0, .highest = 12.0}},
        KeyGuess{.first = {.tonic = 2}, .second = {.tonic = 11, .isMinor = true}});
    pane->show();
    QSignalSpy grown(&pane->peaks(), &SongPeaks::grown);
    while (!pane->peaks().isComplete())
        ASSERT_TRUE(grown.wait());
    ASSERT_TRUE(tones.tuning());
    EXPECT_NEAR(tones.tuning()->cents, 12.0, 1e-9);
    EXPECT_EQ(tones.keys()->first, (KeyOfSong{.tonic = 2}));
}

TEST_F(TheTones, OfTwoEqualChannelsAreMono)
{
    rightShare = 1.0F;
    hearSong();
    EXPECT_TRUE(sound->isMono());
    EXPECT_TRUE(tones.tuning());
    rightShare = 0.5F;
    hearSong(u"B"_s);
    EXPECT_FALSE(sound->isMono());
}

TEST_F(TheTones, OfAnotherSongReplaceThemAndNoSongHasNone)
{
    hearSong();
    cents = 30.0;
    hearSong(u"B"_s);
    EXPECT_NEAR(tones.tuning()->cents, 30.0, 0.6);
    EXPECT_NEAR(practice->record().sound.tuning->tuning.cents, 30.0, 0.6);
    audio().emptyPlayer();
    EXPECT_FALSE(tones.hasSong());
    EXPECT_FALSE(tones.tuning());
    EXPECT_FALSE(tones.keys());
    EXPECT_FALSE(tones.isListening());
}

TEST_F(TheTones, MoveWithThePitchAndAreTunedToTheMusiciansA)
{
    hearSong();
    ASSERT_TRUE(tones.canTune());
    tones.tune();
    EXPECT_NEAR(audio().playbackPitch(), 23.0F, 1.0F);
    EXPECT_FALSE(tones.canTune());
    EXPECT_NEAR(tones.tuning()->cents, 0.0, 0.5);
    EXPECT_EQ(tones.keys()->first.tonic, 9);
    audio().setPlaybackPitch(323.0F);
    EXPECT_EQ(tones.keys()->first.tonic, 0);
    tones.setSettings({.ownA = 442.0});
    EXPECT_TRUE(tones.canTune());
    tones.tune();
    EXPECT_NEAR(audio().playbackPitch(), 331.0F, 1.0F);
}

TEST_F(TheTones, AreNamedAsTheInstrumentReadsThem)
{
    hearSong();
    const KeyGuess inC = *tones.keys();
    EXPECT_EQ(inC.first.tonic, 9);
    for (const auto &[instrument, semitones] : {std::pair(1, 2), {2, 9}, {6 + 2, 12 - 3}}) {
        tones.setSettings({.instrument = instrument});
        EXPECT_EQ(*tones.keys(), (KeyGuess{.first = transposed(inC.first, semitones),
                                           .second = transposed(inC.second, semitones)}))
            << instrument;
    }
}

TEST_F(TheTones, OfDrumsAreNotClear)
{
    transport.song->sample = [](std::uint32_t channel, std::uint64_t frame) {
        std::uint64_t noise = (frame + 1) * 6364136223846793005U + channel;
        noise = (noise ^ (noise >> 33U)) * 0xff51afd7ed558ccdU;
        return static_cast<float>(noise >> 40U) / 16777216.0F - 0.5F;
    };
    hearSong();
    EXPECT_FALSE(tones.tuning());
    EXPECT_FALSE(tones.keys());
    EXPECT_FALSE(tones.canTune());
    ASSERT_TRUE(practice->record().sound.tuning);
    EXPECT_FALSE(practice->record().sound.tuning->isClear);
    EXPECT_EQ(page()->tuningText(), u"Tuning: not clear"_s);
    EXPECT_EQ(page()->keyText(), u"Key: not clear"_s);
}

} // namespace
