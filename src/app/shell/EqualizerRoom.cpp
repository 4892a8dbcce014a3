// The equalizer window: bands and presets.

#include "app/shell/ContextActions.h"
#include "app/shell/Looks.h"
#include "app/shell/ProgramParts.h"
#include "app/shell/Room.h"
#include "platform/ui/ListEndKeys.h"
#include "platform/ui/Theme.h"

#include <QAction>
#include <QCoreApplication>
#include <QLabel>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox {

namespace {

struct Text {
    Q_DECLARE_TR_FUNCTIONS(lyrabox::Composition)
};

void build(ProgramParts &parts)
{
    Ui::EqualizerWindow &ui = parts.eqUi;
    for (ButtonMatrix *steps :
         ui.stepControls->findChildren<ButtonMatrix *>(Qt::FindDirectChildrenOnly))
        looks::addSteps(steps, u"−"_s, Text::tr("Down 1 decibel"), Text::tr("0 decibels"), u"+"_s,
                        Text::tr("Up 1 decibel"));
    for (LB_Slider *slider : ui.sliders->findChildren<LB_Slider *>()) {
        slider->setDefaultValue(0.0);
        slider->setKeySteps(1.0, 3.0); // decibels
    }
    ui.addRemoveButton->setBackground(StateButton::Background::Box);
    for (QLabel *label : parts.eqWindow.findChildren<QLabel *>())
        looks::makeSecondary(label);
    looks::fill(ui.presetPane, Theme::surface);
    looks::fill(ui.presetBar, Theme::sidebar);
    new ListEndKeys(ui.presetTableView);
}

void setOutlets(ProgramParts &parts)
{
    LB_EqualizerController &equalizer = parts.equalizer;
    equalizer.setAppDelegate(&parts.appDelegate);
    equalizer.setAudio(parts.audio.get());
    equalizer.setSettings(&parts.settings);
    equalizer.setEqWindow(&parts.eqWindow);
    equalizer.setSliders(parts.eqUi.sliders);
    equalizer.setBoxes(parts.eqUi.boxes);
    equalizer.setStepControls(parts.eqUi.stepControls);
    equalizer.setPopover(parts.presetPopover);
    equalizer.setAddRemoveButton(parts.eqUi.addRemoveButton);
    equalizer.setPresetTableView(parts.eqUi.presetTableView);
}

void connectBands(const Ui::EqualizerWindow &ui, LB_EqualizerController *equalizer)
{
    for (LB_Slider *slider : ui.sliders->findChildren<LB_Slider *>())
        QObject::connect(slider, &LB_Slider::moved, equalizer,
                         &LB_EqualizerController::sliderValueChanged);
    for (NumberField *box : ui.boxes->findChildren<NumberField *>()) {
        QObject::connect(box, &NumberField::entered, equalizer,
                         &LB_EqualizerController::boxValueChanged);
        // Tab goes to the next box, Return leaves the boxes.
        QObject::connect(box, &QLineEdit::returnPressed, equalizer,
                         &LB_EqualizerController::controlTextDidEndEditing);
    }
    for (ButtonMatrix *steps : ui.stepControls->findChildren<ButtonMatrix *>())
        QObject::connect(steps, &ButtonMatrix::pressed, equalizer,
                         &LB_EqualizerController::eqButtonPressed);
}

void connectPresets(const Ui::EqualizerWindow &ui, LB_EqualizerController *equalizer)
{
    QObject::connect(
        ui.addRemoveButton, &QAbstractButton::clicked, equalizer,
        [equalizer, button = ui.addRemoveButton] { equalizer->addRemoveButtonPressed(button); });
    // One button adds or removes, depending on the selected preset.
    QAction *add = addContextAction(ui.presetTableView, Text::tr("Add Preset…"), Qt::Key_Insert);
    QAction *remove =
        addContextAction(ui.presetTableView, Text::tr("Remove Preset…"), Qt::Key_Delete);
    for (QAction *action : {add, remove})
        QObject::connect(action, &QAction::triggered, ui.addRemoveButton, &QAbstractButton::click);
    const auto updateActions = [equalizer, add, remove] {
        const std::optional<EqPreset> &preset = equalizer->currentPreset();
        add->setEnabled(preset && preset->persistent);
        remove->setEnabled(preset && !preset->persistent);
    };
    QObject::connect(ui.presetTableView->selectionModel(), &QItemSelectionModel::selectionChanged,
                     add, updateActions);
    updateActions();
}

void connectRoom(ProgramParts &parts)
{
    setOutlets(parts);
    connectBands(parts.eqUi, &parts.equalizer);
    connectPresets(parts.eqUi, &parts.equalizer);
}

} // namespace

const Room equalizerRoom{.build = build, .connect = connectRoom};

} // namespace lyrabox
