#pragma once

#include "settings/EqPreset.h"

#include <QObject>

#include <memory>
#include <optional>
#include <vector>

class LB_AppDelegate;
class LB_AudioController;
class LB_SettingsController;
class LB_Slider;
class QLineEdit;
class QMainWindow;
class QTableView;

namespace lyrabox {

class ButtonMatrix;
class NumberField;
class Popover;
class PresetTableModel;
class StateButton;

/// The level after a step control's cell was pressed: 2 is up one decibel, 1 is zero, 0 is down
/// one; dB, held within -12 to +12.
float levelAfterStep(float level, int cellTag);

/// The largest id in the list plus 1.
qint64 nextPresetId(const EqPresetList &presets);

} // namespace lyrabox

/// The equalizer window: the preset list and the ten bands. From the launch on exactly one preset
/// is selected; a band that is touched while a named preset is selected turns to the manual preset.
/// Main thread only. Outlets are set once, before the launch, and are not owned.
class LB_EqualizerController : public QObject {
    Q_OBJECT

public:
    explicit LB_EqualizerController(QObject *parent = nullptr);
    ~LB_EqualizerController() override;

    LB_AppDelegate *appDelegate() const { return m_appDelegate; }
    void setAppDelegate(LB_AppDelegate *delegate) { m_appDelegate = delegate; }
    LB_AudioController *audio() const { return m_audio; }
    void setAudio(LB_AudioController *audio) { m_audio = audio; }
    LB_SettingsController *settings() const { return m_settings; }
    void setSettings(LB_SettingsController *settings) { m_settings = settings; }
    QMainWindow *eqWindow() const { return m_eqWindow; }
    void setEqWindow(QMainWindow *window) { m_eqWindow = window; }
    QTableView *presetTableView() const { return m_presetTableView; }
    void setPresetTableView(QTableView *view);

    /// The containers of the ten sliders, boxes and step controls, lowest band first.
    QWidget *sliders() const { return m_sliders; }
    void setSliders(QWidget *container);
    QWidget *boxes() const { return m_boxes; }
    void setBoxes(QWidget *container);
    QWidget *stepControls() const { return m_stepControls; }
    void setStepControls(QWidget *container);
    lyrabox::Popover *popover() const { return m_popover; }
    void setPopover(lyrabox::Popover *popover);
    lyrabox::StateButton *addRemoveButton() const { return m_addRemoveButton; }
    void setAddRemoveButton(lyrabox::StateButton *button) { m_addRemoveButton = button; }

    /// A copy of the selected record that shares its levels with the list's; none before the
    /// launch.
    const std::optional<lyrabox::EqPreset> &currentPreset() const { return m_currentPreset; }
    const lyrabox::EqPresetList &arrangedObjects() const;

    void awakeFromNib();
    void appDidLaunch();

    // Actions.
    void sliderValueChanged(LB_Slider *sender);
    void boxValueChanged(lyrabox::NumberField *sender);
    void eqButtonPressed(lyrabox::ButtonMatrix *sender);
    /// Asks for a new preset's name while a built-in preset is selected, else whether the selected
    /// preset is to be removed. The popover closes when the selection no longer fits what it asks.
    void addRemoveButtonPressed(QWidget *sender);
    void addPresetNameEntered(QLineEdit *sender);
    /// Removes the preset that the popover asks about, or the selected one while it is closed.
    /// Presets that ship with the program stay.
    void removeOkButtonPressed();
    void controlTextDidEndEditing();

    void tableViewSelectionDidChange();
    void switchToManualPreset();
    void synchronizeControlsWithAudioUnit();

    /// The engine's parameter ID of the user interface's band.
    static quint32 eqBandForIndex(quint32 index) { return 3U * index + 2U; }

    /// Built-in presets first, by their "persistent" text, falling; then by name, as people sort
    /// names.
    static lyrabox::EqPresetList arrangeObjects(const lyrabox::EqPresetList &presets);

private:
    void rearrange();
    void selectRow(int row);
    int manualRow() const;
    std::optional<int> rowOfCurrentPreset() const;
    lyrabox::EqPresetRef currentRecord() const;
    std::vector<float> engineLevels() const;
    void enterHalfTypedLevels(int exceptTag = -1);
    void bandEdited(int tag, float level);
    void closeOutdatedPopover();
    void showAddRemoveRole();

    LB_AppDelegate *m_appDelegate = nullptr;
    LB_AudioController *m_audio = nullptr;
    LB_SettingsController *m_settings = nullptr;
    QMainWindow *m_eqWindow = nullptr;
    QTableView *m_presetTableView = nullptr;
    QWidget *m_sliders = nullptr;
    QWidget *m_boxes = nullptr;
    QWidget *m_stepControls = nullptr;
    lyrabox::Popover *m_popover = nullptr;
    lyrabox::StateButton *m_addRemoveButton = nullptr;
    lyrabox::PresetTableModel *m_model;
    std::vector<LB_Slider *> m_sliderOfBand;
    std::vector<lyrabox::NumberField *> m_boxOfBand;
    std::shared_ptr<lyrabox::EqPresetList> m_content;
    std::optional<lyrabox::EqPreset> m_currentPreset;
    lyrabox::EqPresetRef m_presetToRemove; ///< while the popover asks about it
};
