#include "accessibility/ScreenReader.h"
#include "program/Places.h"

#include <gmock/gmock.h>

#include <algorithm>

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

namespace {

/// "role: name" of every object that a user can operate or read.
std::vector<std::string> faces(const Accessible &window)
{
    std::vector<std::string> faces;
    for (const Accessible &object : window.tree())
        faces.push_back((object.role() + u": "_s + object.name()).toStdString());
    return faces;
}

auto countOf(const std::vector<std::string> &faces, const std::string &prefix)
{
    return std::count_if(faces.begin(), faces.end(), [&prefix](const std::string &face) {
        return face.compare(0, prefix.size(), prefix) == 0;
    });
}

TEST_F(ScreenReader, FindsARoleAndANameForEveryControl)
{
    startAndPlay();
    display.key(u"ctrl+2"_s);
    ASSERT_TRUE(waitForName(u"frame"_s, u"Equalizer"_s));
    const QStringList controls{
        u"push button"_s,   u"toggle button"_s,   u"button menu"_s, u"slider"_s,
        u"text"_s,          u"table"_s,           u"tree"_s,        u"page tab"_s,
        u"page tab list"_s, u"menu item"_s,       u"popup menu"_s,  u"graphic"_s,
        u"splitter"_s,      u"check menu item"_s, u"progress bar"_s};
    int checked = 0;
    for (const QString &title : {u"Lyrabox"_s, u"Equalizer"_s}) {
        for (const Accessible &object : window(title).tree()) {
            const QString role = object.role();
            EXPECT_NE(role, u"invalid"_s) << object.path().toStdString();
            if (!controls.contains(role) && !object.has(AccessibleState::Focusable))
                continue;
            ++checked;
            // Cells in the image columns may be empty.
            EXPECT_TRUE(role == u"cell"_s || !object.name().isEmpty())
                << role.toStdString() << " in " << title.toStdString();
        }
    }
    EXPECT_GT(checked, 120);
}

TEST_F(ScreenReader, FindsEveryControlOfTheMainWindow)
{
    startAndPlay();
    EXPECT_THAT(faces(window(u"Lyrabox"_s)),
                testing::IsSupersetOf<std::string>({"page tab: Playlists",
                                                    "page tab: Folders",
                                                    "tree: Folders",
                                                    "push button: Add a folder",
                                                    "push button: Remove the folder",
                                                    "splitter: Divider",
                                                    "label: 2 songs",
                                                    "push button: Shuffle",
                                                    "text: Search songs",
                                                    "table: Songs",
                                                    "column header: Playing",
                                                    "column header: Artist",
                                                    "column header: Has settings",
                                                    "cell: Alpha",
                                                    "cell: The Beta",
                                                    "graphic: Artwork",
                                                    "label: Alpha",
                                                    "slider: Position",
                                                    "push button: Back",
                                                    "push button: Pause",
                                                    "push button: Forward",
                                                    "push button: Mark the start of a loop",
                                                    "push button: Slower by 5 percent",
                                                    "push button: Normal speed",
                                                    "push button: Faster by 5 percent",
                                                    "slider: Speed",
                                                    "text: Speed in percent",
                                                    "push button: A semitone down",
                                                    "slider: Pitch",
                                                    "text: Pitch in cents",
                                                    "slider: Volume",
                                                    "popup menu: Playback",
                                                    "menu item: Next Song"}));
}

TEST_F(ScreenReader, FindsEveryControlOfTheEqualizer)
{
    startAndPlay();
    display.key(u"ctrl+2"_s);
    ASSERT_TRUE(waitForName(u"frame"_s, u"Equalizer"_s));
    const Accessible equalizer = window(u"Equalizer"_s);
    const std::vector<std::string> met = faces(equalizer);
    EXPECT_THAT(met, testing::IsSupersetOf(
                         {"table: Presets", "cell: Manual", "push button: Add a preset",
                          "slider: Level at 31.5 hertz", "text: Level at 16 kilohertz in decibels",
                          "panel: Steps at 1 kilohertz"}));
    EXPECT_EQ(countOf(met, "slider: "), 10);
    EXPECT_EQ(countOf(met, "text: "), 10);
    EXPECT_EQ(countOf(met, "push button: Up 1 decibel"), 10);
}

TEST_F(ScreenReader, ReadsTheCurrentValuesOfThePlayer)
{
    startAndPlay();
    const Accessible speed = find(u"slider"_s, u"Speed"_s);
    EXPECT_EQ(speed.minimum(), 10.0);
    EXPECT_EQ(speed.maximum(), 200.0);
    waitForValue(speed, 100.0);
    display.key(u"minus"_s);
    waitForValue(speed, 95.0);
    EXPECT_EQ(find(u"text"_s, u"Speed in percent"_s).text(), u"95 %"_s);
    display.key(u"bracketright"_s, 2);
    waitForValue(find(u"slider"_s, u"Pitch"_s), 200.0);
    EXPECT_EQ(find(u"text"_s, u"Pitch in cents"_s).text(), u"200"_s);

    const Accessible play = find(u"push button"_s, u"Pause"_s);
    EXPECT_TRUE(play.has(AccessibleState::Checked));
    display.key(u"space"_s);
    EXPECT_TRUE(waitUntil([&] { return play.name() == u"Play"_s; }));
    EXPECT_FALSE(play.has(AccessibleState::Checked));

    const Accessible loop = find(u"push button"_s, u"Mark the start of a loop"_s);
    display.key(u"l"_s);
    EXPECT_TRUE(waitUntil([&] { return loop.name() == u"Mark the end of the loop"_s; }));
    EXPECT_TRUE(loop.has(AccessibleState::Indeterminate));
    display.key(u"shift+Right"_s);
    display.key(u"l"_s);
    EXPECT_TRUE(waitUntil([&] { return loop.name() == u"Clear the loop"_s; }));
    EXPECT_TRUE(loop.has(AccessibleState::Checked));

    const Accessible position = find(u"slider"_s, u"Position"_s);
    EXPECT_EQ(position.maximum(), 60.0);
    EXPECT_GE(position.value().value_or(-1.0), 5.0);
    EXPECT_TRUE(position.description().endsWith(u" of 1:00"_s))
        << position.description().toStdString();
}

TEST_F(ScreenReader, IsNotifiedOfEveryChange)
{
    startAndPlay();
    const Accessible speed = find(u"slider"_s, u"Speed"_s);
    const Accessible position = find(u"slider"_s, u"Position"_s);
    const Accessible play = find(u"push button"_s, u"Pause"_s);
    const Accessible title = find(u"label"_s, u"Alpha"_s);
    bus.listen();
    const auto tells = [this](const Accessible &object, const QString &detail) {
        return bus.waitForEvent([&](const AccessibleEvent &event) {
            return event.path == object.path() && event.detail == detail;
        });
    };
    // The program learns about the listener in a message of its own, so the first change is
    // repeated.
    EXPECT_TRUE(waitUntil([&] {
        display.key(u"minus"_s);
        return bus.waitForEvent(
            [&](const AccessibleEvent &event) { return event.path == speed.path(); }, 0.5);
    }));
    EXPECT_TRUE(tells(speed, u"accessible-value"_s));
    display.key(u"space"_s);
    EXPECT_TRUE(tells(play, u"accessible-name"_s));
    EXPECT_EQ(play.name(), u"Play"_s);
    EXPECT_TRUE(bus.waitForEvent([&](const AccessibleEvent &event) {
        return event.path == play.path() && event.kind == u"StateChanged"_s &&
               event.detail == u"checked"_s && event.isOn == 0;
    }));
    display.key(u"shift+Right"_s, 3);
    EXPECT_TRUE(tells(position, u"accessible-value"_s));
    display.key(u"ctrl+Right"_s);
    EXPECT_TRUE(tells(title, u"accessible-name"_s));
    EXPECT_EQ(title.name(), u"Beta"_s);
}

TEST_F(ScreenReader, OperatesTheControls)
{
    startAndPlay();
    const Accessible play = find(u"push button"_s, u"Pause"_s);
    EXPECT_TRUE(play.act(u"Press"_s));
    EXPECT_TRUE(hearsSilence());
    EXPECT_TRUE(play.act(u"Press"_s));
    EXPECT_TRUE(hears(300.0));
    find(u"slider"_s, u"Pitch"_s).setValue(1200.0);
    EXPECT_TRUE(hears(600.0));
    find(u"slider"_s, u"Position"_s).setValue(30.0);
    EXPECT_TRUE(
        waitUntil([&] { return find(u"slider"_s, u"Position"_s).value().value_or(0.0) >= 30.0; }));
    EXPECT_TRUE(find(u"push button"_s, u"Forward"_s).act(u"Press"_s));
    EXPECT_TRUE(waitForName(u"label"_s, u"Beta"_s));
    EXPECT_TRUE(find(u"page tab"_s, u"Playlists"_s).act(u"Press"_s));
    EXPECT_TRUE(waitUntil(
        [&] { return find(u"page tab"_s, u"Playlists"_s).has(AccessibleState::Selected); }));

    const Accessible divider = find(u"splitter"_s, u"Divider"_s);
    divider.setValue(200.0);
    waitForValue(divider, 200.0);
}

TEST_F(ScreenReader, FollowsThePresetAndTheBands)
{
    startAndPlay();
    display.key(u"ctrl+2"_s);
    ASSERT_TRUE(waitForName(u"frame"_s, u"Equalizer"_s));
    const Accessible band = find(u"slider"_s, u"Level at 31.5 hertz"_s);
    display.key(u"Down"_s); // from the manual preset to the next one
    EXPECT_TRUE(
        waitUntil([&] { return find(u"cell"_s, u"Acoustic"_s).has(AccessibleState::Selected); }));
    EXPECT_TRUE(waitUntil([&] { return band.value().value_or(0.0) != 0.0; }));
    band.setValue(-3.0);
    waitForValue(band, -3.0);
    EXPECT_EQ(find(u"text"_s, u"Level at 31.5 hertz in decibels"_s).text(), u"-3.0"_s);
    EXPECT_TRUE(
        waitUntil([&] { return find(u"cell"_s, u"Manual"_s).has(AccessibleState::Selected); }));
}

} // namespace
