#include "BeatsFixture.h"
#include "app/practice/LoopEnds.h"
#include "app/practice/TextButton.h"
#include "platform/ui/NumberField.h"

#include <QAccessible>
#include <QLabel>

#include <algorithm>

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

namespace {

class TheBeatPage : public testing::Test, protected BeatsFixture {
protected:
    TextButton *button(const QString &name)
    {
        for (TextButton *each : page()->findChildren<TextButton *>()) {
            if (each->accessibleName() == name)
                return each;
        }
        ADD_FAILURE() << "no button " << name.toStdString();
        return nullptr;
    }

    NumberField *field(const QString &name)
    {
        for (NumberField *each : page()->findChildren<NumberField *>()) {
            if (each->accessibleName() == name)
                return each;
        }
        ADD_FAILURE() << "no field " << name.toStdString();
        return nullptr;
    }

    static void type(NumberField *field, const QString &text)
    {
        field->setFocus();
        field->selectAll();
        QTest::keyClicks(field, text);
        QTest::keyClick(field, Qt::Key_Return);
    }
};

TEST_F(TheBeatPage, ConfirmsAndClearsASuggestion)
{
    EXPECT_TRUE(page()->stateText().startsWith(u"About 120 BPM."_s));
    EXPECT_EQ(field(u"Tempo of the song in beats per minute"_s)->text().left(3), u"120"_s);
    QTest::mouseClick(button(u"Use Suggestion"_s), Qt::LeftButton);
    EXPECT_FALSE(grid().isEmpty());
    EXPECT_EQ(page()->stateText(), u"The beats of the whole song are known."_s);
    EXPECT_FALSE(button(u"Use Suggestion"_s)->isEnabled());
    QTest::mouseClick(button(u"Clear Beats"_s), Qt::LeftButton);
    EXPECT_TRUE(grid().isEmpty());
}

TEST_F(TheBeatPage, HalvesDoublesAndShifts)
{
    setBeats(steadyGrid());
    QTest::mouseClick(button(u"Half the Tempo"_s), Qt::LeftButton);
    EXPECT_EQ(field(u"Tempo of the song in beats per minute"_s)->text(), u"60"_s);
    QTest::mouseClick(button(u"Twice the Tempo"_s), Qt::LeftButton);
    QTest::mouseClick(button(u"Three Halves of the Tempo"_s), Qt::LeftButton);
    EXPECT_EQ(field(u"Tempo of the song in beats per minute"_s)->text(), u"180"_s);
    EXPECT_TRUE(store().undo());
    QTest::mouseClick(button(u"Beats, Bars One Beat Later"_s), Qt::LeftButton);
    EXPECT_EQ(static_cast<int>(grid().placeAt(beatFrames + 9.0).beat), 1);
    QTest::mouseClick(button(u"Beats, Bars One Beat Earlier"_s), Qt::LeftButton);
    EXPECT_EQ(static_cast<int>(grid().placeAt(9.0).beat), 1);
}

TEST_F(TheBeatPage, ChangesTheBarsOfTheSongOrFromTheBarAtTheLineOn)
{
    setBeats(steadyGrid());
    NumberField *bar = field(u"Beats per bar"_s);
    EXPECT_EQ(bar->text(), u"4"_s);
    QTest::mouseClick(button(u"One beat less per bar"_s), Qt::LeftButton);
    EXPECT_EQ(bar->text(), u"3"_s);
    EXPECT_EQ(beats().beatsPerBar(0), 3);
    EXPECT_TRUE(store().undo());
    audio().setCurrentFrame(17 * beatFrames);
    wave().showPosition();
    TextButton *from = nullptr;
    for (TextButton *each : page()->findChildren<TextButton *>()) {
        if (each->text() == u"from bar 5"_s)
            from = each;
    }
    ASSERT_NE(from, nullptr);
    from->click();
    type(bar, u"7"_s);
    EXPECT_EQ(beats().beatsPerBar(10 * beatFrames), 4);
    EXPECT_EQ(beats().beatsPerBar(17 * beatFrames), 7);
    type(bar, u"13"_s);
    EXPECT_EQ(beats().beatsPerBar(17 * beatFrames), 12);
    EXPECT_FALSE(button(u"One beat more per bar"_s)->isEnabled());
}

TEST_F(TheBeatPage, TakesTheLengthOfBarsBeforeTheBeatsAreTapped)
{
    QTest::mouseClick(button(u"One beat less per bar"_s), Qt::LeftButton);
    tapBeats(8);
    EXPECT_EQ(beats().beatsPerBar(4 * beatFrames), 3);
}

TEST_F(TheBeatPage, LooksForATypedTempo)
{
    type(field(u"Tempo of the song in beats per minute"_s), u"60"_s);
    waitForAnalysis();
    EXPECT_NEAR(beats().suggestedTempo(), 60.0, 0.2);
    EXPECT_TRUE(grid().isEmpty());
}

TEST_F(TheBeatPage, TellsWhatTheTapsCameTo)
{
    EXPECT_TRUE(button(u"Tap Beat"_s)->isEnabled());
    tapBeats(3);
    EXPECT_EQ(page()->stateText(), u"Tap 3 of 8 …"_s);
    tapBeats(5, 7);
    EXPECT_EQ(page()->stateText(), u"The beats of the whole song are known."_s);
    const auto at = [](std::uint64_t beats) { return beats * beatFrames; };
    setBeats(
        BeatGrid({{.frame = at(0), .bar = 1, .beat = 1}, {.frame = at(16), .bar = 5, .beat = 1}}));
    EXPECT_TRUE(page()->stateText().startsWith(u"Where the wave is hatched"_s));
}

TEST_F(TheBeatPage, FitsIntoTheLowestPane)
{
    EXPECT_LE(page()->sizeHint().height(), 166);
    EXPECT_LE(page()->minimumSizeHint().width(), PracticePages::pageWidth);
    for (const QLabel *label : page()->findChildren<QLabel *>()) {
        EXPECT_TRUE(label->wordWrap() || label->sizeHint().width() <= label->width())
            << label->text().toStdString();
    }
}

TEST_F(TheBeatPage, IsNamedForScreenReaders)
{
    for (QWidget *widget : page()->findChildren<QWidget *>()) {
        if (widget->focusPolicy() == Qt::NoFocus || widget->objectName().startsWith(u"qt_"_s))
            continue;
        const QAccessibleInterface *interface = QAccessible::queryAccessibleInterface(widget);
        ASSERT_NE(interface, nullptr);
        EXPECT_GT(interface->text(QAccessible::Name).size(), 2)
            << widget->metaObject()->className();
    }
}

TEST_F(TheBeatPage, IsNotAloneInKnowingTheBars)
{
    setBeats(steadyGrid());
    audio().setLoop({8 * beatFrames, 16 * beatFrames});
    const auto labels = pane->findChild<LoopEnds *>()->findChildren<QLabel *>();
    const auto shows = [&](const QString &text) {
        return std::ranges::any_of(labels,
                                   [&](const QLabel *label) { return label->text() == text; });
    };
    EXPECT_TRUE(shows(u"2 bars · 4.00 s"_s));
    EXPECT_TRUE(store().undo());
    EXPECT_TRUE(shows(u"4.00 s"_s)) << "without beats";
}

TEST_F(TheBeatPage, MovesLoopsByBeatsAndWithoutBeatsByTenthsOfASecond)
{
    audio().setLoop({8 * beatFrames, 16 * beatFrames});
    pane->perform(PracticeCommand::MoveStart, -longestMove);
    EXPECT_EQ(audio().loop()->start, 8 * beatFrames - 4410);
    audio().setLoop({8 * beatFrames, 16 * beatFrames});
    setBeats(steadyGrid());
    pane->perform(PracticeCommand::MoveStart, -longestMove);
    EXPECT_EQ(audio().loop()->start, 7 * beatFrames);
    pane->perform(PracticeCommand::MoveStart, 10);
    EXPECT_EQ(audio().loop()->start, 7 * beatFrames + 441);
}

TEST_F(TheBeatPage, HasCommandsForTheBeatAtTheLine)
{
    setBeats(steadyGrid());
    audio().setCurrentFrame(8 * beatFrames + 2'000);
    wave().showPosition();
    pane->perform(PracticeCommand::MoveBeat, 10);
    EXPECT_NEAR(grid().frameOfBeats(8.0), 8.0 * beatFrames + 441.0, 1.0);
    EXPECT_FALSE(pane->canPerform(PracticeCommand::UseSuggestion));
    pane->perform(PracticeCommand::ClearBeats);
    EXPECT_FALSE(pane->canPerform(PracticeCommand::MoveBeat, 10));
    EXPECT_TRUE(pane->canPerform(PracticeCommand::UseSuggestion));
}

} // namespace
