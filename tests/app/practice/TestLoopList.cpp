#include "StoreFixture.h"
#include "app/practice/LoopList.h"
#include "app/practice/LoopListModel.h"
#include "app/practice/WaveColors.h"
#include "platform/ui/EmptyViewText.h"
#include "platform/ui/Popover.h"
#include "platform/ui/Theme.h"
#include "support/DrawnWidget.h"

#include <QAccessible>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

#include <memory>

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

namespace {

class TheLoopList : public testing::Test, protected StoreFixture {
protected:
    TheLoopList()
    {
        window.resize(700, 500);
        list.setParent(&window);
        list.setGeometry(400, 0, 276, 300);
        list.setSongFrames(frames(60.0));
        window.show();
        list.setFocus();
    }

    QPoint middleOf(PracticeId id)
    {
        return list.visualRect(list.rows()->index(list.rows()->rowOf(id), LoopListModel::Name))
            .center();
    }

    void choose(const QString &text)
    {
        const std::unique_ptr<QMenu> menu(list.makeMenu());
        for (QAction *action : menu->findChildren<QAction *>()) {
            if (QString(action->text()).remove(u'&') == text) {
                EXPECT_TRUE(action->isEnabled());
                action->trigger();
                return;
            }
        }
        ADD_FAILURE() << "no entry " << text.toStdString();
    }

    QStringList entries()
    {
        const std::unique_ptr<QMenu> menu(list.makeMenu());
        QStringList texts;
        for (const QAction *action : menu->actions()) {
            if (!action->isSeparator() && action->isEnabled())
                texts.append(QString(action->text()).remove(u'&'));
        }
        return texts;
    }

    QWidget window;
    LoopList list{&store};
    QSignalSpy played{&list, &LoopList::playRequested};
    QSignalSpy sought{&list, &LoopList::seekRequested};
};

TEST_F(TheLoopList, NamesHaveTheRoomOfSpeedsThatNoLoopKeeps)
{
    const PracticeId id = addLoop(u"Turnaround"_s, 1.0, 2.0);
    const int without = list.columnWidth(LoopListModel::Name);
    change(id, [](PracticeLoop &loop) { loop.speed = 75; });
    EXPECT_LT(list.columnWidth(LoopListModel::Name), without);
    EXPECT_EQ(list.columnWidth(LoopListModel::Name) + list.columnWidth(LoopListModel::Speed),
              without);
    change(id, [](PracticeLoop &loop) { loop.speed.reset(); });
    EXPECT_EQ(list.columnWidth(LoopListModel::Name), without);
    EXPECT_EQ(list.columnWidth(LoopListModel::Speed), 0);
}

TEST_F(TheLoopList, PlaysALoopAndGoesToAMarkerWithReturnOrADoubleClick)
{
    const PracticeId loop = addLoop(u"a"_s, 1.0, 2.0);
    const PracticeId marker = addMarker(u"m"_s, 3.0);
    list.selectId(loop);
    QTest::keyClick(&list, Qt::Key_Return);
    ASSERT_EQ(played.size(), 1);
    EXPECT_EQ(played.first().first().value<PracticeId>(), loop);
    list.selectId(marker);
    QTest::keyClick(&list, Qt::Key_Enter, Qt::KeypadModifier);
    ASSERT_EQ(sought.size(), 1);
    EXPECT_EQ(sought.first().first().value<PracticeId>(), marker);
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, middleOf(loop));
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, middleOf(loop));
    EXPECT_EQ(played.size(), 2);
    EXPECT_EQ(sought.size(), 1);
}

TEST_F(TheLoopList, DoesNotPlayWhatIsBeyondTheSong)
{
    list.selectId(addLoop(u"a"_s, 59.0, 61.0));
    QTest::keyClick(&list, Qt::Key_Return);
    EXPECT_EQ(played.size(), 0);
}

