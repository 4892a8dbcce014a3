// Presets and bands change while a popover of the preset list is open.

#include "equalizer/EqualizerFixture.h"

#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QTest>
#include <QWheelEvent>

namespace lyrabox {
namespace {

using testing::Each;

/// The shown window, connected as in the program, with its presets.
struct PresetPopover : test::Equalizer {
    PresetPopover()
    {
        for (LB_Slider *band : ui.sliders->findChildren<LB_Slider *>())
            QObject::connect(band, &LB_Slider::moved, &controller,
                             &LB_EqualizerController::sliderValueChanged);
        for (NumberField *band : ui.boxes->findChildren<NumberField *>())
            QObject::connect(band, &NumberField::entered, &controller,
                             &LB_EqualizerController::boxValueChanged);
        for (ButtonMatrix *band : ui.stepControls->findChildren<ButtonMatrix *>())
            QObject::connect(band, &ButtonMatrix::pressed, &controller,
                             &LB_EqualizerController::eqButtonPressed);
        QObject::connect(ui.addRemoveButton, &QAbstractButton::clicked, &controller,
                         [this] { controller.addRemoveButtonPressed(ui.addRemoveButton); });
        launch();
        window.show();
    }

    void turnWheelOver(QWidget *widget) const
    {
        const QPointF middle = QRectF(widget->rect()).center();
        QWheelEvent event(middle, widget->mapToGlobal(middle), QPoint(), QPoint(0, 120),
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(widget, &event);
    }
    void press() const { ui.addRemoveButton->click(); }
    /// Opens the question whether to remove "Attic", and returns its OK button.
    QPointer<QAbstractButton> askToRemoveAttic() const
    {
        select(QStringLiteral("Attic"));
        press();
        EXPECT_TRUE(popover.isShown());
        EXPECT_EQ(static_cast<QLabel *>(popoverChild("messageField"))->text(),
                  QStringLiteral("Remove preset 'Attic'?"));
        return static_cast<QAbstractButton *>(popoverChild("okButton"));
    }
    void typeInto(int band, const QString &text) const
    {
        box(band)->setFocus();
        box(band)->selectAll();
        QTest::keyClicks(box(band), text);
    }

    const EqPresetList before{user, rock, manual, bass};
};

TEST_F(PresetPopover, WheelOverASliderBehindTheQuestionClosesItAndRemovesNothing)
{
    const QPointer<QAbstractButton> ok = askToRemoveAttic();
    turnWheelOver(slider(3));
    EXPECT_EQ(controller.currentPreset()->id, 0);
    EXPECT_FALSE(popover.isShown());
    if (ok)
        ok->click();
    EXPECT_EQ(*presets, before);
    // The next edit changes only the manual preset.
    turnWheelOver(slider(4));
    EXPECT_THAT(*bass->levels, Each(3.0F));
    EXPECT_THAT(*rock->levels, Each(5.0F));
    EXPECT_EQ((*manual->levels)[4], engineLevel(4));
}

TEST_F(PresetPopover, AnotherPresetSelectedBehindTheQuestionClosesItAndRemovesNothing)
{
    const QPointer<QAbstractButton> ok = askToRemoveAttic();
    select(QStringLiteral("Rock"));
    EXPECT_FALSE(popover.isShown());
    if (ok)
        ok->click();
    EXPECT_EQ(*presets, before);
}

TEST_F(PresetPopover, ASelectionThatIsClearedAndComesBackKeepsTheQuestionOpen)
{
    const QPointer<QAbstractButton> ok = askToRemoveAttic();
    ui.presetTableView->clearSelection();
    ASSERT_TRUE(popover.isShown());
    ok->click();
    EXPECT_EQ(*presets, (EqPresetList{rock, manual, bass}));
    EXPECT_EQ(controller.currentPreset()->id, 0);
}

TEST_F(PresetPopover, ABuiltInPresetIsNeverRemoved)
{
    for (const char *name : {"Manual", "bass", "Rock"}) {
        select(QLatin1String(name));
        controller.removeOkButtonPressed();
        EXPECT_EQ(*presets, before) << name;
    }
}

TEST_F(PresetPopover, ASecondOkRemovesNothing)
{
    const QPointer<QAbstractButton> ok = askToRemoveAttic();
    ok->click();
    ASSERT_EQ(presets->size(), 3U);
    if (ok)
        ok->click();
    EXPECT_EQ(presets->size(), 3U);
}

TEST_F(PresetPopover, AChangedBandKeepsTheTypedNameOfANewPreset)
{
    select(QStringLiteral("Rock"));
    press();
    ASSERT_TRUE(popover.isShown());
    auto *input = static_cast<QLineEdit *>(popoverChild("inputField"));
    QTest::keyClicks(input, QStringLiteral("Hall"));
    turnWheelOver(slider(2));
    ASSERT_TRUE(popover.isShown()) << "a built-in preset is still selected";
    EXPECT_EQ(input->text(), QStringLiteral("Hall"));
    QTest::keyClick(input, Qt::Key_Return);
    ASSERT_EQ(presets->size(), 5U);
    EXPECT_EQ(presets->back()->name, QStringLiteral("Hall"));
    EXPECT_EQ((*presets->back()->levels)[2], engineLevel(2));
    EXPECT_EQ(controller.currentPreset()->name, QStringLiteral("Hall"));
}

TEST_F(PresetPopover, SelectingAUserPresetClosesTheQuestionForAName)
{
    select(QStringLiteral("Rock"));
    press();
    ASSERT_TRUE(popover.isShown());
    select(QStringLiteral("Attic"));
    EXPECT_FALSE(popover.isShown()) << "the button now removes";
    EXPECT_EQ(*presets, before);
}

TEST_F(PresetPopover, ClosingTheWindowClosesTheQuestion)
{
    askToRemoveAttic();
    window.close();
    EXPECT_FALSE(popover.isShown());
    EXPECT_EQ(*presets, before);
    select(QStringLiteral("bass"));
    window.show();
    EXPECT_FALSE(popover.isShown());
}

TEST_F(PresetPopover, EditsReachTheManualPresetInAnyRow)
{
    manual->persistent = QStringLiteral("0"); // after the others
    controller.appDidLaunch();
    select(QStringLiteral("bass"));
    ASSERT_EQ(selectedRow(), 0);
    turnWheelOver(slider(1));
    EXPECT_EQ(controller.currentPreset()->id, 0);
    EXPECT_THAT(*bass->levels, Each(3.0F));
    EXPECT_EQ((*manual->levels)[1], engineLevel(1));
    EXPECT_EQ((*manual->levels)[2], 3.0F);
    EXPECT_EQ(names().at(selectedRow()), QStringLiteral("Manual"));
}

// A half-typed level.

TEST_F(PresetPopover, AHalfTypedLevelIsEnteredWhenAnotherSliderMoves)
{
    select(QStringLiteral("Rock"));
    typeInto(3, QStringLiteral("-4"));
    turnWheelOver(slider(6));
    EXPECT_EQ(engineLevel(3), -4.0F);
    EXPECT_EQ((*manual->levels)[3], -4.0F);
    EXPECT_EQ(box(3)->floatValue(), -4.0F);
    EXPECT_EQ(slider(3)->floatValue(), -4.0F);
    EXPECT_GT(engineLevel(6), 5.0F);
    EXPECT_EQ((*manual->levels)[6], engineLevel(6));
    EXPECT_EQ(slider(6)->floatValue(), engineLevel(6));
    EXPECT_EQ(box(6)->floatValue(), engineLevel(6));
    EXPECT_EQ((*manual->levels)[7], 5.0F);
    EXPECT_THAT(*rock->levels, Each(5.0F));
}

TEST_F(PresetPopover, AHalfTypedLevelIsEnteredWhenAnyBandSteps)
{
    select(QStringLiteral("Rock"));
    typeInto(3, QStringLiteral("2"));
    steps(8)->pressCellWithTag(0);
    EXPECT_EQ((*manual->levels)[3], 2.0F);
    EXPECT_EQ((*manual->levels)[8], 4.0F);
    typeInto(3, QStringLiteral("7"));
    steps(3)->pressCellWithTag(2);
    EXPECT_EQ((*manual->levels)[3], 8.0F);
    EXPECT_EQ(box(3)->floatValue(), 8.0F);
}

TEST_F(PresetPopover, ASliderOverridesTheHalfTypedLevelOfItsBand)
{
    select(QStringLiteral("Rock"));
    typeInto(3, QStringLiteral("-9"));
    turnWheelOver(slider(3));
    EXPECT_GT(engineLevel(3), 5.0F);
    EXPECT_EQ((*manual->levels)[3], engineLevel(3));
    EXPECT_EQ(box(3)->floatValue(), engineLevel(3));
    EXPECT_EQ(slider(3)->floatValue(), engineLevel(3));
}

TEST_F(PresetPopover, AHalfTypedTextThatIsNotANumberIsReplacedWhenAnotherBandMoves)
{
    select(QStringLiteral("Rock"));
    typeInto(3, QStringLiteral("-"));
    turnWheelOver(slider(6));
    EXPECT_EQ((*manual->levels)[3], 5.0F);
    EXPECT_EQ(box(3)->floatValue(), 5.0F);
}

TEST_F(PresetPopover, AHalfTypedLevelIsEnteredInsteadOfAskingAboutRemoval)
{
    select(QStringLiteral("Attic"));
    typeInto(3, QStringLiteral("6"));
    press();
    EXPECT_EQ((*manual->levels)[3], 6.0F);
    EXPECT_FALSE(popover.isShown()) << "no question about another preset or for a name";
    EXPECT_EQ(*presets, before);
}

TEST_F(PresetPopover, AHalfTypedLevelBelongsToThePresetThatIsAdded)
{
    select(QStringLiteral("Rock"));
    typeInto(3, QStringLiteral("6"));
    press();
    ASSERT_TRUE(popover.isShown());
    QTest::keyClick(popoverChild("inputField"), Qt::Key_Return);
    ASSERT_EQ(presets->size(), 5U);
    EXPECT_EQ((*presets->back()->levels)[3], 6.0F);
    EXPECT_EQ((*presets->back()->levels)[4], 5.0F);
}

} // namespace
} // namespace lyrabox
