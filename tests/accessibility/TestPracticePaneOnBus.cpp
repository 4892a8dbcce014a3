// The practice pane as another process sees it on the accessibility bus.

#include "accessibility/ScreenReader.h"

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

namespace {

class PaneOnTheBus : public ScreenReader {
protected:
    /// The text of the cell in a row and column of the list.
    QString cell(int row, int column)
    {
        const QList<Accessible> cells = find(u"table"_s, u"Loops and markers"_s).children();
        const int columns = 4;
        QStringList names;
        for (const Accessible &each : cells) {
            if (each.role() == u"cell"_s || each.role() == u"table cell"_s)
                names.append(each.name());
        }
        return names.value(row * columns + column);
    }
    bool press(const QString &button)
    {
        const Accessible found = find(u"push button"_s, button);
        return waitUntil([&] { return found.has(AccessibleState::Sensitive); }, 10.0) &&
               found.act(u"Press"_s);
    }
};

TEST_F(PaneOnTheBus, ALoopIsMadeNamedNudgedPlayedAndDeleted)
{
    setUserDefault(u"practicePane"_s, true);
    startAndPlay();
    ASSERT_TRUE(waitForName(u"table"_s, u"Loops and markers"_s));

    // Make it: mark its ends with the loop button, and keep it.
    const Accessible position = find(u"slider"_s, u"Position"_s);
    position.setValue(5.0);
    ASSERT_TRUE(press(u"Mark the start of a loop"_s));
    position.setValue(9.0);
    ASSERT_TRUE(waitForName(u"push button"_s, u"Mark the end of the loop"_s));
    ASSERT_TRUE(press(u"Mark the end of the loop"_s));
    ASSERT_TRUE(press(u"Keep Loop"_s));
    ASSERT_TRUE(waitUntil([&] { return cell(0, 1) == u"Loop 1"_s; }));
    EXPECT_EQ(cell(0, 0), u"Loop 1, called up"_s);

    // Name it.
    bus.listen();
    Accessible name;
    // The program learns about the listener in a message of its own, so this is repeated.
    ASSERT_TRUE(waitUntil([&] {
        EXPECT_TRUE(chooseInMenu(u"Rename…"_s));
        return bus.waitForEvent(
            [&](const AccessibleEvent &event) {
                name = program.at(event.path);
                return event.detail == u"focused"_s && event.isOn != 0 && name.name() == u"Name"_s;
            },
            1.0);
    }));
    EXPECT_TRUE(name.setText(u"Turnaround"_s));
    EXPECT_TRUE(find(u"slider"_s, u"Wave"_s).takeKeyboard());
    EXPECT_TRUE(waitUntil([&] { return cell(0, 1) == u"Turnaround"_s; }));

    // Nudge it.
    const QString before = cell(0, 2);
    ASSERT_TRUE(press(u"Move Start, 10 ms Later"_s));
    EXPECT_TRUE(waitUntil([&] { return cell(0, 2) != before; }));

    // Clear it, select its row and play it again.
    ASSERT_TRUE(press(u"Clear the loop"_s));
    ASSERT_TRUE(waitUntil([&] { return cell(0, 0) == u"Loop 1"_s; }));
    EXPECT_TRUE(find(u"table"_s, u"Loops and markers"_s).selectRow(0));
    ASSERT_TRUE(chooseInMenu(u"Play Selected"_s));
    EXPECT_TRUE(waitUntil([&] { return cell(0, 0) == u"Loop 1, called up"_s; }));

    ASSERT_TRUE(press(u"Delete"_s));
    EXPECT_TRUE(waitUntil([&] { return cell(0, 1).isEmpty(); }));
    EXPECT_EQ(quit(), 0);
}

} // namespace
