#include "app/shell/WindowMemory.h"

#include "platform/foundation/NotificationCenter.h"
#include "platform/foundation/Notifications.h"
#include "platform/foundation/UserDefaults.h"

#include <QDialog>
#include <QMainWindow>

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox {
namespace {

class WindowMemory : public testing::Test {
protected:
    WindowMemory() { userDefaults().clear(); }
    ~WindowMemory() override { userDefaults().clear(); }

    const QString name = u"window"_s;
};

TEST_F(WindowMemory, RestoresPositionAndSize)
{
    constexpr QRect frame(60, 50, 400, 300);
    {
        QMainWindow window;
        window.setGeometry(frame);
        windowMemory::saveWindow(&window, name, true);
    }
    QMainWindow again;
    EXPECT_TRUE(windowMemory::restoreWindow(&again, name));
    EXPECT_EQ(again.geometry(), frame);
}

TEST_F(WindowMemory, WithoutAPositionRemembersTheSizeAndKeepsTheEarlierPosition)
{
    constexpr QRect frame(60, 50, 400, 300);
    constexpr QSize later(420, 310);
    QMainWindow window;
    window.setGeometry(frame);
    windowMemory::saveWindow(&window, name, true);
    window.setGeometry(QRect(QPoint(0, 0), later));
    windowMemory::saveWindow(&window, name, false);

    QMainWindow again;
    EXPECT_TRUE(windowMemory::restoreWindow(&again, name));
    EXPECT_EQ(again.geometry(), QRect(frame.topLeft(), later));
}

TEST_F(WindowMemory, ASizeWithoutAPositionDoesNotMoveTheWindow)
{
    constexpr QSize size(410, 320);
    {
        QMainWindow window;
        window.resize(size);
        windowMemory::saveWindow(&window, name, false);
    }
    QMainWindow again;
    EXPECT_FALSE(windowMemory::restoreWindow(&again, name));
    EXPECT_EQ(again.size(), size);
}

TEST_F(WindowMemory, WithoutAPositionRemembersThatAWindowIsMaximized)
{
    QMainWindow window;
    window.resize(400, 300);
    window.setWindowState(Qt::WindowMaximized);
    windowMemory::saveWindow(&window, name, false);
    QMainWindow again;
    windowMemory::restoreWindow(&again, name);
    EXPECT_TRUE(again.isMaximized());
    EXPECT_EQ(window.windowState(), Qt::WindowMaximized);
}

TEST_F(WindowMemory, APositionThatIsKnownAgainReplacesTheRememberedOne)
{
    constexpr QRect frame(70, 40, 380, 290);
    QMainWindow window;
    window.resize(600, 500);
    windowMemory::saveWindow(&window, name, false);
    window.setGeometry(frame);
    windowMemory::saveWindow(&window, name, true);
    QMainWindow again;
    EXPECT_TRUE(windowMemory::restoreWindow(&again, name));
    EXPECT_EQ(again.geometry(), frame);
}

TEST_F(WindowMemory, KeepsAWindowThatIsClosed)
{
    constexpr QSize size(390, 280);
    QDialog window;
    windowMemory::keepWindow(&window, name);
    window.show();
    window.resize(size);
    window.reject();
    QDialog again;
    windowMemory::keepWindow(&again, name);
    EXPECT_EQ(again.size(), size);
}

TEST_F(WindowMemory, KeepsAWindowThatIsOpenWhenTheProgramEnds)
{
    constexpr QSize size(390, 280);
    QDialog window;
    windowMemory::keepWindow(&window, name);
    window.show();
    window.resize(size);
    NotificationCenter::defaultCenter().post(notification::applicationWillTerminate);
    QDialog again;
    windowMemory::keepWindow(&again, name);
    EXPECT_EQ(again.size(), size);
}

} // namespace
} // namespace lyrabox
