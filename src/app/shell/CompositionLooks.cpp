// What the interface definitions cannot say: cells, images, fonts and delegates of both windows.

#include "app/controls/LB_InvertibleImageCellView.h"
#include "app/controls/LB_TableHeaderCell.h"
#include "app/controls/LB_TableRowView.h"
#include "app/shell/Composition.h"
#include "library/TrackTableModel.h"
#include "platform/foundation/UserDefaults.h"
#include "platform/ui/StepTags.h"
#include "platform/ui/Theme.h"

#include <QLabel>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox {

namespace {

constexpr double labelSize = 11.0;

void addSteps(ButtonMatrix *matrix, const QString &downText, const QString &downName,
              const QString &resetName, const QString &upText, const QString &upName)
{
    matrix->addCell(StepDown, downText, downName);
    matrix->addCell(StepReset, {}, resetName, NamedImage(u"ResetButton"_s));
    matrix->addCell(StepUp, upText, upName);
}

void setImages(StateButton *button, const QString &image, const QString &alternate = {})
{
    button->setImage(NamedImage(image));
    if (!alternate.isEmpty())
        button->setAlternateImage(NamedImage(alternate));
}

void makeSecondary(QLabel *label)
{
    label->setFont(uiFont(labelSize));
    QPalette palette = label->palette();
    palette.setColor(QPalette::WindowText, Theme::secondaryText);
    label->setPalette(palette);
}

void fill(QWidget *widget, const QColor &color)
{
    QPalette palette = widget->palette();
    palette.setColor(QPalette::Window, color);
    widget->setPalette(palette);
    widget->setAutoFillBackground(true);
}

} // namespace

void Composition::buildCells()
{
    addSteps(m_main.playbackSpeedMatrix, u"−"_s, tr("Slower by 5 percent"), tr("Normal speed"),
             u"+"_s, tr("Faster by 5 percent"));
    addSteps(m_main.playbackPitchMatrix, u"♭"_s, tr("A semitone down"), tr("Original pitch"),
             u"♯"_s, tr("A semitone up"));
    m_main.addRemoveButtons->addCell(LB_FolderSourceController::AddTag, {}, tr("Add a folder"),
                                     NamedImage(u"PlusButton"_s));
    m_main.addRemoveButtons->addCell(LB_FolderSourceController::RemoveTag, {},
                                     tr("Remove the folder"), NamedImage(u"MinusButton"_s));
    for (ButtonMatrix *steps :
         m_eq.stepControls->findChildren<ButtonMatrix *>(Qt::FindDirectChildrenOnly))
        addSteps(steps, u"−"_s, tr("Down 1 decibel"), tr("0 decibels"), u"+"_s, tr("Up 1 decibel"));
    m_main.tabSelector->setSegments({tr("Playlists"), tr("Folders")});
}

void Composition::applyLooks()
{
    using Background = StateButton::Background;
    setImages(m_main.playPauseButton, u"PlayButton"_s, u"PauseButton"_s);
    m_main.playPauseButton->setBackground(Background::RoundAccent);
    setImages(m_main.seekBackwardButton, u"SeekBackward"_s, u"SeekBackwardAlt"_s);
    setImages(m_main.seekForwardButton, u"SeekForward"_s, u"SeekForwardAlt"_s);
    for (StateButton *button :
         {static_cast<StateButton *>(m_main.seekBackwardButton),
          static_cast<StateButton *>(m_main.seekForwardButton), m_main.loopButton})
        button->setBackground(Background::Round);
    m_main.loopButton->setAllowsMixedState(true);
    m_main.playPauseButton->setStateTexts(tr("Play"), {}, tr("Pause"));
    m_main.loopButton->setStateTexts(tr("Mark the start of a loop"), tr("Mark the end of the loop"),
                                     tr("Clear the loop"));
    m_main.shuffleButton->setStateTexts(tr("Shuffle"), {}, tr("Play in order"));
    m_main.settingsPopup->setBackground(Background::Box);
    m_eq.addRemoveButton->setBackground(Background::Box);
    const auto showShuffling = [button = m_main.shuffleButton](int state) {
        if (state == 1)
            setImages(button, u"ShuffleOn"_s, u"ShuffleOnAlt"_s);
        else
            setImages(button, u"ShuffleOff"_s, u"ShuffleOffAlt"_s);
    };
    connect(m_main.shuffleButton, &StateButton::stateChanged, m_main.shuffleButton, showShuffling);
    showShuffling(m_main.shuffleButton->state());
    m_main.seekBackwardButton->setKeyEquivalent(Qt::Key_Left);
    m_main.seekForwardButton->setKeyEquivalent(Qt::Key_Right);
    m_main.playbackSpeedSlider->setDefaultValue(100.0);
    m_main.playbackPitchSlider->setDefaultValue(0.0);
    m_main.playbackPitchSlider->setKeySteps(10.0, 100.0); // cents
    m_main.outputVolumeSlider->setKeySteps(0.05, 0.2);
    for (LB_Slider *slider : m_eq.sliders->findChildren<LB_Slider *>()) {
        slider->setDefaultValue(0.0);
        slider->setKeySteps(1.0, 3.0); // decibels
    }

    for (QLabel *label : {m_main.speedLabel, m_main.pitchLabel, m_main.volumeLabel})
        makeSecondary(label);
    for (QLabel *label : m_eqWindow.findChildren<QLabel *>())
        makeSecondary(label);
    m_main.volumeLabel->setIndent(Theme::grid); // over the slider's track, which is inset
    m_main.trackCountField->setForegroundRole(QPalette::PlaceholderText);

    fill(m_main.transportLine, Theme::lineGray);
    fill(m_main.sourcePane, Theme::sidebar);
    fill(m_eq.presetPane, Theme::surface);
    fill(m_eq.presetBar, Theme::sidebar);

    auto *header = new LB_TableHeaderCell(Qt::Horizontal, m_main.trackTableView);
    m_main.trackTableView->setHorizontalHeader(header);
    m_tracks.setTrackTableView(m_main.trackTableView);
    connect(&m_tracks, &LB_TrackController::highlightedColumnChanged, header,
            &LB_TableHeaderCell::setHighlightedSection);
    auto *images = new LB_InvertibleImageCellView(m_main.trackTableView,
                                                  LB_TableRowView::Separators::Hairline);
    m_main.trackTableView->setItemDelegateForColumn(TrackTableModel::IsPlaying, images);
    m_main.trackTableView->setItemDelegateForColumn(TrackTableModel::HasSettings, images);
    LB_TableRowView::install(m_main.playlistOutlineView);
    LB_TableRowView::install(m_main.folderOutlineView);
}

/// The transport as it is without a song. Its controller wakes behind the first list, and the
/// window may be seen before that.
void Composition::dressSleepingTransport()
{
    constexpr double normalSpeed = 100.0;
    m_main.playbackSpeedSlider->setFloatValue(normalSpeed);
    m_main.playbackSpeedTextField->setFloatValue(static_cast<float>(normalSpeed));
    const float volume = userDefaults().value(defaultsKey::outputVolume).toFloat();
    m_main.outputVolumeSlider->setFloatValue(volume != 0.0F ? volume : 1.0F);
    setImages(m_main.loopButton, u"LoopButton1"_s);
    m_main.settingsPopup->setImage(NamedImage(u"SettingsButtonOff"_s));
    m_main.albumArtImageView->setImage(m_audio->albumArtImage());
}

} // namespace lyrabox
