#pragma once

#include "platform/audio/SoundRanges.h"
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

/// The level in dB after a cell of a step control was pressed. Tag 2 raises it by 1 dB, tag 1 sets
/// it to 0 dB, tag 0 lowers it by 1 dB. The result is clamped to equalizerLevelRange.
float levelAfterStep(float level, int cellTag);

/// One more than the largest id in the list. 0 for an empty list.
qint64 nextPresetId(const EqPresetList &presets);

} // namespace lyrabox

/// Controls the equalizer window with its preset list and its ten bands. After the launch exactly
/// one preset is selected. If the user changes a band while a named preset is selected, the manual
/// preset is selected instead and takes the change. Main thread only. Outlets are set once, before
/// the launch, and are not owned.
class LB_EqualizerController : public QObject {
    Q_OBJECT

public:
    explicit LB_EqualizerController(QObject *parent = nullptr);
    ~LB_EqualizerController() override;

    // Nothing uses the application delegate: docs/kept-on-purpose.md.
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

    /// A copy of the selected record. It shares its levels with the record in the list. None before
    /// the launch.
    const std::optional<lyrabox::EqPreset> &currentPreset() const { return m_currentPreset; }
    /// The presets in the order of the table.
    const lyrabox::EqPresetList &arrangedObjects() const;

    /// Waits for the launch notification, which calls appDidLaunch().
    void awakeFromNib();
    /// Fills the table and selects the preset of the last session.
    void appDidLaunch();

    // Actions.
    /// The user moved a band, with a slider, a box or a step control. Sets its level in the engine.
    void sliderValueChanged(LB_Slider *sender);
    void boxValueChanged(lyrabox::NumberField *sender);
    void eqButtonPressed(lyrabox::ButtonMatrix *sender);
    /// Opens a popover. If a built-in preset is selected, it asks for the name of a new preset.
    /// Otherwise it asks whether to remove the selected one. It closes when a preset is selected to
    /// which its question does not apply.
    void addRemoveButtonPressed(QWidget *sender);
    /// Adds a preset with the name in `sender` and the engine's levels, selects it and closes the
    /// popover.
    void addPresetNameEntered(QLineEdit *sender);
    /// Removes the preset that the popover asks about, or the selected one if the popover is
    /// closed. Built-in presets stay.
    void removeOkButtonPressed();
    /// After Return in a box, gives the keyboard to the sliders.
    void controlTextDidEndEditing();

    /// Applies the preset that was selected and remembers it.
    void tableViewSelectionDidChange();
    /// Gives the manual preset the levels of the engine and selects it.
    void switchToManualPreset();
    /// Moves the sliders and boxes to the levels of the engine.
    void synchronizeControlsWithAudioUnit();

    /// The engine's parameter ID for a band of the user interface.
    static quint32 eqBandForIndex(quint32 index) { return lyrabox::equalizerBandOfControl(index); }

    /// Sorts the presets: built-in ones first, by their "persistent" text in descending order, then
    /// by name in the user's alphabet.
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
    lyrabox::EqPresetRef m_presetToRemove; ///< the one that the open popover asks about
};
