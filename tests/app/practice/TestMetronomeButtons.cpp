#include "PaneFixture.h"
#include "app/practice/ArrowButton.h"
#include "app/practice/ClickSettingsPanel.h"
#include "app/practice/CountInSettingsPanel.h"
#include "app/practice/Metronome.h"
#include "app/practice/MetronomeCommands.h"
#include "platform/foundation/UserDefaults.h"
#include "platform/ui/NumberField.h"
#include "platform/ui/Popover.h"
#include "platform/ui/SegmentedControl.h"

#include <QAccessible>
#include <QLabel>

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

namespace {

class TheMetronomesButtons : public testing::Test {
protected:
    TheMetronomesButtons()
    {
        fixture.showSong();
        pane().resize(1000, 320);
    }
    ~TheMetronomesButtons() override { userDefaults().clear(); }

    PracticePane &pane() { return *fixture.pane; }
    Metronome &metronome() { return *fixture.metronome; }

    ArrowButton *button(const QString &name)
    {
        for (ArrowButton *each : pane().findChildren<ArrowButton *>()) {
            if (each->accessibleName() == name)
                return each;
        }
        return nullptr;
    }

    template <typename Control>
    Control *inPanel(const QString &name)
    {
        const auto *popover = pane().findChild<Popover *>();
        if (popover == nullptr || !popover->isShown())
            return nullptr;
        for (Control *each : popover->contentView()->findChildren<Control *>()) {
            if (each->accessibleName() == name)
                return each;
        }
        return nullptr;
    }

    bool panelIsOpen()
    {
        const auto *popover = pane().findChild<Popover *>();
        return popover != nullptr && popover->isShown();
    }

    void putBeats()
    {
        ASSERT_TRUE(fixture.practice->store().apply(
            {PutBeats{BeatGrid({{.frame = 0, .bar = 1}, {.frame = 20 * 88200, .bar = 21}})}}));
    }

    QString headerText()
    {
        for (const QLabel *label : pane().findChildren<QLabel *>()) {
            if (label->accessibleDescription() == u"Loop"_s)
                return label->text();
        }
        return {};
    }

