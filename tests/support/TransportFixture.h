#pragma once

#include "app/controls/LB_PlayButtonCell.h"
#include "engine/AudioEngine.h"
#include "engine/LB_AudioController.h"
#include "settings/LB_SettingsController.h"
#include "support/FakeAudioUnits.h"
#include "support/FakeSong.h"

#include <QWidget>

#include <memory>
#include <stdexcept>

namespace lyrabox::test {

/// A transport without a device and without files: an LB_AudioController with every outlet and an
/// LB_SettingsController (not set up), on a fake chain. Any path "decodes" to `song`. The actions
/// are not connected, so tests call them. Slider ranges are those of the main window: speed 10 to
/// 200 %, pitch -2,400 to +2,400 cents. One at a time.
///
///     TransportFixture transport;
///     transport.song->frames = 100000;
///     transport.load(transport.track(u"A"_s));
///     transport.controller->setIsRunning(true);
///     transport.audio.pull(512);
class TransportFixture {
public:
    /// `wake`: whether to call awakeFromNib().
    explicit TransportFixture(bool wake = true)
    {
        engine::tearDownAudioSystem();
        engine::setAudioUnitFactory(audio.factory());
        engine::setSongReaderFactory(fakeSongReaderFactory(song));
        controller = std::make_unique<LB_AudioController>(LB_AudioController::FatalErrorHandling{
            [](const QString &, const QString &) {
                throw std::logic_error("the engine was not built");
            },
            [] {}});
        setOutlets();
        if (wake)
            controller->awakeFromNib();
    }

    ~TransportFixture()
    {
        controller.reset();
        engine::tearDownAudioSystem();
        engine::setAudioUnitFactory({});
        engine::setSongReaderFactory({});
        engine::setAvailableMemoryProbe({});
    }

    TransportFixture(const TransportFixture &) = delete;
    TransportFixture &operator=(const TransportFixture &) = delete;

    /// A record of a song titled `title`, at a path that is never read.
    static TrackRecordRef track(const QString &title, const QString &inode = QStringLiteral("1"))
    {
        auto record = std::make_shared<TrackRecord>();
        record->fileURL = QUrl::fromLocalFile(QStringLiteral("/songs/%1.wav").arg(title));
        record->title = title;
        record->inode = inode;
        return record;
    }

    Status load(const TrackRecordRef &record) const { return controller->loadTrackObject(record); }

    FakeAudio audio;
    std::shared_ptr<FakeSong> song = std::make_shared<FakeSong>();
    LB_SettingsController settings;

    QWidget window; ///< the parent of every control; not shown
    ImageView *albumArtImageView = new ImageView(&window);
    LB_ScrollingTextView *titleField = new LB_ScrollingTextView(&window);
    LB_ScrollingTextView *artistField = new LB_ScrollingTextView(&window);
    StateButton *loopButton = new StateButton(&window);
    LB_PlayButtonCell *playPauseButton = new LB_PlayButtonCell(&window);
    StateButton *seekBackwardButton = new StateButton(&window);
    StateButton *seekForwardButton = new StateButton(&window);
    LB_Slider *outputVolumeSlider = new LB_Slider(&window);
    ButtonMatrix *playbackPitchMatrix = new ButtonMatrix(&window);
    LB_Slider *playbackPitchSlider = new LB_Slider(&window);
    NumberField *playbackPitchTextField = new NumberField(&window);
    ButtonMatrix *playbackSpeedMatrix = new ButtonMatrix(&window);
    LB_Slider *playbackSpeedSlider = new LB_Slider(&window);
    NumberField *playbackSpeedTextField = new NumberField(&window);
    LB_PopUpButtonCell *settingsPopup = new LB_PopUpButtonCell(&window);

    std::unique_ptr<LB_AudioController> controller;

private:
    void setOutlets()
    {
        loopButton->setAllowsMixedState(true);
        playbackSpeedSlider->setMinValue(10.0);
        playbackSpeedSlider->setMaxValue(200.0);
        playbackPitchSlider->setMinValue(-2400.0);
        playbackPitchSlider->setMaxValue(2400.0);
        for (auto *matrix : {playbackSpeedMatrix, playbackPitchMatrix}) {
            matrix->addCell(0, QStringLiteral("-"), QStringLiteral("Less"));
            matrix->addCell(1, QStringLiteral("0"), QStringLiteral("Reset"));
            matrix->addCell(2, QStringLiteral("+"), QStringLiteral("More"));
        }

        controller->setAlbumArtImageView(albumArtImageView);
        controller->setTitleField(titleField);
        controller->setArtistField(artistField);
        loopButton->setStateTexts(QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("C"));
        controller->setLoopButton(loopButton);
        controller->setPlayPauseButton(playPauseButton);
        controller->setSeekBackwardButton(seekBackwardButton);
        controller->setSeekForwardButton(seekForwardButton);
        controller->setOutputVolumeSlider(outputVolumeSlider);
        controller->setPlaybackPitchMatrix(playbackPitchMatrix);
        controller->setPlaybackPitchSlider(playbackPitchSlider);
        controller->setPlaybackPitchTextField(playbackPitchTextField);
        controller->setPlaybackSpeedMatrix(playbackSpeedMatrix);
        controller->setPlaybackSpeedSlider(playbackSpeedSlider);
        controller->setPlaybackSpeedTextField(playbackSpeedTextField);
        controller->setSettings(&settings);
        controller->setSettingsPopup(settingsPopup);
    }
};

} // namespace lyrabox::test
