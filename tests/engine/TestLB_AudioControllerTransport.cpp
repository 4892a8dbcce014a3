// LB_AudioController's buttons, sliders and fields act on a loaded song.

#include "engine/AudioControllerFixture.h"

#include "platform/foundation/Notifications.h"

#include <gmock/gmock.h>

#include <QTest>

namespace lyrabox::test {
namespace {

using namespace Qt::Literals::StringLiterals;
using testing::Contains;
using testing::ElementsAre;

// Play and loop

TEST_F(AudioController, DescribesASoundProblemAndSignalsItsChanges)
{
    int told = 0;
    QObject::connect(&player, &LB_AudioController::soundProblemChanged, &context, [&] { ++told; });
    loadedTrack();
    EXPECT_EQ(player.soundProblem(), QString());

    transport.audio.failAt(FakeStep::OutputStart, status::soundServerHangs);
    player.setIsRunning(true);
    EXPECT_EQ(player.soundProblem(), u"No sound: the sound server does not answer"_s);
    EXPECT_EQ(told, 0); // the event loop delivers it, whatever the thread
    QCoreApplication::processEvents();
    EXPECT_EQ(told, 1);

    transport.audio.failAt(FakeStep::OutputStart, status::noAudioDevice);
    player.setIsRunning(true);
    EXPECT_EQ(player.soundProblem(), u"Lyrabox cannot build its audio system. (Error 560227702)"_s);
    transport.audio.clearFailures();
    transport.audio.fireDefaultOutputChangedOnThread();
    EXPECT_EQ(player.soundProblem(), QString());
    QCoreApplication::processEvents();
    EXPECT_EQ(told, 3);
}

TEST_F(AudioController, PlayStartsAndPausesALoadedSong)
{
    loadedTrack();
    transport.playPauseButton->setState(1);
    player.playPauseButtonPressed(transport.playPauseButton);
    EXPECT_TRUE(player.isRunning());
    transport.playPauseButton->setState(0);
    player.playPauseButtonPressed(transport.playPauseButton);
    EXPECT_FALSE(player.isRunning());
    EXPECT_EQ(emptyPresses, 0);
}

TEST_F(AudioController, PlayWithNothingLoadedIsOnlyAnnounced)
{
    transport.playPauseButton->setState(1);
    player.playPauseButtonPressed(transport.playPauseButton);
    EXPECT_EQ(emptyPresses, 1);
    EXPECT_FALSE(player.isRunning());
}

TEST_F(AudioController, ThreeLoopClicksMarkCloseAndClear)
{
    loadedTrack();
    player.setCurrentFrame(1000);
    clickLoop();
    EXPECT_EQ(loopImage(), u"LoopButton2"_s);
    EXPECT_TRUE(player.loopStartIsSet());
    EXPECT_FALSE(player.isLooping());

    player.setCurrentFrame(5000);
    clickLoop();
    EXPECT_EQ(player.loopStartFrame(), 1000U);
    EXPECT_EQ(player.loopEndFrame(), 5000U);
    EXPECT_EQ(loopImage(), u"LoopButton3"_s);
    EXPECT_TRUE(player.loopStartIsSet());
    EXPECT_TRUE(player.isLooping());

    clickLoop();
    EXPECT_EQ(loopImage(), u"LoopButton1"_s);
    EXPECT_FALSE(player.loopStartIsSet());
    EXPECT_FALSE(player.isLooping());
    EXPECT_EQ(player.loopStartFrame(), 1000U);
    EXPECT_EQ(player.loopEndFrame(), 5000U);
}

TEST_F(AudioController, ALoopEndBeforeItsStartIsAccepted)
{
    loadedTrack();
    player.setCurrentFrame(5000);
    clickLoop();
    player.setCurrentFrame(1000);
    clickLoop();
    EXPECT_EQ(player.loopStartFrame(), 5000U);
    EXPECT_EQ(player.loopEndFrame(), 1000U);
    EXPECT_TRUE(player.isLooping());
}

TEST_F(AudioController, ResetClearsLoopSpeedPitchAndEnd)
{
    loadedTrack();
    clickLoop();
    player.setCurrentFrame(4000);
    clickLoop();
    player.setPlaybackSpeedPct(50.0F);
    player.setPlaybackPitch(-700.0F);
    player.setTrackHasEnded(true);
    player.resetPlaybackSystem();
    EXPECT_FALSE(player.trackHasEnded());
    EXPECT_EQ(transport.loopButton->state(), 0);
    EXPECT_EQ(player.loopStartFrame(), 0U);
    EXPECT_EQ(player.loopEndFrame(), 0U);
    EXPECT_FALSE(player.isLooping());
    EXPECT_FALSE(player.loopStartIsSet());
    EXPECT_EQ(loopImage(), u"LoopButton1"_s);
    EXPECT_EQ(player.playbackSpeedPct(), 100.0F);
    EXPECT_EQ(player.playbackPitch(), 0.0F);
}

// Speed and pitch

TEST_F(AudioController, SpeedIsAPercentageOfTheRate)
{
    player.setPlaybackSpeedPct(50.0F);
    EXPECT_EQ(player.playbackSpeedPct(), 50.0F);
    EXPECT_EQ(transport.audio.timePitchParameter(parameter::rate), 0.5F);
    EXPECT_EQ(transport.playbackSpeedSlider->floatValue(), 50.0F);
    EXPECT_EQ(transport.playbackSpeedTextField->floatValue(), 50.0F);
}

TEST_F(AudioController, PitchIsReadInWholeCents)
{
    player.setPlaybackPitch(150.7F);
    EXPECT_EQ(player.playbackPitch(), 150.0F);
    EXPECT_EQ(transport.audio.timePitchParameter(parameter::pitch), 150.7F);
    player.setPlaybackPitch(-150.7F);
    EXPECT_EQ(player.playbackPitch(), -150.0F);
}

TEST_F(AudioController, SpeedStepsExactlyAndStaysWithinTheSlider)
{
    const auto press = [this](int tag) {
        transport.playbackSpeedMatrix->pressCellWithTag(tag);
        player.speedButtonPressed(transport.playbackSpeedMatrix);
    };
    press(2);
    EXPECT_EQ(player.playbackSpeedPct(), 105.0F);
    press(0);
    press(0);
    EXPECT_EQ(player.playbackSpeedPct(), 95.0F);
    press(1);
    EXPECT_EQ(player.playbackSpeedPct(), 100.0F);
    player.setPlaybackSpeedPct(200.0F);
    press(2);
    EXPECT_EQ(player.playbackSpeedPct(), 200.0F);
    player.setPlaybackSpeedPct(12.0F);
    press(0);
    EXPECT_EQ(player.playbackSpeedPct(), 10.0F);
}

TEST_F(AudioController, PitchStepsFromWholeCentsAndStaysWithinTheSlider)
{
    const auto press = [this](int tag) {
        transport.playbackPitchMatrix->pressCellWithTag(tag);
        player.pitchButtonPressed(transport.playbackPitchMatrix);
    };
    player.setPlaybackPitch(50.7F);
    press(2);
    EXPECT_EQ(transport.audio.timePitchParameter(parameter::pitch), 150.0F);
    press(1);
    EXPECT_EQ(player.playbackPitch(), 0.0F);
    player.setPlaybackPitch(-2400.0F);
    press(0);
    EXPECT_EQ(player.playbackPitch(), -2400.0F);
}

TEST_F(AudioController, SlidersSetTheirProperty)
{
    transport.playbackSpeedSlider->setFloatValue(133.0);
    player.speedSliderMoved(transport.playbackSpeedSlider);
    EXPECT_EQ(player.playbackSpeedPct(), 133.0F);
    EXPECT_EQ(transport.playbackSpeedTextField->floatValue(), 133.0F);
    transport.playbackPitchSlider->setFloatValue(-310.0);
    player.pitchSliderMoved(transport.playbackPitchSlider);
    EXPECT_EQ(player.playbackPitch(), -310.0F);
}

TEST_F(AudioController, TypedSpeedIsClampedAndKeepsItsFraction)
{
    const auto type = [this](const QString &text) {
        transport.playbackSpeedTextField->setText(text);
        player.speedTextChanged(transport.playbackSpeedTextField);
    };
    type(u"62.5"_s);
    EXPECT_EQ(player.playbackSpeedPct(), 62.5F);
    type(u"1000"_s);
    EXPECT_EQ(player.playbackSpeedPct(), 200.0F);
    type(u"-5"_s);
    EXPECT_EQ(player.playbackSpeedPct(), 10.0F);
}

TEST_F(AudioController, RestoresTheFieldAfterATypedSpeedThatIsNotANumberOrIsZero)
{
    player.setPlaybackSpeedPct(80.0F);
    for (const QString &text : {u"fast"_s, u"0"_s, u""_s}) {
        transport.playbackSpeedTextField->setText(text);
        player.speedTextChanged(transport.playbackSpeedTextField);
        EXPECT_EQ(player.playbackSpeedPct(), 80.0F);
        EXPECT_EQ(transport.playbackSpeedTextField->floatValue(), 80.0F);
    }
}

TEST_F(AudioController, RestoresTheFieldAfterATypedPitchOfZero)
{
    player.setPlaybackPitch(300.0F);
    transport.playbackPitchTextField->setText(u"0"_s);
    player.pitchTextChanged(transport.playbackPitchTextField);
    EXPECT_EQ(player.playbackPitch(), 300.0F);
    EXPECT_EQ(transport.playbackPitchTextField->floatValue(), 300.0F);
    transport.playbackPitchTextField->setText(u"-9999"_s);
    player.pitchTextChanged(transport.playbackPitchTextField);
    EXPECT_EQ(player.playbackPitch(), -2400.0F);
}

TEST_F(AudioController, AStepButtonFirstEntersTheTypedText)
{
    QObject::connect(transport.playbackSpeedTextField, &NumberField::entered, &player,
                     &LB_AudioController::speedTextChanged);
    transport.window.show();
    transport.window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&transport.window));
    transport.playbackSpeedTextField->setFocus();
    transport.playbackSpeedTextField->selectAll();
    QTest::keyClicks(transport.playbackSpeedTextField, u"50"_s);
    EXPECT_EQ(player.playbackSpeedPct(), 100.0F);

