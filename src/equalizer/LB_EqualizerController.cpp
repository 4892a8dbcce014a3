#include "equalizer/LB_EqualizerController.h"

#include "app/controls/LB_PopoverViewController.h"
#include "app/controls/LB_Slider.h"
#include "app/controls/LB_TableRowView.h"
#include "app/controls/ValueTransformers.h"
#include "engine/LB_AudioController.h"
#include "equalizer/PresetTableModel.h"
#include "platform/foundation/NotificationCenter.h"
#include "platform/foundation/Notifications.h"
#include "platform/foundation/UserDefaults.h"
#include "platform/ui/ButtonMatrix.h"
#include "platform/ui/NumberField.h"
#include "platform/ui/Popover.h"
#include "platform/ui/RowSelection.h"
#include "platform/ui/StateButton.h"
#include "settings/LB_SettingsController.h"
#include "ui_AddPopover.h"
#include "ui_RemovePopover.h"

#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QTableView>

#include <algorithm>
#include <utility>

using lyrabox::EqPreset;
using lyrabox::EqPresetList;
using lyrabox::EqPresetRef;

namespace {

static_assert(EqPreset::bands == lyrabox::equalizerControls);

constexpr const char *tagProperty = "tag";

int tagOf(const QWidget *control)
{
    return control->property(tagProperty).toInt();
}

/// The controls of one kind in a container. They get tags from 0 on, in the order of the interface
/// definition.
template <typename Control>
std::vector<Control *> taggedControls(QWidget *container)
{
    std::vector<Control *> controls;
    for (Control *control : container->findChildren<Control *>(Qt::FindDirectChildrenOnly)) {
        control->setProperty(tagProperty, static_cast<int>(controls.size()));
        controls.push_back(control);
    }
    return controls;
}

} // namespace

LB_EqualizerController::LB_EqualizerController(QObject *parent)
    : QObject(parent), m_model(new lyrabox::PresetTableModel(this))
{}

LB_EqualizerController::~LB_EqualizerController() = default;

void LB_EqualizerController::setPresetTableView(QTableView *view)
{
    m_presetTableView = view;
    // Before the model is set, because a visible header would measure its columns at once.
    view->horizontalHeader()->hide();
    LB_TableRowView::install(view);
    view->setModel(m_model);
    view->horizontalHeader()->setStretchLastSection(true);
    connect(view->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            [this] { tableViewSelectionDidChange(); });
}

void LB_EqualizerController::setSliders(QWidget *container)
{
    m_sliders = container;
    m_sliders->setFocusPolicy(Qt::ClickFocus);
    m_sliderOfBand = taggedControls<LB_Slider>(container);
    for (LB_Slider *slider : m_sliderOfBand) {
        slider->setMinValue(lyrabox::equalizerLevelRange.minimum);
        slider->setMaxValue(lyrabox::equalizerLevelRange.maximum);
    }
}

void LB_EqualizerController::setBoxes(QWidget *container)
{
    m_boxes = container;
    m_boxOfBand = taggedControls<lyrabox::NumberField>(container);
    for (lyrabox::NumberField *box : m_boxOfBand)
        box->setLimits(lyrabox::equalizerLevelRange.minimum, lyrabox::equalizerLevelRange.maximum);
}

void LB_EqualizerController::setStepControls(QWidget *container)
{
    m_stepControls = container;
    taggedControls<lyrabox::ButtonMatrix>(container);
}

void LB_EqualizerController::setPopover(lyrabox::Popover *popover)
{
    m_popover = popover;
    connect(popover, &lyrabox::Popover::closed, this, [this] { m_presetToRemove = nullptr; });
}

const EqPresetList &LB_EqualizerController::arrangedObjects() const
{
    return m_model->arrangedObjects();
}

void LB_EqualizerController::awakeFromNib()
{
    lyrabox::NotificationCenter::defaultCenter().addObserver(
        this, lyrabox::notification::applicationDidFinishLaunching, [this] { appDidLaunch(); });
}

void LB_EqualizerController::appDidLaunch()
{
    m_presetTableView->setFocus();
    m_content = m_settings->eqPresetArray();
    rearrange();
    const qint64 wanted =
        lyrabox::userDefaults().value(lyrabox::defaultsKey::eqPreset, 0).toLongLong();
    const EqPresetList &presets = arrangedObjects();
    const auto found =
        std::find_if(presets.begin(), presets.end(),
                     [wanted](const EqPresetRef &preset) { return preset->id == wanted; });
    selectRow(found == presets.end() ? 0 : static_cast<int>(found - presets.begin()));
}

