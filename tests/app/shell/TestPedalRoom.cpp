// Tests of what pedals and keys reach in the program.

#include "PracticeRoomFixture.h"
#include "app/pedals/PedalAssignments.h"
#include "app/practice/PressedPlace.h"
#include "app/shell/MainMenu.h"
#include "practice/PracticeFiles.h"

#include <QAction>
#include <QDir>
#include <QFile>
#include <QMenuBar>
#include <QSet>

#include <gmock/gmock.h>

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

namespace {

void expectKnown(const QMenu *menu, const QSet<const QAction *> &known)
{
    for (const QAction *action : menu->actions()) {
        if (const QMenu *submenu = action->menu()) {
            expectKnown(submenu, known);
        } else if (!action->isSeparator()) {
            EXPECT_TRUE(known.contains(action)) << action->text().toStdString();
        }
    }
}

TEST_F(PracticeRoom, EveryCommandOfEveryMenuHasANameForPedalsAndKeys)
{
    const auto *all = window->findChild<MainMenu *>();
    QSet<QString> ids;
    QSet<const QAction *> known;
    for (const MenuCommand &command : all->commands()) {
        EXPECT_FALSE(ids.contains(command.id)) << command.id.toStdString();
        EXPECT_FALSE(command.name.isEmpty() || command.group.isEmpty()) << command.id.toStdString();
        ids.insert(command.id);
        known.insert(command.action);
    }
    for (const QAction *title : window->menuBar()->actions())
        expectKnown(title->menu(), known);
    // Files are written with these, so they stay.
    for (const QString &id :
         {u"play or pause"_s, u"loop"_s,           u"next song"_s,     u"slower"_s,
          u"sort by title"_s, u"keep loop"_s,      u"play loop 9"_s,   u"next loop"_s,
          u"add marker"_s,    u"move start -10"_s, u"move loop 100"_s, u"undo"_s,
          u"tap"_s,           u"train"_s,          u"pass missed"_s,   u"click"_s,
          u"count in"_s,      u"whole song"_s,     u"show history"_s,  u"pedals and keys"_s})
        EXPECT_TRUE(ids.contains(id)) << id.toStdString();
}

void writePedals(const QByteArray &text)
{
    QDir().mkpath(practiceFolder());
    QFile file(QDir(practiceFolder()).filePath(u"Pedals.json"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(text);
}

TEST_F(PracticeRoom, TheUsersKeysWorkFromTheStartAndInThePane)
{
    writePedals(R"({"lyrabox pedals": 1, "keys": [
        {"command": "practice pane", "keys": ["F9"]},
        {"command": "add marker", "keys": ["B"], "instead": true},
        {"command": "play loop 1", "keys": [], "instead": true},
        {"command": "from a later version", "keys": ["F10"]}]})");
    endAndLaunch();
    QAction *paneCommand = command(u"Practice Pane"_s);
    // The file is read after the first picture.
    while (!paneCommand->shortcuts().contains(QKeySequence(Qt::Key_F9)))
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    openWithSong();
    EXPECT_EQ(command(u"Add Marker"_s)->shortcuts(), QList{QKeySequence(Qt::Key_B)});
    const auto markers = [this] { return pane()->practice()->record().markers.size(); };
    QTest::keyClick(pane(), Qt::Key_M);
    EXPECT_EQ(markers(), 0U);
    QTest::keyClick(pane(), Qt::Key_B);
    EXPECT_EQ(markers(), 1U);
}

TEST_F(PracticeRoom, AMarkerIsSetWhereThePedalWasPressed)
{
    openWithSong();
    {
        const PressedPlaceScope place({.frame = 12'345});
        command(u"Add Marker"_s)->trigger();
    }
    const auto places = [this] {
        std::vector<quint64> result;
        for (const PracticeMarker &marker : pane()->practice()->record().markers)
            result.push_back(marker.at);
        return result;
    };
    EXPECT_THAT(places(), testing::ElementsAre(12'345U));
    // A key is pressed now, where the song stands still.
    command(u"Add Marker"_s)->trigger();
    EXPECT_THAT(places(), testing::UnorderedElementsAre(12'345U, 0U));
}

TEST(PressedPlace, GoesBackByTheAgeOfThePressAlsoAcrossAJump)
{
    using std::chrono::milliseconds;
    EXPECT_EQ(frameHeardBefore(44100, milliseconds(100), 1.0, {}), 44100U - 4410U);
    EXPECT_EQ(frameHeardBefore(44100, milliseconds(100), 0.5, {}), 44100U - 2205U);
    EXPECT_EQ(frameHeardBefore(100, milliseconds(100), 1.0, {}), 0U);
    const LoopRange loop{.start = 44'000, .end = 88'200};
    EXPECT_EQ(frameHeardBefore(44'100, milliseconds(100), 1.0, loop), 88'200U - 4310U);
    EXPECT_EQ(frameHeardBefore(60'000, milliseconds(100), 1.0, loop), 60'000U - 4410U);
    EXPECT_EQ(frameHeardBefore(44'100, milliseconds(5000), 1.0, loop), 44'000U);
}

} // namespace
