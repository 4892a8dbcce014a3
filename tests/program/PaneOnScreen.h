#pragma once

#include "support/program/RunningProgram.h"

namespace lyrabox::test {

/// The real program with the practice pane, which shows a song whose tone rises every second.
class ProgramWithPane : public RunningProgram {
protected:
    static constexpr QRect frame{20, 20, 1120, 820};
    static constexpr int seconds = 20;
    static constexpr double waveLeft = 14.0;
    static constexpr double waveWidth = 802.0;

    /// Plays a song of 20 steps.
    void startAndPlay()
    {
        const QString folder =
            makeFolder(QStringLiteral("Steps"), {{QStringLiteral("Zeta"), 250.0, 20.0}});
        addStepSong(folder, QStringLiteral("Steps"), seconds);
        showFolder(folder);
        start();
        ASSERT_TRUE(waitForSongs(2));
        doubleClickSong(0);
        ASSERT_TRUE(hears(stepFrequency(0)));
    }

    /// Opens the pane with its key.
    void openPane()
    {
        display.key(QStringLiteral("ctrl+3"));
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

} // namespace lyrabox::test