void LB_EqualizerController::rearrange()
{
    m_model->setArrangedObjects(arrangeObjects(*m_content));
}

void LB_EqualizerController::selectRow(int row)
{
    const QModelIndex index = m_model->index(row, 0);
    lyrabox::selectRow(*m_presetTableView, index);
    m_presetTableView->scrollTo(index);
}

/// Usually the first row. A settings file may put the manual preset into another row.
int LB_EqualizerController::manualRow() const
{
    const EqPresetList &presets = arrangedObjects();
    const auto found = std::find_if(presets.begin(), presets.end(),
                                    [](const EqPresetRef &preset) { return preset->id == 0; });
    return found == presets.end() ? 0 : static_cast<int>(found - presets.begin());
}

std::optional<int> LB_EqualizerController::rowOfCurrentPreset() const
{
    if (!m_currentPreset)
        return std::nullopt;
    // Two records may have equal contents, but every record has levels of its own.
    const EqPresetList &presets = arrangedObjects();
    const auto found =
        std::find_if(presets.begin(), presets.end(), [this](const EqPresetRef &preset) {
            return preset->levels == m_currentPreset->levels;
        });
    if (found == presets.end())
        return std::nullopt;
    return static_cast<int>(found - presets.begin());
}

EqPresetRef LB_EqualizerController::currentRecord() const
{
    const std::optional<int> row = rowOfCurrentPreset();
    return row ? arrangedObjects().at(static_cast<std::size_t>(*row)) : nullptr;
}

void LB_EqualizerController::tableViewSelectionDidChange()
{
    const QModelIndexList rows = m_presetTableView->selectionModel()->selectedRows();
    if (rows.isEmpty()) {
        if (const std::optional<int> row = rowOfCurrentPreset())
            selectRow(*row);
        return;
    }
    const EqPresetRef &preset = arrangedObjects().at(static_cast<std::size_t>(rows.first().row()));
    m_currentPreset = *preset;
    for (std::size_t i = 0; i < m_currentPreset->levels->size(); ++i)
        m_audio->setEqLevelForIndex((*m_currentPreset->levels)[i],
                                    eqBandForIndex(static_cast<quint32>(i)));
    synchronizeControlsWithAudioUnit();
    lyrabox::userDefaults().setValue(lyrabox::defaultsKey::eqPreset, m_currentPreset->id);
    showAddRemoveRole();
    closeOutdatedPopover();
}

void LB_EqualizerController::synchronizeControlsWithAudioUnit()
{
    const std::vector<float> levels = engineLevels();
    for (std::size_t i = 0; i < levels.size(); ++i) {
        m_sliderOfBand.at(i)->animateToFloatValue(levels[i]);
        m_boxOfBand.at(i)->setFloatValue(levels[i]);
    }
}

std::vector<float> LB_EqualizerController::engineLevels() const
{
    std::vector<float> levels;
    for (quint32 i = 0; i < EqPreset::bands; ++i)
        levels.push_back(m_audio->eqLevelForIndex(eqBandForIndex(i)));
    return levels;
}

/// A click on a slider or a step control does not take the keyboard from a box, so an edit there
/// may still be open. Selecting the manual preset refreshes every box and would lose it.
void LB_EqualizerController::enterHalfTypedLevels(int exceptTag)
{
    for (lyrabox::NumberField *box : m_boxOfBand) {
        if (tagOf(box) != exceptTag)
            box->finishEdit();
    }
}

void LB_EqualizerController::bandEdited(int tag, float level)
{
    if (!m_currentPreset)
        return;
    if (m_currentPreset->id != 0)
        switchToManualPreset();
    m_currentPreset->levels->at(static_cast<std::size_t>(tag)) = level;
}

void LB_EqualizerController::sliderValueChanged(LB_Slider *sender)
{
    const int tag = tagOf(sender);
    const float level = sender->floatValue();
    m_audio->setEqLevelForIndex(level, eqBandForIndex(static_cast<quint32>(tag)));
    m_boxOfBand.at(static_cast<std::size_t>(tag))->setFloatValue(level);
    enterHalfTypedLevels(tag);
    bandEdited(tag, level);
}

void LB_EqualizerController::boxValueChanged(lyrabox::NumberField *sender)
{
    const int tag = tagOf(sender);
    const float level = sender->floatValue();
    m_audio->setEqLevelForIndex(level, eqBandForIndex(static_cast<quint32>(tag)));
    m_sliderOfBand.at(static_cast<std::size_t>(tag))->animateToFloatValue(level);
    bandEdited(tag, level);
}

