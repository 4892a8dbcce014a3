#pragma once

#include "app/controls/LB_Slider.h"
#include "equalizer/LB_EqualizerController.h"
#include "platform/foundation/NotificationCenter.h"
#include "platform/foundation/Notifications.h"
#include "platform/foundation/UserDefaults.h"
#include "platform/ui/ButtonMatrix.h"
#include "platform/ui/NumberField.h"
#include "platform/ui/Popover.h"
#include "platform/ui/StateButton.h"
#include "support/TransportFixture.h"

#include "ui_EqualizerWindow.h"

#include <QMainWindow>

#include <gmock/gmock.h>

#include <memory>
#include <optional>

namespace lyrabox::test {

inline EqPresetRef preset(qint64 id, const QString &name, float level,
                          const std::optional<QString> &persistent)
{
    auto made = std::make_shared<EqPreset>();
    made->id = id;
    made->name = name;
    made->levels = std::make_shared<std::vector<float>>(EqPreset::bands, level);
    made->persistent = persistent;
    return made;
}

/// The equalizer window with four presets. The tests call or connect its actions.
struct Equalizer : testing::Test {
    explicit Equalizer(std::optional<int> storedPreset = {})
    {
        userDefaults().remove(defaultsKey::eqPreset);
        if (storedPreset)
            userDefaults().setValue(defaultsKey::eqPreset, *storedPreset);
        presets = std::make_shared<EqPresetList>(EqPresetList{user, rock, manual, bass});
        transport.settings.setEqPresetArray(presets);
        ui.setupUi(&window);
        for (ButtonMatrix *steps :
             ui.stepControls->findChildren<ButtonMatrix *>(Qt::FindDirectChildrenOnly)) {
            for (int tag = 0; tag < 3; ++tag)
                steps->addCell(tag, QStringLiteral("x"), QStringLiteral("x"));
        }
        controller.setAudio(transport.controller.get());
        controller.setSettings(&transport.settings);
        controller.setEqWindow(&window);
        controller.setSliders(ui.sliders);
        controller.setBoxes(ui.boxes);
        controller.setStepControls(ui.stepControls);
        controller.setPopover(&popover);
        controller.setAddRemoveButton(ui.addRemoveButton);
        controller.setPresetTableView(ui.presetTableView);
        controller.awakeFromNib();
    }

    void launch()
    {
        NotificationCenter::defaultCenter().post(notification::applicationDidFinishLaunching);
    }
    QStringList names() const
    {
        QStringList list;
        for (const EqPresetRef &record : controller.arrangedObjects())
            list.append(record->name);
        return list;
    }
    int selectedRow() const
    {
        const auto rows = ui.presetTableView->selectionModel()->selectedRows();
        return rows.isEmpty() ? -1 : rows.first().row();
    }
    void select(const QString &name) const
    {
        ui.presetTableView->selectRow(static_cast<int>(names().indexOf(name)));
    }
    LB_Slider *slider(int band) const
    {
        return window.findChild<LB_Slider *>(QStringLiteral("slider%1").arg(band));
    }
    NumberField *box(int band) const
    {
        return window.findChild<NumberField *>(QStringLiteral("box%1").arg(band));
    }
    ButtonMatrix *steps(int band) const
    {
        return window.findChild<ButtonMatrix *>(QStringLiteral("steps%1").arg(band));
    }
    void moveSlider(int band, float level)
    {
        slider(band)->setFloatValue(level);
        controller.sliderValueChanged(slider(band));
    }
    void pressStep(int band, int tag)
    {
        steps(band)->pressCellWithTag(tag);
        controller.eqButtonPressed(steps(band));
    }
    float engineLevel(quint32 band) const
    {
        return transport.controller->eqLevelForIndex(LB_EqualizerController::eqBandForIndex(band));
    }
    QWidget *popoverChild(const char *name) const
    {
        return popover.findChild<QWidget *>(QLatin1String(name));
    }

    EqPresetRef manual = preset(0, QStringLiteral("Manual"), 0.0F, QStringLiteral("2"));
    EqPresetRef bass = preset(1, QStringLiteral("bass"), 3.0F, QStringLiteral("1"));
    EqPresetRef rock = preset(2, QStringLiteral("Rock"), 5.0F, QStringLiteral("1"));
    EqPresetRef user = preset(7, QStringLiteral("Attic"), -2.0F, std::nullopt);
    std::shared_ptr<EqPresetList> presets;
    TransportFixture transport;
    QMainWindow window;
    Ui::EqualizerWindow ui;
    Popover popover{&window};
    LB_EqualizerController controller;
};

} // namespace lyrabox::test
