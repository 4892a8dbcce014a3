#pragma once

#include "accessibility/AccessibilityBus.h"
#include "support/program/RunningProgram.h"

#include <gtest/gtest.h>

namespace lyrabox::test {

/// Runs the program with a folder of two songs and reads it as a screen reader does.
class ScreenReader : public RunningProgram {
protected:
    ScreenReader()
    {
        setVariable(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), bus.sessionAddress());
        setVariable(QStringLiteral("QT_LINUX_ACCESSIBILITY_ALWAYS_ON"), QStringLiteral("1"));
        showFolder(makeFolder(QStringLiteral("Songs"), {{QStringLiteral("Alpha"), 300.0, 60.0},
                                                        {QStringLiteral("Beta"), 500.0, 60.0}}));
    }

    void startAndPlay()
    {
        start();
        ASSERT_TRUE(waitForSongs(2));
        program = bus.application(QStringLiteral("Lyrabox"));
        doubleClickSong(0);
        ASSERT_TRUE(waitForName(QStringLiteral("push button"), QStringLiteral("Pause")));
    }

    Accessible window(const QString &title) { return program.find(QStringLiteral("frame"), title); }
    Accessible find(const QString &role, const QString &name) { return program.find(role, name); }
    bool waitForName(const QString &role, const QString &name)
    {
        return waitUntil([&] { return find(role, name).isValid(); });
    }
    static bool waitForValue(const Accessible &object, double value)
    {
        const bool came = waitUntil([&] { return object.value() == value; }, 10.0);
        EXPECT_TRUE(came) << object.name().toStdString() << " is " << object.value().value_or(-1.0);
        return came;
    }

    /// Chooses a command of the menu bar.
    bool chooseInMenu(const QString &name)
    {
        const Accessible item = find(QStringLiteral("menu item"), name);
        return waitUntil([&] { return item.has(AccessibleState::Sensitive); }, 10.0) &&
               item.act(QStringLiteral("Press"));
    }

    AccessibilityBus bus{display};
    Accessible program;
};

} // namespace lyrabox::test
