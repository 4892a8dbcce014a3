// The practice pane in the real program, with mouse and keys.

#include "program/PaneOnScreen.h"

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

namespace {

TEST_F(ProgramWithPane, ALoopIsDraggedAndHeard)
{
    startAndPlay();
    openPane();
    display.key(u"w"_s);
    display.drag(placeOf(10.4), placeOf(11.7));
    for (int pass = 0; pass < 3; ++pass) {
        EXPECT_TRUE(hears(stepFrequency(10), 3.0)) << pass;
        EXPECT_TRUE(hears(stepFrequency(11), 3.0)) << pass;
    }
    // The loop button clears it, and a click goes elsewhere.
    display.key(u"l"_s);
    EXPECT_TRUE(hears(stepFrequency(13), 5.0));
    display.click(placeOf(4.5));
    EXPECT_TRUE(hears(stepFrequency(4), 3.0));
    EXPECT_EQ(quit(), 0);
    EXPECT_EQ(userDefault(u"practicePane"_s).toString(), u"true"_s);
}

TEST_F(ProgramWithPane, LoopsAreCalledUpInTheListAndAboveTheWaveAndDraggedThere)
{
    startAndPlay();
    openPane();
    display.key(u"w"_s);
    display.drag(placeOf(10.4), placeOf(11.7));
    ASSERT_TRUE(hears(stepFrequency(10), 3.0));
    display.key(u"k"_s);
    display.key(u"l"_s);
    ASSERT_TRUE(hears(stepFrequency(13), 5.0));
    display.click(frame.topLeft() + QPoint(900, 383), 2); // the first row of the list
    EXPECT_TRUE(hears(stepFrequency(10), 3.0));
    EXPECT_TRUE(hears(stepFrequency(11), 3.0));
    EXPECT_TRUE(hears(stepFrequency(10), 3.0));

    // It is renamed while the list has the keyboard.
    display.key(u"F2"_s);
    display.type(u"Solo"_s);
    display.key(u"Return"_s);

    // The end of a loop that does not sound is dragged above the wave.
    display.key(u"l"_s);
    ASSERT_TRUE(hears(stepFrequency(13), 5.0));
    const auto above = [](double second) { return QPoint(placeOf(second).x(), frame.top() + 376); };
    display.drag(above(11.7), above(12.8));
    display.click(above(11.2));
    for (int pass = 0; pass < 2; ++pass) {
        EXPECT_TRUE(hears(stepFrequency(10), 4.0)) << pass;
        EXPECT_TRUE(hears(stepFrequency(12), 4.0)) << pass;
    }
    EXPECT_EQ(quit(), 0);
    QByteArray kept;
    for (const QFileInfo &info : QDir(settingsFile(u"Practice"_s)).entryInfoList(QDir::Files)) {
        QFile file(info.filePath());
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        kept += file.readAll();
    }
    EXPECT_TRUE(kept.contains("Solo")) << kept.toStdString();
}

TEST_F(ProgramWithPane, LettersChooseInAnOpenMenuAlthoughTheyAreKeysOfThePane)
{
    startAndPlay();
    openPane();
    display.key(u"w"_s);
    display.drag(placeOf(4.4), placeOf(5.7));
    ASSERT_TRUE(hears(stepFrequency(4), 3.0));
    display.key(u"k"_s);
    display.key(u"l"_s);
    ASSERT_TRUE(hears(stepFrequency(7), 5.0));
    display.key(u"alt+p"_s); // the menu Playback
    display.key(u"n"_s);     // Next Song, and elsewhere the key of the next loop
    EXPECT_TRUE(hears(250.0, 5.0));
    EXPECT_EQ(quit(), 0);
}

TEST_F(ProgramWithPane, ClosingItBringsBackThePictureFromBefore)
{
    startAndPlay();
    display.moveTo(frame.topLeft() + QPoint(60, 720)); // away from the lists and their tool tips
    display.place(mainWindow(), frame);
    const QRect lists(frame.topLeft(), QSize(frame.width(), 400)); // same at any height
    ASSERT_TRUE(waitUntil([&] { return listsReachTheTransport(); }));
    const QImage before = display.screen(lists);
    openPane();
    EXPECT_NE(display.screen(lists), before);
    display.key(u"ctrl+3"_s);
    EXPECT_TRUE(waitUntil([&] { return listsReachTheTransport(); })) << "the pane is still there";
    EXPECT_TRUE(waitUntil([&] { return display.screen(lists) == before; })) << "other lists";
    EXPECT_EQ(quit(), 0);
    EXPECT_EQ(userDefault(u"practicePane"_s).toString(), u"false"_s);
}

} // namespace