void LB_EqualizerController::eqButtonPressed(lyrabox::ButtonMatrix *sender)
{
    const int tag = tagOf(sender);
    enterHalfTypedLevels();
    const quint32 band = eqBandForIndex(static_cast<quint32>(tag));
    const float level =
        lyrabox::levelAfterStep(m_audio->eqLevelForIndex(band), sender->selectedTag());
    m_audio->setEqLevelForIndex(level, band);
    m_sliderOfBand.at(static_cast<std::size_t>(tag))->animateToFloatValue(level);
    m_boxOfBand.at(static_cast<std::size_t>(tag))->setFloatValue(level);
    bandEdited(tag, level);
}

void LB_EqualizerController::switchToManualPreset()
{
    // The manual preset gets a new list of levels, because an earlier copy may share the old one.
    const int row = manualRow();
    arrangedObjects().at(static_cast<std::size_t>(row))->levels =
        std::make_shared<std::vector<float>>(engineLevels());
    selectRow(row);
}

void LB_EqualizerController::addRemoveButtonPressed(QWidget *sender)
{
    if (m_popover->isShown()) {
        m_popover->closePopover();
        return;
    }
    const bool adds = m_currentPreset->persistent.has_value();
    enterHalfTypedLevels();
    if (adds != m_currentPreset->persistent.has_value())
        return; // Entering the levels has selected another preset.
    m_presetToRemove = adds ? nullptr : currentRecord();
    LB_PopoverViewController *content = adds ? LB_PopoverViewController::load<Ui::AddPopover>()
                                             : LB_PopoverViewController::load<Ui::RemovePopover>();
    content->setParent(content->view());
    if (adds) {
        content->messageField()->setText(tr("Enter a name for the new preset"));
        QLineEdit *input = content->inputField();
        input->setText(tr("New Preset"));
        input->selectAll();
        connect(input, &QLineEdit::returnPressed, this,
                [this, input] { addPresetNameEntered(input); });
        connect(content->okButton(), &QAbstractButton::clicked, this,
                [this, input] { addPresetNameEntered(input); });
    } else {
        content->askAbout(tr("Remove preset '%1'?"), m_currentPreset->name);
        connect(content->okButton(), &QAbstractButton::clicked, this,
                [this, asked = m_presetToRemove] {
                    if (m_presetToRemove == asked)
                        removeOkButtonPressed();
                });
    }
    m_popover->showContent(content->view(), sender, lyrabox::Popover::Edge::MaxX);
}

void LB_EqualizerController::addPresetNameEntered(QLineEdit *sender)
{
    auto preset = std::make_shared<EqPreset>();
    preset->id = lyrabox::nextPresetId(*m_content);
    preset->name = sender->text();
    preset->levels = std::make_shared<std::vector<float>>(engineLevels());
    m_content->push_back(preset);
    rearrange();
    const EqPresetList &presets = arrangedObjects();
    selectRow(
        static_cast<int>(std::find(presets.begin(), presets.end(), preset) - presets.begin()));
    m_popover->closePopover();
}

void LB_EqualizerController::removeOkButtonPressed()
{
    const EqPresetRef asked = std::exchange(m_presetToRemove, nullptr);
    const EqPresetRef preset = asked != nullptr ? asked : currentRecord();
    if (preset != nullptr && !preset->persistent && std::erase(*m_content, preset) > 0) {
        rearrange();
        selectRow(manualRow());
    }
    m_popover->closePopover();
}

/// Closes the popover if its question no longer fits the selection: the name of a new preset needs
/// a built-in one, and the removal of a preset needs that preset.
void LB_EqualizerController::closeOutdatedPopover()
{
    if (m_popover == nullptr || !m_popover->isShown())
        return;
    const bool fits = m_presetToRemove != nullptr ? currentRecord() == m_presetToRemove
                                                  : m_currentPreset->persistent.has_value();
    if (!fits)
        m_popover->closePopover();
}

void LB_EqualizerController::controlTextDidEndEditing()
{
    // After Return the box still has the keyboard. A click or Tab has moved it already.
    const QWidget *focus = m_eqWindow->focusWidget();
    if (focus != nullptr && m_boxes->isAncestorOf(focus))
        m_sliders->setFocus();
}

void LB_EqualizerController::showAddRemoveRole()
{
    const bool adds = m_currentPreset->persistent.has_value();
    m_addRemoveButton->setImage(PlusMinusImageTransformer::transformedValue(adds));
    m_addRemoveButton->setAccessibleName(adds ? tr("Add a preset") : tr("Remove the preset"));
    m_addRemoveButton->setToolTip(m_addRemoveButton->accessibleName());
}