    transport.playbackSpeedMatrix->pressCellWithTag(2);
    player.speedButtonPressed(transport.playbackSpeedMatrix);
    EXPECT_EQ(player.playbackSpeedPct(), 55.0F);
    EXPECT_FALSE(transport.playbackSpeedTextField->hasFocus());
}

TEST_F(AudioController, ASliderMovedByKeysKeepsTheKeyboard)
{
    transport.window.show();
    transport.window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&transport.window));
    transport.playbackPitchSlider->setFocus();
    ASSERT_TRUE(transport.playbackPitchSlider->hasFocus());
    player.pitchSliderMoved(transport.playbackPitchSlider);
    EXPECT_TRUE(transport.playbackPitchSlider->hasFocus());
}

TEST_F(AudioController, EqualizerLevelsReachTheirParameter)
{
    player.setEqLevelForIndex(-6.5F, 14);
    EXPECT_EQ(player.eqLevelForIndex(14), -6.5F);
    EXPECT_EQ(transport.audio.equalizerParameter(14), -6.5F);
}

// Position

TEST_F(AudioController, SecondsAreWholeAndWritingThemDoesNotSeek)
{
    transport.song->frames = 88199;
    loadedTrack();
    EXPECT_EQ(player.totalSeconds(), 1);
    player.setCurrentFrame(44099);
    EXPECT_EQ(player.currentSeconds(), 0);
    player.setCurrentFrame(44100);
    EXPECT_EQ(player.currentSeconds(), 1);
    player.setCurrentSeconds(0);
    EXPECT_EQ(player.currentSeconds(), 1);
    EXPECT_EQ(player.currentFrame(), 44100U);
    EXPECT_EQ(player.audioBufferFormat().mSampleRate, 44100.0);
}

