// The practice pane in the real program, with mouse and keys.

#include "support/program/RunningProgram.h"

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

namespace {

class ProgramWithPane : public RunningProgram {
protected:
    static constexpr QRect frame{20, 20, 1120, 820};
    static constexpr int seconds = 20;
    static constexpr double waveLeft = 14.0;
    static constexpr double waveWidth = 802.0;

    /// Plays a song of 20 steps.
    void startAndPlay()
    {
        const QString folder = makeFolder(u"Steps"_s, {{u"Zeta"_s, 250.0, 20.0}});
        addStepSong(folder, u"Steps"_s, seconds);
        showFolder(folder);
        start();
        ASSERT_TRUE(waitForSongs(2));
        doubleClickSong(0);
        ASSERT_TRUE(hears(stepFrequency(0)));
    }

    /// Opens the pane with its key.
    void openPane()
    {
        display.key(u"ctrl+3"_s);
        ASSERT_TRUE(waitUntil([&] { return windowHasGrown(); }));
        display.place(mainWindow(), frame);
        ASSERT_TRUE(waitUntil([&] { return paneIsShown(); }));
    }

    bool windowHasGrown() const { return display.frameOf(mainWindow()).height() > frame.height(); }

    /// Whether the divider of the lists ends at the transport.
    bool listsReachTheTransport() const
    {
        const QImage image = display.screen(frame);
        constexpr int divider = 228;
        const auto isLine = [&](int y) {
            return qGray(image.pixel(divider, y)) < qGray(image.pixel(divider - 3, y)) - 20;
        };
        return isLine(300) && isLine(480) && isLine(600);
    }

    /// Whether the white ground of the wave lies on the ground of the pane.
    bool paneIsShown() const
    {
        const QImage image = display.screen(frame);
        const int y = 480; // above the buttons of the lists
        return image.pixelColor(6, y) == QColor(0xF4, 0xF6, 0xF8) &&
               image.pixelColor(16, y) == QColor(Qt::white);
    }

    /// Where a wave that shows the whole song has a time.
    static QPoint placeOf(double second)
    {
        return frame.topLeft() + QPoint(qRound(waveLeft + second / seconds * waveWidth), 500);
    }
};

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
