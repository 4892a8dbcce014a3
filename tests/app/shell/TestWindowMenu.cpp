#include "WholeProgram.h"
#include "platform/foundation/UserDefaults.h"

#include <QAction>
#include <QTest>

using namespace Qt::Literals::StringLiterals;
using lyrabox::test::WholeProgram;

namespace {

/// Tests of the whole program's Window menu.
class WindowMenu : public testing::Test {
protected:
    WindowMenu()
    {
        lyrabox::userDefaults().remove(u"eqWindowGeometry"_s); // left by other tests
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

    /// Expects that `item` is the only checked one; null for none.
    void expectChecked(const QAction *item) const
    {
        EXPECT_EQ(mainItem->isChecked(), item == mainItem);
        EXPECT_EQ(equalizerItem->isChecked(), item == equalizerItem);
    }

    WholeProgram program;
    QMainWindow *main;
    QMainWindow *equalizer;
    QAction *mainItem;
    QAction *equalizerItem;
};

TEST_F(WindowMenu, TheEqualizersItemIsCheckedWhileItsWindowIsKey)
{
    equalizerItem->trigger();
    ASSERT_TRUE(QTest::qWaitForWindowActive(equalizer));
    expectChecked(equalizerItem);
    equalizerItem->trigger(); // by itself the action would uncheck its item
    EXPECT_TRUE(equalizer->isActiveWindow());
    expectChecked(equalizerItem);
    equalizerItem->trigger();
    expectChecked(equalizerItem);

    mainItem->trigger();
    ASSERT_TRUE(QTest::qWaitForWindowActive(main));
    expectChecked(mainItem);
    mainItem->trigger();
    expectChecked(mainItem);
}

TEST_F(WindowMenu, TheGeometryOfAnUnopenedEqualizerIsNotSaved)
{
    program.composition->terminate();
    EXPECT_FALSE(lyrabox::userDefaults().contains(u"eqWindowGeometry"_s));
}

TEST_F(WindowMenu, TheGeometryOfAnOpenedEqualizerIsSaved)
{
    equalizerItem->trigger();
    program.composition->terminate();
    EXPECT_TRUE(lyrabox::userDefaults().contains(u"eqWindowGeometry"_s));
}

TEST_F(WindowMenu, NoItemIsCheckedWhileAnotherWindowIsKey)
{
    equalizerItem->trigger();
    ASSERT_TRUE(QTest::qWaitForWindowActive(equalizer));
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    expectChecked(nullptr);
}

TEST_F(WindowMenu, ClosingTheEqualizerUnchecksItsItem)
{
    equalizerItem->trigger();
    ASSERT_TRUE(QTest::qWaitForWindowActive(equalizer));
    equalizer->close();
    EXPECT_TRUE(QTest::qWaitFor([this] { return !equalizerItem->isChecked(); }));
}

} // namespace