// Song settings

TEST_F(AudioController, SavedSettingsMarkTheSong)
{
    const auto record = loadedTrack();
    player.setPlaybackSpeedPct(75.0F);
    player.setPlaybackPitch(100.0F);
    player.saveSettings();
    EXPECT_TRUE(record->hasSettings);
    EXPECT_EQ(settingsImage(), u"SettingsButtonOn"_s);
    EXPECT_EQ(transport.settings.valuesForInode(record->inode),
              (SongValues{.speed = 75.0F, .pitch = 100.0F}));
}

TEST_F(AudioController, SavingNormalSpeedAndPitchLeavesTheSongWithoutSettings)
{
    const auto record = loadedTrack();
    player.saveSettings();
    EXPECT_FALSE(record->hasSettings);
    EXPECT_EQ(settingsImage(), u"SettingsButtonOff"_s);
    EXPECT_FALSE(transport.settings.hasSettingsForInode(record->inode));
}

TEST_F(AudioController, RemovingSettingsKeepsThePlayingSpeed)
{
    const auto record = loadedTrack();
    player.setPlaybackSpeedPct(75.0F);
    player.saveSettings();
    player.removeSettings();
    EXPECT_FALSE(record->hasSettings);
    EXPECT_EQ(settingsImage(), u"SettingsButtonOff"_s);
    EXPECT_FALSE(transport.settings.hasSettingsForInode(record->inode));
    EXPECT_EQ(player.playbackSpeedPct(), 75.0F);
}

TEST_F(AudioController, SignalsStoredAndRemovedSettingsAfterUpdatingTheRecord)
{
    const auto record = loadedTrack();
    std::vector<bool> told;
    QObject::connect(&player, &LB_AudioController::songSettingsShown, &context,
                     [&] { told.push_back(record->hasSettings); });
    player.setPlaybackSpeedPct(75.0F);
    player.saveSettings();
    player.removeSettings();
    EXPECT_THAT(told, ElementsAre(true, false));
}

TEST_F(AudioController, SettingsOfNoSongAreNotStored)
{
    int changes = 0;
    observe(notification::songSettingsChanged, changes);
    player.saveSettings();
    player.removeSettings();
    EXPECT_EQ(changes, 0);
}

} // namespace
} // namespace lyrabox::test
