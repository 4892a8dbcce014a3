#include "WholeProgram.h"
#include "platform/foundation/UserDefaults.h"

#include <QAction>
#include <QTest>

using namespace Qt::Literals::StringLiterals;
using lyrabox::test::WholeProgram;

namespace {

/// The Window menu of the whole program.
class WindowMenu : public testing::Test {
protected:
    WindowMenu()
    {
        lyrabox::userDefaults().remove(u"eqWindowGeometry"_s); // other tests' programs share them
        program.composition->launch();
        main = WholeProgram::window(u"MainWindow"_s);
        equalizer = WholeProgram::window(u"EqualizerWindow"_s);
        mainItem = command(u"Lyrabox"_s);
        equalizerItem = command(u"Equalizer"_s);
    }

    QAction *command(const QString &text) const
    {
        for (QAction *action : main->findChildren<QAction *>()) {
            if (QString(action->text()).remove(u'&') == text && action->isCheckable())
                return action;
        }
        ADD_FAILURE() << "no command " << text.toStdString();
        return nullptr;
    }

    void expectMarks(bool atMain, bool atEqualizer) const
    {
        EXPECT_EQ(mainItem->isChecked(), atMain);
        EXPECT_EQ(equalizerItem->isChecked(), atEqualizer);
    }

    WholeProgram program;
    QMainWindow *main;
    QMainWindow *equalizer;
    QAction *mainItem;
    QAction *equalizerItem;
};

TEST_F(WindowMenu, TheEqualizersItemIsMarkedWhileItsWindowIsKeyAndStaysSoWhenChosenAgain)
{
    equalizerItem->trigger();
    ASSERT_TRUE(QTest::qWaitForWindowActive(equalizer));
    expectMarks(false, true);
    equalizerItem->trigger(); // the action itself would turn its mark off
    EXPECT_TRUE(equalizer->isActiveWindow());
    expectMarks(false, true);
    equalizerItem->trigger();
    expectMarks(false, true);

    mainItem->trigger();
    ASSERT_TRUE(QTest::qWaitForWindowActive(main));
    expectMarks(true, false);
    mainItem->trigger();
    expectMarks(true, false);
}

TEST_F(WindowMenu, AnEqualizerThatWasNeverOpenedHasNoPlaceToRemember)
{
    program.composition->terminate();
    EXPECT_FALSE(lyrabox::userDefaults().contains(u"eqWindowGeometry"_s));
}

TEST_F(WindowMenu, AnEqualizerThatWasOpenedIsRememberedWhereItStands)
{
    equalizerItem->trigger();
    program.composition->terminate();
    EXPECT_TRUE(lyrabox::userDefaults().contains(u"eqWindowGeometry"_s));
}

TEST_F(WindowMenu, NoItemIsMarkedWhileAnotherWindowIsKey)
{
    equalizerItem->trigger();
    ASSERT_TRUE(QTest::qWaitForWindowActive(equalizer));
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    expectMarks(false, false);
}

TEST_F(WindowMenu, ClosingTheEqualizerTakesItsMarkAway)
{
    equalizerItem->trigger();
    ASSERT_TRUE(QTest::qWaitForWindowActive(equalizer));
    equalizer->close();
    EXPECT_TRUE(QTest::qWaitFor([this] { return !equalizerItem->isChecked(); }));
}

} // namespace