TEST_F(TheLoopList, RenamesInPlaceWithF2)
{
    const PracticeId loop = addLoop(u"a"_s, 1.0, 2.0);
    list.selectId(loop);
    QTest::keyClick(&list, Qt::Key_F2);
    auto *editor = list.findChild<QLineEdit *>();
    ASSERT_NE(editor, nullptr);
    EXPECT_EQ(editor->text(), u"a"_s);
    EXPECT_EQ(editor->selectedText(), u"a"_s);
    QTest::keyClicks(editor, u"<i>K2</i>"_s);
    QTest::keyClick(editor, Qt::Key_Return);
    QCoreApplication::processEvents(); // The editor finishes the key before it commits.
    EXPECT_EQ(store.record().loop(loop)->name, u"<i>K2</i>"_s);
    EXPECT_EQ(list.currentId(), loop);
    EXPECT_EQ(played.size(), 0);
}

TEST_F(TheLoopList, EscapeKeepsTheOldName)
{
    const PracticeId loop = addLoop(u"a"_s, 1.0, 2.0);
    list.rename(loop);
    auto *editor = list.findChild<QLineEdit *>();
    ASSERT_NE(editor, nullptr);
    QTest::keyClicks(editor, u"b"_s);
    QTest::keyClick(editor, Qt::Key_Escape);
    EXPECT_EQ(store.record().loop(loop)->name, u"a"_s);
}

TEST_F(TheLoopList, ASlowClickOnTheSelectedNameRenames)
{
    const PracticeId loop = addLoop(u"a"_s, 1.0, 2.0);
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, middleOf(loop));
    EXPECT_EQ(list.findChild<QLineEdit *>(), nullptr);
    // Two clicks that are further apart than a double-click.
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, middleOf(loop),
                      QApplication::doubleClickInterval() + 1);
    EXPECT_TRUE(QTest::qWaitFor([&] { return list.findChild<QLineEdit *>() != nullptr; }));
}

