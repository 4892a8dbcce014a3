// Long because it goes through one controller, whose operations share a fixture and a state.

#include "support/TransportFixture.h"

#include "platform/foundation/NotificationCenter.h"
#include "platform/foundation/Notifications.h"
#include "platform/foundation/UserDefaults.h"
#include "platform/ui/Theme.h"

#include <gmock/gmock.h>

#include <QApplication>
#include <QBuffer>
#include <QMessageBox>
#include <QTest>
#include <QTimer>

#include <limits>

namespace lyrabox::test {
namespace {

using namespace Qt::Literals::StringLiterals;
using testing::Contains;
using testing::ElementsAre;

class AudioController : public testing::Test {
protected:
    AudioController()
    {
        observe(notification::currentTrackChanged, trackChanges);
        observe(notification::playPressedOnEmpty, emptyPresses);
    }
    ~AudioController() override { NotificationCenter::defaultCenter().removeObserver(&context); }

    void observe(const QString &name, int &count)
    {
        NotificationCenter::defaultCenter().addObserver(&context, name, [&count] { ++count; });
    }

    QString settingsImage() const { return transport.settingsPopup->firstItemImage().name(); }
    QString loopImage() const { return transport.loopButton->image().name(); }

    /// What a click on the loop button does.
    void clickLoop()
    {
        transport.loopButton->click();
        player.loopButtonPressed(transport.loopButton);
    }

    TrackRecordRef loadedTrack(const QString &title = u"Song"_s)
    {
        auto record = TransportFixture::track(title);
        EXPECT_EQ(transport.load(record), 0);
        return record;
    }

