#include "equalizer/EqualizerFixture.h"
#include "equalizer/PresetTableModel.h"

#include <QAbstractItemModelTester>
#include <QLabel>
#include <QLineEdit>
#include <QTest>

namespace lyrabox {
namespace {

using test::Equalizer;
using testing::ElementsAre;

struct EqualizerWithStoredPreset : Equalizer {
    EqualizerWithStoredPreset() : Equalizer(2) {}
};
struct EqualizerWithUnknownPreset : Equalizer {
    EqualizerWithUnknownPreset() : Equalizer(99) {}
};

TEST(EqBand, IsEveryThirdBandFromTheThird)
{
    EXPECT_EQ(LB_EqualizerController::eqBandForIndex(0), 2U);
    EXPECT_EQ(LB_EqualizerController::eqBandForIndex(9), 29U);
}

TEST_F(Equalizer, ArrangesBuiltInPresetsFirstThenByNameIgnoringCase)
{
    launch();
    EXPECT_THAT(names(), ElementsAre(QStringLiteral("Manual"), QStringLiteral("bass"),
                                     QStringLiteral("Rock"), QStringLiteral("Attic")));
}

TEST_F(Equalizer, ChangesNothingBeforeTheLaunch)
{
    EXPECT_FALSE(controller.currentPreset().has_value());
    EXPECT_EQ(controller.arrangedObjects().size(), 0U);
}

TEST_F(Equalizer, SelectsTheManualPresetWithoutAStoredChoice)
{
    launch();
    EXPECT_EQ(selectedRow(), 0);
    EXPECT_EQ(controller.currentPreset()->id, 0);
    EXPECT_EQ(userDefaults().value(defaultsKey::eqPreset).toInt(), 0);
}

TEST_F(EqualizerWithStoredPreset, SelectsAndAppliesTheStoredPresetAtLaunch)
{
    launch();
    EXPECT_EQ(controller.currentPreset()->name, QStringLiteral("Rock"));
    for (quint32 band = 0; band < 10; ++band)
        EXPECT_EQ(engineLevel(band), 5.0F);
    EXPECT_EQ(slider(4)->floatValue(), 5.0F);
    EXPECT_EQ(box(4)->floatValue(), 5.0F);
}

TEST_F(EqualizerWithUnknownPreset, FallsBackToTheFirstRow)
{
    launch();
    EXPECT_EQ(selectedRow(), 0);
}

TEST_F(Equalizer, SelectingAPresetAppliesItAndRemembersIt)
{
    launch();
    select(QStringLiteral("Attic"));
    EXPECT_EQ(engineLevel(0), -2.0F);
    EXPECT_EQ(userDefaults().value(defaultsKey::eqPreset).toInt(), 7);
}

TEST_F(Equalizer, MovingASliderOnANamedPresetSelectsTheManualOne)
{
    launch();
    select(QStringLiteral("Rock"));
    moveSlider(3, -6.0F);
    EXPECT_EQ(selectedRow(), 0);
    EXPECT_EQ(controller.currentPreset()->id, 0);
    EXPECT_EQ((*manual->levels)[3], -6.0F);
    EXPECT_EQ((*manual->levels)[4], 5.0F);
    EXPECT_EQ((*rock->levels)[3], 5.0F);
    EXPECT_EQ(engineLevel(3), -6.0F);
    EXPECT_EQ(engineLevel(4), 5.0F);
    EXPECT_EQ(box(3)->floatValue(), -6.0F);
}

TEST_F(Equalizer, MovingASliderOnTheManualPresetChangesOnlyThatPreset)
{
    launch();
    moveSlider(0, 4.5F);
    EXPECT_EQ((*manual->levels)[0], 4.5F);
    EXPECT_EQ((*manual->levels)[1], 0.0F);
    EXPECT_EQ((*rock->levels)[0], 5.0F);
    EXPECT_EQ((*user->levels)[0], -2.0F);
}

TEST_F(Equalizer, CurrentPresetSharesItsLevelsWithTheListsRecord)
{
    launch();
    EXPECT_EQ(controller.currentPreset()->levels, manual->levels);
    moveSlider(9, 1.5F);
    EXPECT_EQ((*(*presets)[2]->levels)[9], 1.5F);
}

TEST_F(Equalizer, EditingABoxSetsTheEngineAndTheSlider)
{
    launch();
    box(2)->setFloatValue(-3.5F);
    controller.boxValueChanged(box(2));
    EXPECT_EQ(engineLevel(2), -3.5F);
    EXPECT_EQ(slider(2)->floatValue(), -3.5F);
    EXPECT_EQ((*manual->levels)[2], -3.5F);
}

TEST_F(Equalizer, TheBoxClampsATypedValue)
{
    launch();
    QObject::connect(box(2), &NumberField::entered, &controller,
                     &LB_EqualizerController::boxValueChanged);
    box(2)->selectAll();
    QTest::keyClicks(box(2), QStringLiteral("40"));
    QTest::keyClick(box(2), Qt::Key_Return);
    EXPECT_EQ(engineLevel(2), 12.0F);
}

TEST_F(Equalizer, EverySliderGoesFromMinus12To12Decibels)
{
    for (int band = 0; band < 10; ++band) {
        EXPECT_EQ(slider(band)->minValue(), -12.0);
        EXPECT_EQ(slider(band)->maxValue(), 12.0);
        EXPECT_EQ(slider(band)->floatValue(), 0.0F);
    }
}

TEST_F(Equalizer, StepsStayWithinTheRange)
{
    launch();
    moveSlider(1, 12.0F);
    pressStep(1, 2);
    EXPECT_EQ(engineLevel(1), 12.0F);
    moveSlider(1, -12.0F);
    pressStep(1, 0);
    EXPECT_EQ(engineLevel(1), -12.0F);
}

TEST_F(Equalizer, StepsGoUpDownAndToZero)
{
    launch();
    pressStep(5, 2);
    EXPECT_EQ(engineLevel(5), 1.0F);
    pressStep(5, 0);
    pressStep(5, 0);
    EXPECT_EQ(engineLevel(5), -1.0F);
    EXPECT_EQ(slider(5)->floatValue(), -1.0F);
    pressStep(5, 1);
    EXPECT_EQ(engineLevel(5), 0.0F);
    EXPECT_EQ((*manual->levels)[5], 0.0F);
}

TEST_F(Equalizer, AStepOnANamedPresetKeepsThatPresetsLevels)
{
    launch();
    select(QStringLiteral("bass"));
    pressStep(0, 2);
    EXPECT_EQ((*bass->levels)[0], 3.0F);
    EXPECT_EQ((*manual->levels)[0], 4.0F);
    EXPECT_EQ(controller.currentPreset()->id, 0);
}

TEST_F(Equalizer, NewPresetGetsTheLargestIdPlusOneAndTheEnginesLevels)
{
    launch();
    moveSlider(6, 2.5F);
    QLineEdit name;
    name.setText(QStringLiteral("Zoo"));
    controller.addPresetNameEntered(&name);
    ASSERT_EQ(presets->size(), 5U);
    EXPECT_EQ(presets->back()->id, 8);
    EXPECT_EQ((*presets->back()->levels)[6], 2.5F);
    EXPECT_FALSE(presets->back()->persistent.has_value());
    EXPECT_EQ(controller.currentPreset()->name, QStringLiteral("Zoo"));
    EXPECT_EQ(names().last(), QStringLiteral("Zoo"));
}

TEST_F(Equalizer, EmptyAndDuplicateNamesAreAccepted)
{
    launch();
    QLineEdit name;
    controller.addPresetNameEntered(&name);
    name.setText(QStringLiteral("Rock"));
    controller.addPresetNameEntered(&name);
    EXPECT_EQ(presets->size(), 6U);
    EXPECT_EQ(controller.currentPreset()->id, 9);
}

TEST_F(Equalizer, RemovingAUserPresetSelectsTheManualOneWithItsLevels)
{
    launch();
    moveSlider(0, 7.0F);
    select(QStringLiteral("Attic"));
    EXPECT_EQ(engineLevel(0), -2.0F);
    controller.removeOkButtonPressed();
    EXPECT_EQ(presets->size(), 3U);
    EXPECT_EQ(selectedRow(), 0);
    EXPECT_EQ(engineLevel(0), 7.0F);
}

TEST_F(Equalizer, TheButtonAddsWhileABuiltInPresetIsSelected)
{
    launch();
    window.show();
    controller.addRemoveButtonPressed(ui.addRemoveButton);
    ASSERT_TRUE(popover.isShown());
    EXPECT_EQ(static_cast<QLabel *>(popoverChild("messageField"))->text(),
              QStringLiteral("Enter a name for the new preset"));
    auto *input = static_cast<QLineEdit *>(popoverChild("inputField"));
    EXPECT_EQ(input->text(), QStringLiteral("New Preset"));
    EXPECT_EQ(ui.addRemoveButton->image().name(), QStringLiteral("PlusButton"));
    QTest::keyClick(input, Qt::Key_Return);
    EXPECT_EQ(controller.currentPreset()->name, QStringLiteral("New Preset"));
    EXPECT_FALSE(popover.isShown());
}

TEST_F(Equalizer, TheButtonRemovesWhileAUserPresetIsSelected)
{
    launch();
    window.show();
    select(QStringLiteral("Attic"));
    EXPECT_EQ(ui.addRemoveButton->image().name(), QStringLiteral("MinusButton"));
    controller.addRemoveButtonPressed(ui.addRemoveButton);
    EXPECT_EQ(static_cast<QLabel *>(popoverChild("messageField"))->text(),
              QStringLiteral("Remove preset 'Attic'?"));
    static_cast<QAbstractButton *>(popoverChild("okButton"))->click();
    EXPECT_EQ(presets->size(), 3U);
    EXPECT_FALSE(popover.isShown());
}

TEST_F(Equalizer, PressingTheButtonWhileThePopoverIsOpenOnlyClosesIt)
{
    launch();
    window.show();
    controller.addRemoveButtonPressed(ui.addRemoveButton);
    ASSERT_TRUE(popover.isShown());
    controller.addRemoveButtonPressed(ui.addRemoveButton);
    EXPECT_FALSE(popover.isShown());
    EXPECT_EQ(presets->size(), 4U);
}

TEST_F(Equalizer, ClearingTheSelectionSelectsTheCurrentPresetAgain)
{
    launch();
    select(QStringLiteral("Rock"));
    ui.presetTableView->clearSelection();
    EXPECT_EQ(names().at(selectedRow()), QStringLiteral("Rock"));
}

TEST_F(Equalizer, ReturnInABoxGivesTheKeyboardToTheSliders)
{
    launch();
    window.show();
    box(0)->setFocus();
    controller.controlTextDidEndEditing();
    EXPECT_EQ(window.focusWidget(), ui.sliders);
}

TEST_F(Equalizer, PresetTableModelIsConsistent)
{
    PresetTableModel model;
    const QAbstractItemModelTester tester(&model,
                                          QAbstractItemModelTester::FailureReportingMode::Fatal);
    model.setArrangedObjects(*presets);
    EXPECT_EQ(model.rowCount(), 4);
    model.setArrangedObjects({});
    EXPECT_EQ(model.rowCount(), 0);
}

} // namespace
} // namespace lyrabox