TEST_F(TheLoopList, DeletesAllSelectedRowsAsOneStepAndSelectsTheNext)
{
    const PracticeId a = addLoop(u"a"_s, 1.0, 2.0);
    const PracticeId m = addMarker(u"m"_s, 3.0);
    const PracticeId b = addLoop(u"b"_s, 4.0, 5.0);
    list.selectId(a);
    QTest::keyClick(&list, Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(list.selectedIds(), (QList<PracticeId>{a, m}));
    QTest::keyClick(&list, Qt::Key_Delete);
    EXPECT_EQ(store.record().loops.size(), 1U);
    EXPECT_TRUE(store.record().markers.empty());
    EXPECT_EQ(list.selectedIds(), QList<PracticeId>{b});
    EXPECT_TRUE(store.undo());
    EXPECT_EQ(store.record().loops.size(), 2U);
    EXPECT_EQ(store.record().markers.size(), 1U);
}

TEST_F(TheLoopList, KeepsItsSelectionWhenTheRecordChanges)
{
    const PracticeId a = addLoop(u"a"_s, 1.0, 2.0);
    const PracticeId b = addLoop(u"b"_s, 4.0, 5.0);
    const PracticeId c = addLoop(u"c"_s, 6.0, 7.0);
    list.selectId(b);
    list.selectionModel()->select(list.rows()->index(2, 0),
                                  QItemSelectionModel::Select | QItemSelectionModel::Rows);
    const PracticeId first = addMarker(u"m"_s, 0.5);
    store.apply({RemoveLoop{a}});
    change(b, [](PracticeLoop &loop) { loop.from = frames(8.0), loop.to = frames(9.0); });
    EXPECT_EQ(list.selectedIds(), (QList<PracticeId>{c, b}));
    EXPECT_EQ(list.currentId(), b);
    store.apply({RemoveMarker{first}});
    EXPECT_EQ(list.selectedIds(), (QList<PracticeId>{c, b}));
}

TEST_F(TheLoopList, SelectsTheLoopThatIsCalledUpAndUnselectsItWhenItIsCleared)
{
    const PracticeId a = addLoop(u"a"_s, 1.0, 2.0);
    const PracticeId b = addLoop(u"b"_s, 4.0, 5.0);
    list.setCalledUp(b);
    EXPECT_EQ(list.currentId(), b);
    list.selectId(a);
    list.setCalledUp(std::nullopt);
    EXPECT_EQ(list.currentId(), a);
    list.setCalledUp(a);
    list.setCalledUp(std::nullopt);
    EXPECT_EQ(list.currentId(), std::nullopt);
    EXPECT_EQ(store.record().loops.size(), 2U);
}

TEST_F(TheLoopList, MarksTheRowOfTheLoopThatIsCalledUp)
{
    const PracticeId a = addLoop(u"a"_s, 1.0, 2.0);
    const PracticeId b = addLoop(u"b"_s, 4.0, 5.0);
    list.setCalledUp(a);
    list.selectId(b);
    const QImage image = drawn(list);
    const QPoint place = middleOf(a);
    EXPECT_EQ(image.pixelColor(place.x() + 20, place.y() - 8), waveColors::loopBackground);
    list.selectId(a);
    list.clearFocus();
    EXPECT_EQ(drawn(list).pixelColor(place.x() + 20, place.y() - 8), Theme::accent);
}

TEST_F(TheLoopList, ColoursAllSelectedLoopsAsOneStep)
{
    const PracticeId a = addLoop(u"a"_s, 1.0, 2.0);
    addMarker(u"m"_s, 3.0);
    const PracticeId b = addLoop(u"b"_s, 4.0, 5.0);
    list.selectAll();
    choose(waveColors::loopColorName(5));
    EXPECT_EQ(store.record().loop(a)->colour, 5);
    EXPECT_EQ(store.record().loop(b)->colour, 5);
    EXPECT_EQ(list.selectedIds().size(), 3);
    EXPECT_TRUE(store.undo());
    EXPECT_EQ(store.record().loop(a)->colour, 1);
    EXPECT_EQ(store.record().loop(b)->colour, 1);
}

TEST_F(TheLoopList, KeepsAndForgetsSpeedAndPitch)
{
    const PracticeId a = addLoop(u"a"_s, 1.0, 2.0);
    list.setSoundSource([] { return LoopList::Sound{75, -200}; });
    list.selectId(a);
    EXPECT_FALSE(entries().contains(u"Forget Speed and Pitch"_s));
    choose(u"Keep Speed and Pitch"_s);
    EXPECT_EQ(store.record().loop(a)->speed, 75);
    EXPECT_EQ(store.record().loop(a)->pitch, -200);
    choose(u"Forget Speed and Pitch"_s);
    EXPECT_EQ(store.record().loop(a)->speed, std::nullopt);
    EXPECT_EQ(store.record().loop(a)->pitch, std::nullopt);
}

TEST_F(TheLoopList, KeepsANoteOfSeveralLines)
{
    const PracticeId a = addLoop(u"a"_s, 1.0, 2.0);
    list.selectId(a);
    choose(u"Note…"_s);
    auto *text = list.window()->findChild<QPlainTextEdit *>();
    ASSERT_NE(text, nullptr);
    text->setPlainText(u"4th finger\n<b>softly</b>"_s);
    auto *panel = window.findChild<Popover *>();
    ASSERT_NE(panel, nullptr);
    panel->findChild<QPushButton *>()->click();
    EXPECT_EQ(store.record().loop(a)->note, u"4th finger\n<b>softly</b>"_s);
    EXPECT_FALSE(panel->isShown());
}

TEST_F(TheLoopList, OffersForAMarkerOnlyWhatMarkersHave)
{
    list.selectId(addMarker(u"m"_s, 1.0));
    EXPECT_EQ(entries(), (QStringList{u"Play"_s, u"Rename"_s, u"Delete"_s}));
}

TEST_F(TheLoopList, SaysWhatToDoWhileItIsEmpty)
{
    list.setEmptyText(u"Press K."_s);
    auto *text = list.findChild<EmptyViewText *>();
    EXPECT_TRUE(text->isVisible());
    EXPECT_EQ(text->text(), u"Press K."_s);
    addMarker(u"m"_s, 1.0);
    EXPECT_FALSE(text->isVisible());
}

TEST_F(TheLoopList, IsATableForAssistiveTechnologies)
{
    addLoop(u"Turnaround"_s, 1.0, 2.0);
    QAccessibleInterface *face = QAccessible::queryAccessibleInterface(&list);
    EXPECT_EQ(face->role(), QAccessible::Table);
    EXPECT_EQ(face->text(QAccessible::Name), u"Loops and markers"_s);
    QAccessibleInterface *cell = face->tableInterface()->cellAt(0, LoopListModel::Name);
    EXPECT_EQ(cell->text(QAccessible::Name), u"Turnaround"_s);
}

} // namespace