    QObject context;
    int trackChanges = 0;
    int emptyPresses = 0;
    TransportFixture transport;
    LB_AudioController &player = *transport.controller;
};

// Building

class AudioControllerBuild : public testing::Test {
protected:
    ~AudioControllerBuild() override
    {
        engine::tearDownAudioSystem();
        engine::setAudioUnitFactory({});
    }
};

TEST_F(AudioControllerBuild, AFailureIsShownAndEndsTheProgram)
{
    FakeAudio audio;
    engine::setAudioUnitFactory(audio.factory());
    audio.failAt(FakeStep::OutputInitialize, -10875);
    std::vector<std::string> events;
    const LB_AudioController controller({
        .present =
            [&](const QString &description, const QString &suggestion) {
                events.push_back(description.toStdString());
                events.push_back(suggestion.toStdString());
            },
        .terminate = [&] { events.emplace_back("terminate"); },
    });
    EXPECT_THAT(events, ElementsAre("Lyrabox cannot build its audio system. (Error -10875)",
                                    "The program will now terminate", "terminate"));
}

TEST_F(AudioControllerBuild, SuccessShowsNothing)
{
    FakeAudio audio;
    engine::setAudioUnitFactory(audio.factory());
    bool failed = false;
    const LB_AudioController controller(
        {.present = [&](const QString &, const QString &) { failed = true; },
         .terminate = [&] { failed = true; }});
    EXPECT_FALSE(failed);
}

TEST_F(AudioControllerBuild, TheAlertShowsBothTextsAndThenTheEventLoopQuits)
{
    FakeAudio audio;
    engine::setAudioUnitFactory(audio.factory());
    audio.failAt(FakeStep::EqualizerInitialize, -50);
    QString text;
    QString informativeText;
    QTimer::singleShot(0, [&] {
        if (auto *alert = qobject_cast<QMessageBox *>(QApplication::activeModalWidget())) {
            text = alert->text();
            informativeText = alert->informativeText();
            alert->accept();
        }
    });
    const LB_AudioController controller;
    EXPECT_EQ(text, u"Lyrabox cannot build its audio system. (Error -50)"_s);
    EXPECT_EQ(informativeText, u"The program will now terminate"_s);
    EXPECT_EQ(QApplication::exec(), 0); // returns, although nothing else quits it
}

// Waking

TEST_F(AudioController, StartsEmptyWithTheTransportDisabled)
{
    EXPECT_FALSE(player.isRunning());
    EXPECT_EQ(player.currentTrack(), nullptr);
    EXPECT_EQ(player.totalFrames(), 0U);
    EXPECT_FALSE(transport.loopButton->isEnabled());
    EXPECT_FALSE(transport.seekBackwardButton->isEnabled());
    EXPECT_FALSE(transport.seekForwardButton->isEnabled());
    EXPECT_TRUE(transport.playPauseButton->isEnabled());
    EXPECT_EQ(transport.titleField->font(), uiFont(22.0));
    EXPECT_EQ(transport.artistField->font(), uiFont(16.0));
    EXPECT_EQ(settingsImage(), u"SettingsButtonOff"_s);
    EXPECT_EQ(loopImage(), u"LoopButton1"_s);
    EXPECT_EQ(player.playbackSpeedPct(), 100.0F);
    EXPECT_EQ(player.playbackPitch(), 0.0F);
    EXPECT_FALSE(transport.albumArtImageView->image().isNull());
}

TEST_F(AudioController, WakingSetsHowButtonsHighlightAndDim)
{
    using Highlight = StateButton::Highlight;
    EXPECT_EQ(transport.playPauseButton->highlightMode(), Highlight::PushIn);
    EXPECT_EQ(transport.settingsPopup->highlightMode(), Highlight::PushIn);
    EXPECT_EQ(transport.loopButton->highlightMode(), Highlight::None);
    for (const StateButton *button :
         {static_cast<StateButton *>(transport.playPauseButton), transport.loopButton,
          transport.seekForwardButton, transport.seekBackwardButton})
        EXPECT_FALSE(button->imageDimsWhenDisabled());
}

class AudioControllerVolume : public testing::Test {
protected:
    AudioControllerVolume() { userDefaults().remove(defaultsKey::outputVolume); }
    ~AudioControllerVolume() override { userDefaults().remove(defaultsKey::outputVolume); }
};

TEST_F(AudioControllerVolume, IsFullWithoutADefault)
{
    const TransportFixture transport;
    EXPECT_EQ(transport.controller->outputVolume(), 1.0F);
    EXPECT_EQ(transport.audio.outputParameter(parameter::outputVolume), 1.0F);
}

TEST_F(AudioControllerVolume, IsFullWithADefaultOfZero)
{
    setUserDefault(defaultsKey::outputVolume, 0.0F);
    const TransportFixture transport;
    EXPECT_EQ(transport.controller->outputVolume(), 1.0F);
}

TEST_F(AudioControllerVolume, ComesBackFromTheDefault)
{
    setUserDefault(defaultsKey::outputVolume, 0.3F);
    const TransportFixture transport;
    EXPECT_EQ(transport.controller->outputVolume(), 0.3F);
}

TEST_F(AudioControllerVolume, OfADefaultThatIsNotANumberIsPassedOnAndRefusedByTheOutput)
{
    setUserDefault(defaultsKey::outputVolume, std::numeric_limits<float>::quiet_NaN());
    const TransportFixture transport;
    EXPECT_THAT(transport.audio.calls(), Contains("output1.setParameter(14, nan)"));
    EXPECT_EQ(transport.controller->outputVolume(), 1.0F);
}

TEST_F(AudioControllerVolume, IsStoredWhenItIsSet)
{
    const TransportFixture transport;
    transport.controller->setOutputVolume(0.7F);
    EXPECT_EQ(transport.audio.outputParameter(parameter::outputVolume), 0.7F);
    EXPECT_EQ(userDefaults().value(defaultsKey::outputVolume).toFloat(), 0.7F);
}

// Loading

TEST_F(AudioController, ALoadedSongIsShownAndEnablesTheTransport)
{
    auto record = TransportFixture::track(u"Title"_s);
    record->artist = u"Artist"_s;
    record->album = u"Album"_s;
    EXPECT_EQ(transport.load(record), 0);
    EXPECT_EQ(player.currentTrack(), record);
    EXPECT_EQ(transport.song->openedPath, u"/songs/Title.wav"_s);
    EXPECT_EQ(transport.titleField->string(), u"Title"_s);
    EXPECT_EQ(transport.artistField->string(), QString::fromUtf8("Artist \xe2\x97\x8f Album"));
    EXPECT_TRUE(transport.loopButton->isEnabled());
    EXPECT_TRUE(transport.seekBackwardButton->isEnabled());
    EXPECT_TRUE(transport.seekForwardButton->isEnabled());
    EXPECT_EQ(trackChanges, 1);
}

TEST_F(AudioController, ASongWithoutArtistShowsOnlyTheAlbum)
{
    auto record = TransportFixture::track(u"Title"_s);
    record->album = u"Album"_s;
    transport.load(record);
    EXPECT_EQ(transport.artistField->string(), u"Album"_s);
}

TEST_F(AudioController, AFailedLoadNamesTheTrackAndChangesNothingThatIsShown)
{
    loadedTrack(u"First"_s);
    transport.playPauseButton->setState(1);
    player.setIsRunning(true);
    const auto second = TransportFixture::track(u"Second"_s);
    transport.song->openStatus = status::fileNotFound;
    EXPECT_EQ(transport.load(second), status::fileNotFound);
    EXPECT_EQ(player.currentTrack(), second);
    EXPECT_EQ(transport.titleField->string(), u"First"_s);
    EXPECT_FALSE(player.isRunning());
    EXPECT_EQ(transport.playPauseButton->state(), 1);
    EXPECT_TRUE(transport.loopButton->isEnabled());
    EXPECT_EQ(trackChanges, 2);
}

TEST_F(AudioController, AnEmptyFileLoads)
{
    transport.song->frames = 0;
    loadedTrack();
    EXPECT_EQ(player.totalFrames(), 0U);
    EXPECT_EQ(transport.titleField->string(), u"Song"_s);
}

TEST_F(AudioController, LoadingWhilePausedStaysAtFrameZero)
{
    transport.playPauseButton->setState(0);
    loadedTrack();
    EXPECT_FALSE(player.isRunning());
    EXPECT_EQ(player.currentFrame(), 0U);
}

TEST_F(AudioController, LoadingWhilePlayingStarts)
{
    transport.playPauseButton->setState(1);
    loadedTrack();
    EXPECT_TRUE(player.isRunning());
    EXPECT_EQ(transport.audio.pull(10).channels[0].back(), 9.0F);
}

TEST_F(AudioController, LoadingStopsBeforeItReadsAndStartsLast)
{
    transport.playPauseButton->setState(1);
    loadedTrack();
    transport.audio.clearCalls();
    loadedTrack(u"Next"_s);
    const auto calls = transport.audio.calls();
    EXPECT_EQ(calls.front(), "output1.stop");
    EXPECT_EQ(calls.back(), "output1.start");
}

TEST_F(AudioController, StoredValuesAreAppliedToASongThatHasThem)
{
    transport.settings.setValuesForInode({.speed = 70.0F, .pitch = 200.0F}, u"42"_s);
    auto record = TransportFixture::track(u"Song"_s, u"42"_s);
    record->hasSettings = true;
    transport.load(record);
    EXPECT_FLOAT_EQ(player.playbackSpeedPct(), 70.0F);
    EXPECT_EQ(player.playbackPitch(), 200.0F);
    EXPECT_EQ(transport.playbackSpeedSlider->floatValue(), 70.0F);
    EXPECT_EQ(transport.playbackPitchTextField->floatValue(), 200.0F);
    EXPECT_EQ(settingsImage(), u"SettingsButtonOn"_s);
}

TEST_F(AudioController, StoredValuesAreNotAppliedToASongMarkedAsHavingNone)
{
    transport.settings.setValuesForInode({.speed = 70.0F, .pitch = 200.0F}, u"42"_s);
    player.setPlaybackSpeedPct(50.0F);
    transport.load(TransportFixture::track(u"Song"_s, u"42"_s));
    EXPECT_EQ(player.playbackSpeedPct(), 100.0F);
    EXPECT_EQ(player.playbackPitch(), 0.0F);
    EXPECT_EQ(settingsImage(), u"SettingsButtonOff"_s);
}

TEST_F(AudioController, StoredValuesThatAreNotFiniteAreSkipped)
{
    constexpr float nan = std::numeric_limits<float>::quiet_NaN();
    transport.settings.setValuesForInode({.speed = nan, .pitch = nan}, u"42"_s);
    auto record = TransportFixture::track(u"Song"_s, u"42"_s);
    record->hasSettings = true;
    EXPECT_EQ(transport.load(record), 0);
    EXPECT_EQ(player.playbackSpeedPct(), 100.0F);
    EXPECT_EQ(transport.playbackSpeedSlider->floatValue(), 100.0F);
}

TEST_F(AudioController, ArtworkIsShownAndGoesWithTheSong)
{
    const QImage placeholder = player.albumArtImage();
    QImage picture(40, 30, QImage::Format_RGB32);
    picture.fill(Qt::green);
    QBuffer buffer(&transport.song->artwork);
    buffer.open(QIODevice::WriteOnly);
    picture.save(&buffer, "PNG");
    loadedTrack();
    EXPECT_EQ(transport.albumArtImageView->image().size(), QSize(40, 30));
    player.emptyPlayer();
    EXPECT_EQ(transport.albumArtImageView->image(), placeholder);
}

TEST_F(AudioController, BrokenArtworkShowsThePlaceholder)
{
    const QImage placeholder = player.albumArtImage();
    transport.song->artwork = "\x89PNG broken";
    loadedTrack();
    EXPECT_EQ(transport.albumArtImageView->image(), placeholder);
}

TEST_F(AudioController, EmptyingReturnsToTheEmptyState)
{
    transport.playPauseButton->setState(1);
    auto record = TransportFixture::track(u"Title"_s);
    record->artist = u"Artist"_s;
    record->hasSettings = true;
    transport.load(record);
    clickLoop();
    player.emptyPlayer();
    EXPECT_EQ(player.currentTrack(), nullptr);
    EXPECT_EQ(player.totalFrames(), 0U);
    EXPECT_FALSE(player.isRunning());
    EXPECT_EQ(transport.titleField->string(), QString());
    EXPECT_EQ(transport.artistField->string(), QString());
    EXPECT_EQ(transport.playPauseButton->state(), 0);
    EXPECT_FALSE(transport.loopButton->isEnabled());
    EXPECT_FALSE(transport.seekForwardButton->isEnabled());
    EXPECT_FALSE(player.loopStartIsSet());
    EXPECT_EQ(settingsImage(), u"SettingsButtonOff"_s);
    EXPECT_EQ(trackChanges, 2);
}

TEST_F(AudioController, LoadingNoTrackFailsWithoutACrash)
{
    transport.song->openStatus = status::fileNotFound;
    EXPECT_EQ(player.loadTrackObject(nullptr), status::fileNotFound);
    transport.song->openStatus = 0;
    player.loadTrackObject(nullptr);
    EXPECT_EQ(player.currentTrack(), nullptr);
}

// Play and loop

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

TEST_F(AudioController, PlayWithNothingLoadedIsAnnouncedAndStartsNothing)
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

TEST_F(AudioController, ALoopEndBeforeItsStartIsTakenAsItIs)
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

TEST_F(AudioController, SpeedStepsAndStaysWithinTheSlider)
{
    const auto press = [this](int tag) {
        transport.playbackSpeedMatrix->pressCellWithTag(tag);
        player.speedButtonPressed(transport.playbackSpeedMatrix);
    };
    press(2);
    EXPECT_FLOAT_EQ(player.playbackSpeedPct(), 105.0F);
    press(0);
    press(0);
    EXPECT_FLOAT_EQ(player.playbackSpeedPct(), 95.0F);
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
    EXPECT_FLOAT_EQ(player.playbackSpeedPct(), 133.0F);
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

TEST_F(AudioController, TypedSpeedThatIsNoNumberOrZeroIsPutBack)
{
    player.setPlaybackSpeedPct(80.0F);
    for (const QString &text : {u"fast"_s, u"0"_s, u""_s}) {
        transport.playbackSpeedTextField->setText(text);
        player.speedTextChanged(transport.playbackSpeedTextField);
        EXPECT_EQ(player.playbackSpeedPct(), 80.0F);
        EXPECT_EQ(transport.playbackSpeedTextField->floatValue(), 80.0F);
    }
}

TEST_F(AudioController, TypedPitchOfZeroIsPutBack)
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

TEST_F(AudioController, AStepButtonEntersWhatIsBeingTypedFirst)
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
    EXPECT_FLOAT_EQ(player.playbackSpeedPct(), 55.0F);
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

TEST_F(AudioController, EqualizerLevelsGoToTheirParameter)
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

TEST_F(AudioController, RemovingSettingsKeepsWhatIsPlayed)
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
