// The page of the trainer and the ladder, as the pane shows them.

#include "PaneFixture.h"
#include "app/practice/ChoiceButton.h"
#include "app/practice/RotationBox.h"
#include "app/practice/TextButton.h"
#include "app/practice/TrainerLadder.h"
#include "app/practice/TrainerPage.h"
#include "app/practice/TrainerRun.h"
#include "app/practice/TrainerWords.h"
#include "platform/ui/NumberField.h"

#include <QAccessible>
#include <QCheckBox>
#include <QLabel>
#include <QMenu>
#include <QScrollArea>
#include <QSignalSpy>

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

namespace {

class TheTrainersPage : public testing::Test, protected PaneFixture {
protected:
    TheTrainersPage()
    {
        showSong();
        loop = addLoop(2, u"Riff"_s);
        pane->pages()->showPage(pane->trainerPage());
    }

    PracticeId addLoop(std::uint64_t second, const QString &name)
    {
        const PracticeLoop added{.name = name, .from = second * rate, .to = (second + 1) * rate};
        EXPECT_TRUE(practice->store().apply({PutLoop{added}}));
        return added.id;
    }

    NumberField *field(const QString &name) { return named<NumberField>(name); }
    ChoiceButton *choice(const QString &label) { return named<ChoiceButton>(label); }

    template <typename Widget>
    Widget *named(const QString &name)
    {
        for (Widget *each : pane->trainerPage()->findChildren<Widget *>()) {
            if (each->accessibleName().startsWith(name))
                return each;
        }
        throw std::out_of_range(name.toStdString());
    }

    static void enter(NumberField *field, const QString &text)
    {
        field->setFocus();
        field->selectAll();
        QTest::keyClicks(field, text);
        QTest::keyClick(field, Qt::Key_Return);
    }

    static void choose(ChoiceButton *button, int index)
    {
        button->menu()->actions().at(index)->trigger();
    }

    TrainerSettings kept() const
    {
        return practice->record().loop(loop)->trainer.value_or(TrainerSettings{});
    }

    TrainerRun &run() { return *pane->trainer(); }
    TrainerLadder &ladder() { return *pane->findChild<TrainerLadder *>(); }

