// The transport: playback, loop, speed, pitch, volume, shuffle and the settings of a song.

#include "app/shell/Looks.h"
#include "app/shell/ProgramParts.h"
#include "app/shell/Room.h"
#include "app/shell/SoundProblemLine.h"
#include "platform/audio/SoundRanges.h"
#include "platform/foundation/NotificationCenter.h"
#include "platform/foundation/Notifications.h"
#include "platform/foundation/UserDefaults.h"
#include "platform/ui/StepTags.h"
#include "platform/ui/Theme.h"

#include <QCoreApplication>
#include <QMenu>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox {

namespace {

constexpr float volumeStep = 0.05F;

struct Text {
    Q_DECLARE_TR_FUNCTIONS(lyrabox::Composition)
};

void buildButtons(Ui::MainWindow &ui)
{
    using Background = StateButton::Background;
    looks::setImages(ui.playPauseButton, u"PlayButton"_s, u"PauseButton"_s);
    ui.playPauseButton->setBackground(Background::RoundAccent);
    looks::setImages(ui.seekBackwardButton, u"SeekBackward"_s, u"SeekBackwardAlt"_s);
    looks::setImages(ui.seekForwardButton, u"SeekForward"_s, u"SeekForwardAlt"_s);
    for (StateButton *button : {static_cast<StateButton *>(ui.seekBackwardButton),
                                static_cast<StateButton *>(ui.seekForwardButton), ui.loopButton})
        button->setBackground(Background::Round);
    ui.loopButton->setAllowsMixedState(true);
    ui.playPauseButton->setStateTexts(Text::tr("Play"), {}, Text::tr("Pause"));
    ui.loopButton->setStateTexts(Text::tr("Mark the start of a loop"),
                                 Text::tr("Mark the end of the loop"), Text::tr("Clear the loop"));
    ui.shuffleButton->setStateTexts(Text::tr("Shuffle"), {}, Text::tr("Play in order"));
    ui.settingsPopup->setBackground(Background::Box);
    ui.seekBackwardButton->setKeyEquivalent(Qt::Key_Left);
    ui.seekForwardButton->setKeyEquivalent(Qt::Key_Right);

    const auto showShuffling = [button = ui.shuffleButton](int state) {
        if (state == 1)
            looks::setImages(button, u"ShuffleOn"_s, u"ShuffleOnAlt"_s);
        else
            looks::setImages(button, u"ShuffleOff"_s, u"ShuffleOffAlt"_s);
    };
    QObject::connect(ui.shuffleButton, &StateButton::stateChanged, ui.shuffleButton, showShuffling);
    showShuffling(ui.shuffleButton->state());
}

void build(ProgramParts &parts)
{
    Ui::MainWindow &ui = parts.mainUi;
    looks::addSteps(ui.playbackSpeedMatrix, u"−"_s, Text::tr("Slower by 5 percent"),
                    Text::tr("Normal speed"), u"+"_s, Text::tr("Faster by 5 percent"));
    looks::addSteps(ui.playbackPitchMatrix, u"♭"_s, Text::tr("A semitone down"),
                    Text::tr("Original pitch"), u"♯"_s, Text::tr("A semitone up"));
    buildButtons(ui);
    ui.playbackSpeedSlider->setMinValue(speedRange.minimum);
    ui.playbackSpeedSlider->setMaxValue(speedRange.maximum);
    ui.playbackSpeedSlider->setDefaultValue(100.0);
    ui.playbackPitchSlider->setMinValue(pitchRange.minimum);
    ui.playbackPitchSlider->setMaxValue(pitchRange.maximum);
    ui.playbackPitchSlider->setDefaultValue(0.0);
    ui.playbackPitchSlider->setKeySteps(10.0, 100.0); // cents
    ui.outputVolumeSlider->setKeySteps(0.05, 0.2);
    for (QLabel *label : {ui.speedLabel, ui.pitchLabel, ui.volumeLabel})
        looks::makeSecondary(label);
    ui.volumeLabel->setIndent(Theme::grid); // aligned with the slider's track, which is inset
    looks::fill(ui.transportLine, Theme::lineGray);
}

void setOutlets(ProgramParts &parts)
{
    Ui::MainWindow &ui = parts.mainUi;
    LB_AudioController *audio = parts.audio.get();
    audio->setAlbumArtImageView(ui.albumArtImageView);
    audio->setArtistField(ui.artistField);
    audio->setTitleField(ui.titleField);
    audio->setLoopButton(ui.loopButton);
    audio->setPlayPauseButton(ui.playPauseButton);
    audio->setSeekBackwardButton(ui.seekBackwardButton);
    audio->setSeekForwardButton(ui.seekForwardButton);
    audio->setOutputVolumeSlider(ui.outputVolumeSlider);
    audio->setPlaybackPitchMatrix(ui.playbackPitchMatrix);
    audio->setPlaybackPitchSlider(ui.playbackPitchSlider);
    audio->setPlaybackPitchTextField(ui.playbackPitchTextField);
    audio->setPlaybackSpeedMatrix(ui.playbackSpeedMatrix);
    audio->setPlaybackSpeedSlider(ui.playbackSpeedSlider);
    audio->setPlaybackSpeedTextField(ui.playbackSpeedTextField);
    audio->setSettings(&parts.settings);
    audio->setSettingsPopup(ui.settingsPopup);

    parts.queue.setAudio(audio);
    parts.queue.setErrorField(ui.errorField);

    ui.navigationView->setAudio(audio);
    ui.navigationView->setQueue(&parts.queue);
    ui.seekBackwardButton->setNavView(ui.navigationView);
    ui.seekForwardButton->setNavView(ui.navigationView);
    ui.transportView->setButtons(ui.seekBackwardButton, ui.seekForwardButton);
    ui.transportView->addWindow(&parts.eqWindow);
}

void connectSpeedAndPitch(Ui::MainWindow &ui, LB_AudioController *audio)
{
    QObject::connect(ui.playbackSpeedMatrix, &ButtonMatrix::pressed, audio,
                     &LB_AudioController::speedButtonPressed);
    QObject::connect(ui.playbackSpeedSlider, &LB_Slider::moved, audio,
                     &LB_AudioController::speedSliderMoved);
    QObject::connect(ui.playbackSpeedTextField, &NumberField::entered, audio,
                     &LB_AudioController::speedTextChanged);
    QObject::connect(ui.playbackPitchMatrix, &ButtonMatrix::pressed, audio,
                     &LB_AudioController::pitchButtonPressed);
    QObject::connect(ui.playbackPitchSlider, &LB_Slider::moved, audio,
                     &LB_AudioController::pitchSliderMoved);
    QObject::connect(ui.playbackPitchTextField, &NumberField::entered, audio,
                     &LB_AudioController::pitchTextChanged);
}

void connectControls(ProgramParts &parts)
{
    Ui::MainWindow &ui = parts.mainUi;
    LB_AudioController *audio = parts.audio.get();
    QObject::connect(ui.playPauseButton, &QAbstractButton::clicked, audio, [&parts, audio] {
        StateButton *button = parts.mainUi.playPauseButton;
        if (parts.inputAfterWait->pressMeansPlay())
            button->setState(1);
        audio->playPauseButtonPressed(button);
    });
    QObject::connect(ui.loopButton, &QAbstractButton::clicked, audio,
                     [&ui, audio] { audio->loopButtonPressed(ui.loopButton); });
    connectSpeedAndPitch(ui, audio);

    // Keep the volume slider and the volume in step, and the shuffle button and the queue's mode.
    QObject::connect(ui.outputVolumeSlider, &LB_Slider::moved, audio,
                     [audio](LB_Slider *slider) { audio->setOutputVolume(slider->floatValue()); });
    QObject::connect(audio, &LB_AudioController::outputVolumeChanged, ui.outputVolumeSlider,
                     [&ui](float volume) { ui.outputVolumeSlider->setFloatValue(volume); });
    QObject::connect(ui.shuffleButton, &QAbstractButton::clicked, &parts.queue, [&parts] {
        StateButton *button = parts.mainUi.shuffleButton;
        parts.queue.setIsShuffling(button->state() == 1);
        parts.queue.shuffleButtonPressed(button);
    });
    QObject::connect(&parts.queue, &LB_QueueController::isShufflingChanged, ui.shuffleButton,
                     [&parts](bool shuffling) {
                         parts.mainUi.shuffleButton->setState(shuffling ? 1 : 0);
                         parts.menu->shuffle->setChecked(shuffling);
                     });
}

/// Closes the menus that keep or forget the settings of a song. They were opened for the song
/// before the current one.
void closeSongMenus(const MainMenu &commands)
{
    for (QObject *holder : commands.removeSettings->associatedObjects()) {
        auto *menu = qobject_cast<QMenu *>(holder);
        if (menu != nullptr && menu->isVisible())
            menu->close();
    }
}

/// Enables the commands that need a song.
void updateSongCommands(ProgramParts &parts)
{
    MainMenu &menu = *parts.menu;
    const TrackRecordRef song = parts.audio->currentTrack();
    for (QAction *action : {menu.loop, menu.next, menu.previous, menu.saveSettings,
                            menu.showCurrentSong, menu.skipBack, menu.skipForward})
        action->setEnabled(song != nullptr);
    menu.removeSettings->setEnabled(song != nullptr && song->hasSettings);
}

void connectSongSettings(ProgramParts &parts)
{
    MainMenu &menu = *parts.menu;
    LB_AudioController *audio = parts.audio.get();
    QMenu *popup = parts.mainUi.settingsPopup->menu();
    popup->addAction(menu.saveSettings);
    popup->addAction(menu.removeSettings);
    QObject::connect(menu.saveSettings, &QAction::triggered, audio,
                     &LB_AudioController::saveSettings);
    QObject::connect(menu.removeSettings, &QAction::triggered, audio,
                     &LB_AudioController::removeSettings);
    NotificationCenter::defaultCenter().addObserver(&menu, notification::currentTrackChanged,
                                                    [&parts] {
                                                        closeSongMenus(*parts.menu);
                                                        updateSongCommands(parts);
                                                    });
    // The notification of the settings is not used here, because the record is updated only after
    // it.
    QObject::connect(audio, &LB_AudioController::songSettingsShown, &menu,
                     [&parts] { updateSongCommands(parts); });
    updateSongCommands(parts);
}

/// Commands that also have a control go through the control, so that both do the same.
void connectControlCommands(const MainMenu &menu, const Ui::MainWindow &ui)
{
    const auto click = [](QAction *action, QAbstractButton *button) {
        QObject::connect(action, &QAction::triggered, button, &QAbstractButton::click);
    };
    const auto press = [](QAction *action, ButtonMatrix *matrix, StepTag tag) {
        QObject::connect(action, &QAction::triggered, matrix,
                         [matrix, tag] { matrix->pressCellWithTag(tag); });
    };
    click(menu.playPause, ui.playPauseButton);
    click(menu.loop, ui.loopButton);
    click(menu.shuffle, ui.shuffleButton);
    press(menu.slower, ui.playbackSpeedMatrix, StepDown);
    press(menu.normalSpeed, ui.playbackSpeedMatrix, StepReset);
    press(menu.faster, ui.playbackSpeedMatrix, StepUp);
    press(menu.pitchDown, ui.playbackPitchMatrix, StepDown);
    press(menu.originalPitch, ui.playbackPitchMatrix, StepReset);
    press(menu.pitchUp, ui.playbackPitchMatrix, StepUp);
}

void connectCommands(ProgramParts &parts)
{
    const MainMenu &menu = *parts.menu;
    LB_AudioController *audio = parts.audio.get();
    connectControlCommands(menu, parts.mainUi);
    QObject::connect(menu.next, &QAction::triggered, &parts.queue,
                     &LB_QueueController::playNextTrack);
    QObject::connect(menu.previous, &QAction::triggered, &parts.queue, [&queue = parts.queue] {
        if (queue.canPlayPreviousTrack())
            queue.playPreviousTrack();
    });
    QObject::connect(menu.volumeUp, &QAction::triggered, audio, [audio] {
        audio->setOutputVolume(std::min(1.0F, audio->outputVolume() + volumeStep));
    });
    QObject::connect(menu.volumeDown, &QAction::triggered, audio, [audio] {
        audio->setOutputVolume(std::max(0.0F, audio->outputVolume() - volumeStep));
    });
    LB_NavigationView *bar = parts.mainUi.navigationView;
    QObject::connect(menu.skipBack, &QAction::triggered, bar,
                     [bar] { bar->seekBySeconds(-LB_NavigationView::keyStepSeconds); });
    QObject::connect(menu.skipForward, &QAction::triggered, bar,
                     [bar] { bar->seekBySeconds(LB_NavigationView::keyStepSeconds); });
}

void connectRoom(ProgramParts &parts)
{
    setOutlets(parts);
    connectControls(parts);
    new SoundProblemLine(parts.audio.get(), parts.mainUi.errorField);
    connectSongSettings(parts);
    connectCommands(parts);
}

} // namespace

const Room transportRoom{.build = build, .connect = connectRoom};

void showIdleTransport(ProgramParts &parts)
{
    constexpr double normalSpeed = 100.0;
    Ui::MainWindow &ui = parts.mainUi;
    ui.playbackSpeedSlider->setFloatValue(normalSpeed);
    ui.playbackSpeedTextField->setFloatValue(static_cast<float>(normalSpeed));
    const float volume = userDefaults().value(defaultsKey::outputVolume).toFloat();
    ui.outputVolumeSlider->setFloatValue(volume != 0.0F ? volume : 1.0F);
    looks::setImages(ui.loopButton, u"LoopButton1"_s);
    ui.settingsPopup->setImage(NamedImage(u"SettingsButtonOff"_s));
    ui.albumArtImageView->setImage(parts.audio->albumArtImage());
}

} // namespace lyrabox