    PaneFixture fixture;
};

TEST_F(TheMetronomesButtons, SwitchAndShowTheState)
{
    ASSERT_NE(button(u"Click"_s), nullptr);
    QTest::mouseClick(button(u"Click"_s), Qt::LeftButton, {}, {10, 10});
    EXPECT_TRUE(metronome().clickIsOn());
    EXPECT_TRUE(button(u"Click"_s)->isChecked());
    EXPECT_FALSE(button(u"Count-in"_s)->isChecked());
    metronome().setClickOn(false);
    EXPECT_FALSE(button(u"Click"_s)->isChecked());
    QTest::keyClick(button(u"Count-in"_s), Qt::Key_Space);
    EXPECT_TRUE(metronome().countInIsOn());
    EXPECT_TRUE(pane().isChecked(PracticeCommand::CountIn));
    EXPECT_FALSE(panelIsOpen());
}

TEST_F(TheMetronomesButtons, SayWhatIsMissing)
{
    const QString before = headerText();
    pane().perform(PracticeCommand::Click);
    EXPECT_EQ(headerText(), u"Tap the beat first: T"_s);
    EXPECT_EQ(button(u"Click"_s)->accessibleDescription(), u"Tap the beat first: T"_s);
    EXPECT_TRUE(button(u"Click"_s)->isWaiting());
    EXPECT_EQ(button(u"Click"_s)->toolTip(), u"Click (C)\nTap the beat first: T"_s);
    putBeats();
    EXPECT_FALSE(button(u"Click"_s)->isWaiting());
    EXPECT_EQ(button(u"Click"_s)->toolTip(), u"Click (C)"_s);
    EXPECT_EQ(headerText(), before);
    EXPECT_TRUE(button(u"Click"_s)->accessibleDescription().isEmpty());
}

TEST_F(TheMetronomesButtons, OpenTheSettingsWithTheArrowTheRightButtonAndTheMenu)
{
    ArrowButton *click = button(u"Click"_s);
    QTest::mouseClick(click, Qt::LeftButton, {}, click->arrowRect().center());
    EXPECT_TRUE(panelIsOpen());
    EXPECT_FALSE(metronome().clickIsOn());
    QTest::mouseClick(click, Qt::LeftButton, {}, click->arrowRect().center());
    EXPECT_FALSE(panelIsOpen()) << "a second click closes it";

    ArrowButton *countIn = button(u"Count-in"_s);
    QContextMenuEvent menu(QContextMenuEvent::Keyboard, countIn->rect().center(),
                           countIn->mapToGlobal(countIn->rect().center()));
    QCoreApplication::sendEvent(countIn, &menu);
    EXPECT_NE(inPanel<SegmentedControl>(u"When"_s), nullptr);
    pane().perform(PracticeCommand::ClickSettings);
    EXPECT_NE(inPanel<SegmentedControl>(u"Side"_s), nullptr) << "one panel takes the other's place";
    QTest::keyClick(pane().findChild<Popover *>(), Qt::Key_Escape);
    EXPECT_FALSE(panelIsOpen());
}

TEST_F(TheMetronomesButtons, SetTheClick)
{
    pane().perform(PracticeCommand::ClickSettings);
    inPanel<SegmentedControl>(u"Sound"_s)->pressSegment(2);
    inPanel<SegmentedControl>(u"Side"_s)->pressSegment(2);
    inPanel<SegmentedControl>(u"Accent"_s)->pressSegment(1);
    inPanel<SegmentedControl>(u"Clicks in a beat"_s)->pressSegment(2);
    inPanel<LB_Slider>(u"Loudness"_s)->moveByUser(75);
    auto *barsOff = inPanel<NumberField>(u"Silent bars"_s);
    barsOff->setFocus();
    barsOff->selectAll();
    QTest::keyClicks(barsOff, u"99"_s);
    QTest::keyClick(barsOff, Qt::Key_Return);
    const ClickSettings &click = metronome().click();
    EXPECT_EQ(click.timbre, ClickTimbre::Beep);
    EXPECT_EQ(click.side, ClickSide::Right);
    EXPECT_FALSE(click.hasAccents);
    EXPECT_EQ(click.pattern.subdivision, 3);
    EXPECT_EQ(click.loudness, 75);
    EXPECT_EQ(click.pattern.barsOff, ClickPattern::maximumBars);
    inPanel<SegmentedControl>(u"Beats"_s)->pressSegment(1);
    EXPECT_TRUE(metronome().click().pattern.onlyBackbeats);
    EXPECT_FALSE(inPanel<SegmentedControl>(u"Clicks in a beat"_s)->isEnabled());
    EXPECT_EQ(storedClickSettings(), metronome().click());
}

TEST_F(TheMetronomesButtons, SetTheCountIn)
{
    pane().perform(PracticeCommand::CountInSettings);
    inPanel<SegmentedControl>(u"Length"_s)->pressSegment(1);
    EXPECT_EQ(metronome().countIn().length,
              (CountInLength{.unit = CountInLength::Unit::Bars, .amount = 2}));
    inPanel<SegmentedControl>(u"Length"_s)->pressSegment(2);
    auto *beats = inPanel<NumberField>(u"Beats of the count-in"_s);
    ASSERT_TRUE(beats->isEnabled());
    beats->setFocus();
    beats->selectAll();
    QTest::keyClicks(beats, u"6"_s);
    QTest::keyClick(beats, Qt::Key_Return);
    EXPECT_EQ(metronome().countIn().length,
              (CountInLength{.unit = CountInLength::Unit::Beats, .amount = 6}));
    inPanel<SegmentedControl>(u"When"_s)->pressSegment(1);
    EXPECT_EQ(metronome().countIn().when, CountInSettings::When::EveryPass);
}

TEST_F(TheMetronomesButtons, TellTheBarsOfTheLoopWhereTheSongHasNoBeats)
{
    pane().perform(PracticeCommand::CountInSettings);
    EXPECT_FALSE(inPanel<NumberField>(u"Bars of the loop"_s)->isEnabled()) << "there is no loop";
    fixture.audio().setLoop({.start = 0, .end = 6 * 44100});
    auto *bars = inPanel<NumberField>(u"Bars of the loop"_s);
    ASSERT_TRUE(bars->isEnabled());
    bars->setFocus();
    bars->selectAll();
    QTest::keyClicks(bars, u"3"_s);
    QTest::keyClick(bars, Qt::Key_Return);
    EXPECT_EQ(metronome().loopBars(), (LoopBars{.bars = 3, .beatsPerBar = 4}));
    EXPECT_NEAR(metronome().beats().tempoAt(0), 120.0, 1e-9);
    putBeats();
    EXPECT_FALSE(bars->isEnabled());
    fixture.practice->store().undo();
    EXPECT_TRUE(bars->isEnabled());
    for (QPushButton *each : pane().findChild<Popover *>()->findChildren<QPushButton *>())
        each->click();
    EXPECT_FALSE(metronome().loopBars()) << "the button forgets";
}

TEST_F(TheMetronomesButtons, AreNamedForScreenReaders)
{
    for (const QString &name : {u"Click"_s, u"Count-in"_s}) {
        QAccessibleInterface *interface = QAccessible::queryAccessibleInterface(button(name));
        ASSERT_NE(interface, nullptr);
        EXPECT_EQ(interface->text(QAccessible::Name), name);
        EXPECT_TRUE(interface->state().checkable);
    }
    for (const auto command : {PracticeCommand::ClickSettings, PracticeCommand::CountInSettings}) {
        pane().perform(command);
        auto *popover = pane().findChild<Popover *>();
        EXPECT_FALSE(popover->accessibleName().isEmpty());
        for (const QWidget *each : popover->contentView()->findChildren<QWidget *>()) {
            if ((each->focusPolicy() & Qt::TabFocus) == 0)
                continue;
            QAccessibleInterface *interface =
                QAccessible::queryAccessibleInterface(const_cast<QWidget *>(each));
            EXPECT_FALSE(interface->text(QAccessible::Name).isEmpty())
                << each->metaObject()->className();
        }
    }
}

} // namespace
