#include "engine/AudioControllerFixture.h"
#include "platform/ui/Theme.h"

#include "platform/foundation/UserDefaults.h"

#include <gmock/gmock.h>

#include <QApplication>
#include <QBuffer>
#include <QMessageBox>
#include <QTimer>

#include <algorithm>
#include <limits>

namespace lyrabox::test {
namespace {

using namespace Qt::Literals::StringLiterals;
using testing::Contains;
using testing::ElementsAre;

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

TEST_F(AudioControllerBuild, TheAlertShowsBothTextsBeforeTheProgramIsEnded)
{
    FakeAudio audio;
    engine::setAudioUnitFactory(audio.factory());
    audio.failAt(FakeStep::EqualizerInitialize, -50);
    QString text;
    QString informativeText;
    bool ended = false;
    QTimer::singleShot(0, [&] {
        if (auto *alert = qobject_cast<QMessageBox *>(QApplication::activeModalWidget())) {
            EXPECT_FALSE(ended);
            text = alert->text();
            informativeText = alert->informativeText();
            alert->accept();
        }
    });
    const LB_AudioController controller(
        {.present = &LB_AudioController::showAlert, .terminate = [&] { ended = true; }});
    EXPECT_EQ(text, u"Lyrabox cannot build its audio system. (Error -50)"_s);
    EXPECT_EQ(informativeText, u"The program will now terminate"_s);
    EXPECT_TRUE(ended);
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

TEST_F(AudioController, WakingSetsHighlightingAndDimmingOfButtons)
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

TEST_F(AudioControllerVolume, IsRestoredFromTheDefault)
{
    setUserDefault(defaultsKey::outputVolume, 0.3F);
    const TransportFixture transport;
    EXPECT_EQ(transport.controller->outputVolume(), 0.3F);
}

TEST_F(AudioControllerVolume, ADefaultThatIsNotANumberIsRefusedByTheOutput)
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

TEST_F(AudioController, AFailedLoadNamesTheTrackAndKeepsTheDisplay)
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
    ASSERT_TRUE(transport.audio.outputIsRunning());
    transport.audio.clearCalls();
    std::vector<std::string> callsBeforeReading;
    std::size_t callsAtLastRead = 0;
    transport.song->sample = [&](std::uint32_t, std::uint64_t) {
        if (callsAtLastRead == 0)
            callsBeforeReading = transport.audio.calls();
        callsAtLastRead = transport.audio.calls().size();
        return 0.0F;
    };
    transport.song->frames = 10000;
    auto record = TransportFixture::track(u"Next"_s);
    record->hasSettings = true;
    transport.settings.setValuesForInode({.speed = 70.0F, .pitch = 200.0F}, record->inode);
    EXPECT_EQ(transport.load(record), 0);
    EXPECT_THAT(callsBeforeReading, Contains("output1.stop"));
    const auto calls = transport.audio.calls();
    EXPECT_EQ(calls.back(), "output1.start");
    EXPECT_EQ(std::count(calls.begin(), calls.end(), "output1.start"), 1);
    // The song's own values are set between the two.
    const auto indexOf = [&](const std::string &call) {
        return static_cast<std::size_t>(std::find(calls.begin(), calls.end(), call) -
                                        calls.begin());
    };
    EXPECT_GE(indexOf("timePitch1.setParameter(0, 0.7)"), callsAtLastRead);
    EXPECT_LT(indexOf("timePitch1.setParameter(1, 200)"), calls.size() - 1);
}

TEST_F(AudioController, StoredValuesAreAppliedToASongThatHasThem)
{
    transport.settings.setValuesForInode({.speed = 70.0F, .pitch = 200.0F}, u"42"_s);
    auto record = TransportFixture::track(u"Song"_s, u"42"_s);
    record->hasSettings = true;
    transport.load(record);
    EXPECT_EQ(player.playbackSpeedPct(), 70.0F);
    EXPECT_EQ(player.playbackPitch(), 200.0F);
    EXPECT_EQ(transport.playbackSpeedSlider->floatValue(), 70.0F);
    EXPECT_EQ(transport.playbackPitchTextField->floatValue(), 200.0F);
    EXPECT_EQ(settingsImage(), u"SettingsButtonOn"_s);
}

TEST_F(AudioController, StoredValuesAreNotAppliedToASongMarkedAsWithoutSettings)
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

TEST_F(AudioController, ArtworkIsShownUntilTheSongIsGone)
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

TEST_F(AudioController, ArtworkIsDecodedOncePerSong)
{
    const auto loadWith = [this](Qt::GlobalColor color) {
        QImage picture(40, 30, QImage::Format_RGB32);
        picture.fill(color);
        QBuffer buffer;
        buffer.open(QIODevice::WriteOnly);
        picture.save(&buffer, "PNG");
        transport.song->artwork = buffer.data();
        loadedTrack();
    };
    loadWith(Qt::green);
    const QImage first = player.embeddedArtwork();
    EXPECT_EQ(first.pixelColor(5, 5), QColor(Qt::green));
    EXPECT_EQ(first.cacheKey(), transport.albumArtImageView->image().cacheKey());
    EXPECT_EQ(first.cacheKey(), player.albumArtImage().cacheKey());
    loadWith(Qt::red);
    EXPECT_EQ(player.embeddedArtwork().pixelColor(5, 5), QColor(Qt::red));
    player.emptyPlayer();
    EXPECT_TRUE(player.embeddedArtwork().isNull());
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

} // namespace
} // namespace lyrabox::test