    PracticeId loop = 0;
};

TEST_F(TheTrainersPage, KeepsWhatIsEnteredWithTheLoopAsStepsThatCanBeUndone)
{
    practice->play(loop);
    enter(field(u"First speed"_s), u"50"_s);
    EXPECT_EQ(kept().from, 50);
    choose(choice(u"On a miss"_s), 2);
    EXPECT_EQ(kept().afterMiss, AfterMiss::TwoDown);
    choose(choice(u"At the top"_s), 4);
    EXPECT_EQ(kept().atTop, AtTop::TenMore);
    ASSERT_TRUE(practice->store().undo());
    ASSERT_TRUE(practice->store().undo());
    EXPECT_EQ(kept().afterMiss, AfterMiss::OneDown);
    EXPECT_EQ(choice(u"On a miss"_s)->current(), 1) << "the page follows";
}

TEST_F(TheTrainersPage, PutsATopBelowTheFirstSpeedInOrder)
{
    practice->play(loop);
    enter(field(u"First speed"_s), u"120"_s);
    EXPECT_EQ(kept().from, 100);
    EXPECT_EQ(kept().to, 120);
    EXPECT_EQ(field(u"First speed"_s)->floatValue(), 100.0F);
    EXPECT_EQ(field(u"Last speed"_s)->floatValue(), 120.0F);
}

TEST_F(TheTrainersPage, BringsNumbersIntoTheirRanges)
{
    practice->play(loop);
    enter(field(u"Last speed"_s), u"900"_s);
    EXPECT_EQ(kept().to, 200);
    enter(field(u"First speed"_s), u"1"_s);
    EXPECT_EQ(kept().from, 10);
    enter(field(u"Size of a step"_s), u"0"_s);
    EXPECT_EQ(kept().step, 1);
    enter(field(u"Passes at each speed"_s), u"1000"_s);
    EXPECT_EQ(kept().passes, 99);
    enter(field(u"Size of a step"_s), u"much"_s);
    EXPECT_EQ(kept().step, 1);
}

TEST_F(TheTrainersPage, KeepsTheLoopThatSoundsWithItsFirstChange)
{
    audio().setLoop({10 * rate, 12 * rate});
    enter(field(u"First speed"_s), u"50"_s);
    ASSERT_TRUE(practice->calledUpLoop());
    EXPECT_NE(practice->calledUp(), loop);
    EXPECT_EQ(practice->calledUpLoop()->trainer->from, 50);
}

TEST_F(TheTrainersPage, IsGrayWithoutALoopAndSaysSo)
{
    EXPECT_FALSE(field(u"First speed"_s)->isEnabled());
    const auto labels = pane->trainerPage()->findChildren<QLabel *>();
    EXPECT_TRUE(std::ranges::any_of(labels, [](const QLabel *label) {
        return label->isVisibleTo(label->window()) &&
               label->text() == u"Make a loop to train it."_s;
    }));
    practice->play(loop);
    EXPECT_TRUE(field(u"First speed"_s)->isEnabled());
}

TEST_F(TheTrainersPage, OffersBeatsPerMinuteWithAGridAndConvertsTheSpeeds)
{
    practice->play(loop);
    const QAction *beats = choice(u"Unit"_s)->menu()->actions().at(1);
    EXPECT_FALSE(beats->isEnabled());
    ASSERT_TRUE(practice->store().apply(
        {PutBeats{BeatGrid({{.frame = 0}, {.frame = 20 * rate, .bar = 11}})}})); // 120 BPM
    ASSERT_TRUE(beats->isEnabled());
    choose(choice(u"Unit"_s), 1);
    EXPECT_EQ(kept().unit, TempoUnit::BeatsPerMinute);
    EXPECT_EQ(kept().from, 72);
    EXPECT_EQ(kept().to, 120);
    EXPECT_EQ(kept().step, 6);
    choose(choice(u"Unit"_s), 0);
    EXPECT_EQ(kept(), TrainerSettings{});
}

TEST_F(TheTrainersPage, LeavesAnEditAloneWhilePassesAreCounted)
{
    practice->play(loop);
    ASSERT_TRUE(run().start());
    NumberField *from = field(u"First speed"_s);
    from->setFocus();
    from->selectAll();
    QTest::keyClicks(from, u"4"_s);
    run().missed();
    EXPECT_EQ(from->text(), u"4"_s);
}

TEST_F(TheTrainersPage, HasANameForEveryControl)
{
    for (QWidget *each : pane->trainerPage()->findChildren<QWidget *>()) {
        if (each->focusPolicy() == Qt::NoFocus || !each->isVisibleTo(pane.get()))
            continue;
        const QAccessibleInterface *shown = QAccessible::queryAccessibleInterface(each);
        ASSERT_NE(shown, nullptr);
        EXPECT_FALSE(shown->text(QAccessible::Name).isEmpty()) << each->metaObject()->className();
    }
}

TEST_F(TheTrainersPage, RotatesTheTickedLoopsAndWithoutATickAllThatCanBePlayed)
{
    const PracticeId second = addLoop(5, u"Fill"_s);
    const PracticeId beyond = addLoop(29, {});
    RotationBox &box = *pane->trainerPage()->rotation();
    ASSERT_NE(box.tick(second), nullptr);
    EXPECT_EQ(box.loops(), (std::vector<PracticeId>{loop, second, beyond}));
    box.tick(second)->click();
    EXPECT_EQ(box.loops(), std::vector<PracticeId>{second});
    ASSERT_TRUE(practice->rename(second, u"Break"_s));
    EXPECT_EQ(box.tick(second)->text(), u"Break"_s);
    EXPECT_EQ(box.loops(), std::vector<PracticeId>{second}) << "a new name keeps the tick";
    ASSERT_TRUE(practice->remove(second));
    EXPECT_EQ(box.loops(), (std::vector<PracticeId>{loop, beyond}));
    EXPECT_EQ(box.turn().amount, 5);
    EXPECT_EQ(box.turn().unit, LoopRotation::Turn::Unit::Passes);
}

TEST_F(TheTrainersPage, IsNotWidenedByALongNameNorDoesItTakeOneForRichText)
{
    const QString name = u"<b>A & B</b> "_s.repeated(15);
    const PracticeId lengthy = addLoop(5, name);
    QCheckBox *box = pane->trainerPage()->rotation()->tick(lengthy);
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(box->accessibleName(), practice->record().loop(lengthy)->name);
    EXPECT_FALSE(box->toolTip().contains(u"<b>"_s));
    const auto *area = pane->trainerPage()->findChild<QScrollArea *>();
    QCoreApplication::processEvents();
    EXPECT_LE(area->widget()->width(), area->viewport()->width());
}

TEST_F(TheTrainersPage, ShowsTheLadderOnlyWhileARunIsOn)
{
    EXPECT_FALSE(ladder().isVisible());
    practice->play(loop);
    EXPECT_FALSE(ladder().isVisible());
    pane->perform(PracticeCommand::Train);
    ASSERT_TRUE(ladder().isVisible());
    EXPECT_TRUE(pane->isChecked(PracticeCommand::Train));
    EXPECT_EQ(ladder().steps().size(), 9);
    EXPECT_EQ(ladder().words(), u"pass 1 of 3 · next 65 %"_s);
    EXPECT_EQ(ladder().steps().first()->text(), u"60 %"_s);
    EXPECT_EQ(ladder().steps().first()->accessibleName(), u"60 %, present speed"_s);
    pane->perform(PracticeCommand::PassMissed);
    EXPECT_TRUE(ladder().words().startsWith(u"this pass is missed"_s));
    pane->perform(PracticeCommand::Train);
    EXPECT_FALSE(ladder().isVisible());
}

TEST_F(TheTrainersPage, AStepOfTheLadderGoesToItsSpeed)
{
    practice->play(loop);
    pane->perform(PracticeCommand::Train);
    QTest::mouseClick(ladder().steps().at(3), Qt::LeftButton);
    EXPECT_EQ(audio().playbackSpeedPct(), 75.0F);
    EXPECT_EQ(ladder().steps().at(3)->accessibleName(), u"75 %, present speed"_s);
    EXPECT_EQ(ladder().steps().at(2)->accessibleName(), u"70 %, played"_s);
    QTest::keyClick(ladder().steps().at(1), Qt::Key_Space);
    EXPECT_EQ(audio().playbackSpeedPct(), 65.0F);
    QAccessibleInterface *step = QAccessible::queryAccessibleInterface(ladder().steps().at(5));
    ASSERT_TRUE(step != nullptr && step->actionInterface() != nullptr);
    EXPECT_EQ(step->role(), QAccessible::Button);
    QSignalSpy pressed(ladder().steps().at(5), &QAbstractButton::clicked);
    step->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    ASSERT_TRUE(pressed.wait()); // it is shown pressed first
    EXPECT_EQ(audio().playbackSpeedPct(), 85.0F);
    audio().setPlaybackSpeedPct(73.0F);
    EXPECT_EQ(ladder().steps().at(2)->text(), u"73 %"_s) << "between two steps";
}

TEST_F(TheTrainersPage, ALongLadderShowsTheStepsAroundThePresentOne)
{
    practice->play(loop);
    TrainerSettings fine;
    fine.step = 1;
    ASSERT_TRUE(run().setSettings(fine));
    pane->perform(PracticeCommand::Train);
    run().goTo(80.0);
    const QList<LadderStep *> steps = ladder().steps();
    EXPECT_LT(steps.size(), 41);
    EXPECT_TRUE(std::ranges::any_of(
        steps, [](const LadderStep *step) { return step->text() == u"80 %"_s; }));
    for (const LadderStep *step : steps)
        EXPECT_LE(step->geometry().right(), ladder().width());
}

TEST(ShownRungs, LieAroundThePresentOneAndWithinTheLadder)
{
    EXPECT_EQ(shownRungs(9, 3, 20), (ShownRungs{0, 9}));
    EXPECT_EQ(shownRungs(40, 0, 9), (ShownRungs{0, 9}));
    EXPECT_EQ(shownRungs(40, 20, 9), (ShownRungs{16, 9}));
    EXPECT_EQ(shownRungs(40, 39, 9), (ShownRungs{31, 9}));
    EXPECT_EQ(shownRungs(5, 2, 0), (ShownRungs{2, 0}));
}

TEST(TheWordsOfTheTrainer, SayTheSpeedInTheUnitOfTheLadder)
{
    EXPECT_EQ(trainerWords::speed(75.0, TempoUnit::Percent, 123.0), u"75 %"_s);
    EXPECT_EQ(trainerWords::speed(75.0, TempoUnit::BeatsPerMinute, 123.0), u"92 BPM"_s);
    EXPECT_EQ(trainerWords::speed(75.0, TempoUnit::BeatsPerMinute, 0.0), u"75 %"_s);
    EXPECT_EQ(trainerWords::strip({}, {}), QString());
    const TrainerStrip strip{
        .isRunning = true, .passesDone = 3, .passesNeeded = 3, .news = TrainerStrip::News::AtTop};
    EXPECT_EQ(trainerWords::strip(strip, {}), u"at the top · pass 3 of 3"_s);
    EXPECT_EQ(trainerWords::shortStrip(strip), u"3 of 3"_s);
}

} // namespace
