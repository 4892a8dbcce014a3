// Tests of the song-settings pop-up that open it and click its items, as a user does.

#include "WholeProgram.h"
#include "app/controls/LB_PopUpButtonCell.h"
#include "platform/ui/ButtonMatrix.h"
#include "support/SampleAudio.h"

#include <QMenu>
#include <QTest>
#include <QWindow>

using namespace Qt::Literals::StringLiterals;
using namespace lyrabox;
using test::WholeProgram;

namespace {

class SongSettingsMenu : public testing::Test {
protected:
    SongSettingsMenu()
    {
        program.composition->launch();
        main = WholeProgram::window(u"MainWindow"_s);
        popup = main->findChild<LB_PopUpButtonCell *>(u"settingsPopup"_s);
        main->show();
        main->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(main));
    }

    void openSong()
    {
        program.composition->open({QUrl::fromLocalFile(test::sampleFile({.seconds = 1.0}))});
    }

    void setSpeed(int tag)
    {
        auto *matrix = main->findChild<ButtonMatrix *>(u"playbackSpeedMatrix"_s);
        matrix->pressCellWithTag(tag);
    }

    /// Clicks through the window, as a mouse does. A menu ignores a click at the place where the
    /// pointer was when it opened.
    static void click(QWidget *widget, const QPoint &place)
    {
        QTest::mouseClick(widget->window()->windowHandle(), Qt::LeftButton, {},
                          widget->mapTo(widget->window(), place));
    }

    /// The item with this text in the open menu; null if there is none.
    QAction *itemInOpenMenu(const QString &text)
    {
        if (!popup->menu()->isVisible())
            click(popup, popup->rect().center());
        EXPECT_TRUE(QTest::qWaitForWindowExposed(popup->menu()));
        for (QAction *action : popup->menu()->actions()) {
            if (QString(action->text()).remove(u'&') == text)
                return action;
        }
        ADD_FAILURE() << "no item " << text.toStdString();
        return nullptr;
    }

    bool isEnabled(const QString &text)
    {
        const bool enabled = itemInOpenMenu(text)->isEnabled();
        popup->menu()->close();
        return enabled;
    }

    /// Clicks an item. A click on a disabled item leaves the menu open.
    void choose(const QString &text)
    {
        const QPoint place = popup->menu()->actionGeometry(itemInOpenMenu(text)).center();
        click(popup->menu(), place);
        popup->menu()->close();
    }

    QString image() const { return popup->firstItemImage().name(); }

    const QString keep = u"Keep Speed and Pitch"_s;
    const QString forget = u"Forget Speed and Pitch"_s;
    WholeProgram program;
    QMainWindow *main;
    LB_PopUpButtonCell *popup;
};

TEST_F(SongSettingsMenu, EverythingIsDisabledWithoutASong)
{
    EXPECT_FALSE(isEnabled(keep));
    EXPECT_FALSE(isEnabled(forget));
}

TEST_F(SongSettingsMenu, ForgetIsEnabledOnlyWhileSettingsAreKept)
{
    openSong();
    EXPECT_TRUE(isEnabled(keep));
    EXPECT_FALSE(isEnabled(forget));

    setSpeed(2);
    choose(keep);
    EXPECT_EQ(image(), u"SettingsButtonOn"_s);
    EXPECT_TRUE(isEnabled(keep));
    EXPECT_TRUE(isEnabled(forget));

    choose(forget);
    EXPECT_EQ(image(), u"SettingsButtonOff"_s);
    EXPECT_TRUE(isEnabled(keep));
    EXPECT_FALSE(isEnabled(forget));
}

TEST_F(SongSettingsMenu, KeepingNormalSpeedAndPitchForgetsTheSettings)
{
    openSong();
    setSpeed(2);
    choose(keep);
    setSpeed(0); // normal speed
    choose(keep);
    EXPECT_EQ(image(), u"SettingsButtonOff"_s);
    EXPECT_FALSE(isEnabled(forget));
}

TEST_F(SongSettingsMenu, ADisabledItemDoesNothing)
{
    openSong();
    setSpeed(2);
    choose(forget);
    EXPECT_EQ(image(), u"SettingsButtonOff"_s);
    choose(keep);
    EXPECT_EQ(image(), u"SettingsButtonOn"_s);
}

} // namespace
