#include "PaneFixture.h"
#include "app/practice/LoopEnds.h"
#include "app/practice/LoopListModel.h"
#include "app/practice/LoopsPage.h"
#include "app/practice/OverviewBar.h"
#include "app/practice/TextButton.h"

#include <QLabel>
#include <QLineEdit>
#include <QSet>

#include <algorithm>
#include <stdexcept>

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

namespace {

class ThePane : public testing::Test, protected PaneFixture {};

TEST_F(ThePane, KeepsNoOtherSongWhileItIsHidden)
{
    showSong();
    std::weak_ptr<const DecodedSong> song = pane->peaks().song();
    pane->hide();
    EXPECT_FALSE(song.expired());
    QSignalSpy changed(&pane->peaks(), &SongPeaks::songChanged);
    transport.load(TransportFixture::track(u"B"_s));
    ASSERT_TRUE(changed.size() > 0 || changed.wait());
    EXPECT_TRUE(song.expired());
    EXPECT_EQ(pane->peaks().song(), nullptr);
    pane->show();
    EXPECT_EQ(pane->peaks().song(), audio().decodedSong());
}

TEST_F(ThePane, ShowsTheSamePartAgainAfterItWasHidden)
{
    showSong();
    wave().zoomIn();
    wave().showFrame(20.0 * rate);
    const WaveScale before = wave().scale();
    pane->hide();
    pane->show();
    EXPECT_EQ(wave().scale(), before);
}

TEST_F(ThePane, GivesUpItsSongWhenItIsTold)
{
    showSong();
    pane->hide();
    pane->releaseSong();
    EXPECT_EQ(pane->peaks().song(), nullptr);
}

TEST_F(ThePane, ShowsTheOverviewFrom280PointsOn)
{
    showSong();
    auto *overview = pane->findChild<OverviewBar *>();
    EXPECT_TRUE(overview->isVisible());
    pane->resize(1000, 279);
    EXPECT_FALSE(overview->isVisible());
    pane->resize(1000, 280);
    EXPECT_TRUE(overview->isVisible());
}

TEST_F(ThePane, AClickInTheOverviewShowsThatPart)
{
    showSong();
    auto *overview = pane->findChild<OverviewBar *>();
    QTest::mouseClick(overview, Qt::LeftButton, {}, {overview->width() / 2, 10});
    const WaveScale scale = wave().scale();
    EXPECT_NEAR(scale.frameAt(wave().width() / 2.0), 15.0 * rate, 2.0 * scale.framesPerPoint);
    EXPECT_FALSE(wave().isFollowing());
    EXPECT_TRUE(seeks.isEmpty());
}

TEST_F(ThePane, SaysWhatTheLoopIsAndHowToMakeOne)
{
    const auto text = [&] {
        for (const QLabel *label : pane->findChildren<QLabel *>()) {
            if (label->accessibleDescription() == u"Loop"_s)
                return label->text();
        }
        return QString();
    };
    pane->show();
    EXPECT_EQ(text(), u"Play a song to see its wave."_s);
    showSong();
    EXPECT_EQ(text(), u"Drag across the wave to make a loop."_s);
    audio().setLoop({rate, 3 * rate + rate / 2});
    EXPECT_EQ(text(), u"Press K to keep this loop."_s);
    pane->perform(PracticeCommand::KeepLoop);
    EXPECT_EQ(text(), u"Loop 1"_s);
    practice->rename(*practice->calledUp(), u"<b>Turnaround</b>"_s);
    EXPECT_EQ(text(), u"<b>Turnaround</b>"_s);
}

TEST_F(ThePane, ItsButtonsAreCommandsWithNameAndKey)
{
    showSong();
    const auto buttons = pane->findChildren<TextButton *>();
    QSet<QString> names;
    int commandButtons = 0;
    for (const TextButton *button : buttons) {
        const QString name = button->accessibleName();
        const auto commands = practiceCommands();
        const auto isNamedAfter = [&](const auto &entry) { return name.endsWith(entry.name()); };
        if (std::ranges::any_of(commands, isNamedAfter)) {
            ++commandButtons;
            EXPECT_TRUE(std::ranges::any_of(commands, [&](const auto &entry) {
                return isNamedAfter(entry) && button->toolTip().contains(entry.keyText());
            })) << name.toStdString();
        }
        EXPECT_GT(name.size(), 2) << button->text().toStdString();
        names.insert(name);
    }
    EXPECT_EQ(names.size(), buttons.size()) << "no two have one name";
    EXPECT_GE(commandButtons, 19);
}

TEST_F(ThePane, ItsButtonsAreEnabledWhileTheirCommandWouldDoSomething)
{
    showSong();
    const auto button = [&](const QString &name) {
        for (TextButton *each : pane->findChildren<TextButton *>()) {
            if (each->accessibleName() == name)
                return each;
        }
        throw std::out_of_range("no such button");
    };
    EXPECT_FALSE(button(u"Keep Loop"_s)->isEnabled());
    audio().setLoop({rate, 3 * rate});
    ASSERT_TRUE(button(u"Keep Loop"_s)->isEnabled());
    button(u"Keep Loop"_s)->click();
    EXPECT_FALSE(button(u"Keep Loop"_s)->isEnabled());
    button(u"Move Start, 10 ms Later"_s)->click();
    EXPECT_EQ(practice->calledUpLoop()->from, rate + 441);
    button(u"Move End, 10 ms Earlier"_s)->click();
    EXPECT_EQ(practice->calledUpLoop()->to, 3 * rate - 441);
    button(u"Add Marker"_s)->click();
    EXPECT_EQ(practice->record().markers.size(), 1U);
}

TEST_F(ThePane, DeletesAllThatIsSelectedInTheList)
{
    showSong();
    practice->store().apply({PutMarker{{.at = rate}}, PutMarker{{.at = 2 * rate}},
                             PutLoop{{.from = 3 * rate, .to = 4 * rate}}});
    pane->loops()->list()->selectAll();
    pane->perform(PracticeCommand::Remove);
    EXPECT_TRUE(practice->record().markers.empty());
    EXPECT_TRUE(practice->record().loops.empty());
    pane->perform(PracticeCommand::Undo);
    EXPECT_EQ(practice->record().markers.size(), 2U);
}

TEST_F(ThePane, TheListAndTheLoopThatSoundsFollowEachOther)
{
    showSong();
    const PracticeLoop loop{.name = u"a"_s, .from = 3 * rate, .to = 4 * rate};
    practice->store().apply({PutLoop{loop}, PutMarker{{.at = rate}}});
    LoopList *list = pane->loops()->list();
    list->selectId(loop.id);
    EXPECT_EQ(practice->selection(), loop.id);
    list->playCurrent();
    EXPECT_EQ(audio().loop(), (LoopRange{3 * rate, 4 * rate}));
    EXPECT_EQ(list->rows()->calledUp(), loop.id);
    audio().clearLoop();
    EXPECT_EQ(list->rows()->calledUp(), std::nullopt);
    EXPECT_EQ(list->currentId(), std::nullopt);
    EXPECT_EQ(practice->record().loops.size(), 1U);
    practice->askForName(loop.id);
    EXPECT_NE(list->findChild<QLineEdit *>(), nullptr);
}

TEST_F(ThePane, TypedTimesMoveTheEndsOfTheLoop)
{
    showSong();
    audio().setLoop({2 * rate, 4 * rate});
    const auto fields = pane->findChild<LoopEnds *>()->findChildren<QLineEdit *>();
    ASSERT_EQ(fields.size(), 2);
    EXPECT_EQ(fields[0]->text(), u"0:02.000"_s);
    EXPECT_EQ(fields[1]->text(), u"0:04.000"_s);
    const auto type = [](QLineEdit *field, const QString &text) {
        field->selectAll();
        QTest::keyClicks(field, text);
        QTest::keyClick(field, Qt::Key_Return);
    };
    type(fields[0], u"0:03.5"_s);
    EXPECT_EQ(audio().loop(), (LoopRange{3 * rate + rate / 2, 4 * rate}));
    EXPECT_EQ(fields[0]->text(), u"0:03.500"_s);
    for (const QString &wrong : {u"soon"_s, u"0:01"_s, u"9:00"_s}) {
        type(fields[1], wrong);
        EXPECT_EQ(audio().loop(), (LoopRange{3 * rate + rate / 2, 4 * rate}));
        EXPECT_EQ(fields[1]->text(), u"0:04.000"_s) << wrong.toStdString();
    }
    fields[1]->selectAll();
    QTest::keyClicks(fields[1], u"0:05"_s);
    QTest::keyClick(fields[1], Qt::Key_Escape);
    EXPECT_EQ(fields[1]->text(), u"0:04.000"_s);
    audio().clearLoop();
    EXPECT_FALSE(fields[0]->isEnabled());
}

TEST_F(ThePane, FollowIsSwitchedOffAndOnAgain)
{
    showSong();
    const auto buttons = pane->findChildren<TextButton *>();
    const auto follow = std::ranges::find_if(
        buttons, [](const TextButton *button) { return button->text() == u"Follow"_s; });
    ASSERT_NE(follow, buttons.end());
    EXPECT_TRUE((*follow)->isChecked());
    QTest::mouseClick(*follow, Qt::LeftButton);
    EXPECT_FALSE(wave().isFollowing());
    EXPECT_FALSE((*follow)->isChecked());
    QTest::mouseClick(*follow, Qt::LeftButton);
    EXPECT_TRUE(wave().isFollowing());
    EXPECT_TRUE((*follow)->isChecked());
}

TEST_F(ThePane, EveryCommandHasItsOwnKey)
{
    QStringList keys{practicePaneKey.toString()};
    for (const PracticeCommandEntry &entry : practiceCommands()) {
        EXPECT_TRUE(!entry.keys.isEmpty() || entry.isVariant)
            << "the help has no line without a key";
        for (const QKeySequence &key : entry.keys) {
            EXPECT_FALSE(keys.contains(key.toString())) << key.toString().toStdString();
            keys.append(key.toString());
        }
    }
}

TEST_F(ThePane, ShowsTheListToAskForAName)
{
    showSong();
    auto *other = new QWidget;
    pane->pages()->addPage(u"Other"_s, other);
    pane->pages()->showPage(other);
    EXPECT_FALSE(pane->loops()->isVisible());
    pane->perform(PracticeCommand::AddNamedMarker);
    EXPECT_TRUE(pane->loops()->isVisible());
    auto *editor = pane->loops()->findChild<QLineEdit *>();
    ASSERT_NE(editor, nullptr);
    editor->setText(u"Br"_s);
    // Asking once more does not begin anew.
    pane->perform(PracticeCommand::Rename);
    EXPECT_EQ(pane->loops()->findChild<QLineEdit *>(), editor);
    EXPECT_EQ(editor->text(), u"Br"_s);
}

} // namespace
