#include "support/program/RunningProgram.h"

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

namespace {

class PracticingProgram : public RunningProgram {};

TEST_F(PracticingProgram, APracticeSessionNeedsNoMouse)
{
    makeFolder(u"Songs"_s, {{u"Alpha"_s, 300.0, 30.0}, {u"Beta"_s, 500.0, 30.0}});
    start();

    // Add a folder: expand the home folder and choose the folder in it.
    display.key(u"ctrl+o"_s);
    display.key(u"Down"_s);
    display.key(u"Right"_s);
    display.key(u"Down"_s);
    display.key(u"Return"_s);
    ASSERT_TRUE(waitForSongs(2));

    // Sort the list and play its first song.
    display.key(u"alt+v"_s);
    display.key(u"s"_s);
    display.key(u"t"_s);
    display.key(u"ctrl+l"_s);
    display.key(u"Down"_s);
    display.key(u"Return"_s);
    EXPECT_TRUE(hears(300.0));

    // Play it an octave higher in a loop, pause and continue.
    display.key(u"bracketright"_s, 12);
    display.key(u"minus"_s, 4);
    EXPECT_TRUE(hears(600.0));
    display.key(u"l"_s);
    display.key(u"shift+Right"_s);
    display.key(u"l"_s);
    display.key(u"space"_s);
    EXPECT_TRUE(hearsSilence());
    display.key(u"space"_s);
    EXPECT_TRUE(hears(600.0));
    display.key(u"ctrl+s"_s);

    // Add a preset in the equalizer.
    display.key(u"ctrl+2"_s);
    const QString equalizer = display.waitForWindow(u"^Equalizer"_s);
    EXPECT_TRUE(waitUntil([&] { return display.activeWindow() == equalizer; }));
    display.key(u"Insert"_s);
    display.type(u"Mine l"_s);
    display.key(u"Return"_s);
    display.key(u"ctrl+w"_s);
    EXPECT_TRUE(waitUntil([&] { return display.activeWindow() == mainWindow(); }));

    display.key(u"ctrl+Right"_s);
    EXPECT_TRUE(hears(500.0));
    EXPECT_EQ(quit(), 0);

    const auto readAll = [this](const QString &name) {
        QFile file(settingsFile(name));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name.toStdString();
        return QString::fromUtf8(file.readAll());
    };
    EXPECT_TRUE(readAll(u"EQPresets.plist"_s).contains(u"Mine l"_s));
    EXPECT_TRUE(readAll(u"Folders.plist"_s).contains(u"Songs"_s));
    EXPECT_TRUE(readAll(u"UserSettings.plist"_s).contains(u"1200"_s));
}

} // namespace
