// The stand view in the real program, by keys.

#include "program/PaneOnScreen.h"

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

namespace {

class ProgramWithStandView : public ProgramWithPane {
protected:
    bool isOnTop() const
    {
        return waitUntil([&] { return display.activeWindow() == m_view; });
    }

    /// Opens the view with its key.
    void openView()
    {
        display.key(u"F11"_s);
        m_view = display.waitForWindow(u"^Stand View"_s);
        ASSERT_TRUE(isOnTop());
        EXPECT_TRUE(waitUntil(
            [&] { return display.frameOf(m_view) == QRect(QPoint(), VirtualDisplay::size); }));
    }

    bool isClosed() const
    {
        return waitUntil([&] { return display.activeWindow() == mainWindow(); }) &&
               waitUntil([&] { return !display.hasWindow(u"^Stand View"_s); });
    }

    QString m_view;
};

TEST_F(ProgramWithStandView, FillsTheScreenAndIsPlayedByTheUsualKeys)
{
    startAndPlay();
    openPane();
    display.key(u"w"_s);
    display.drag(placeOf(4.02), placeOf(4.95));
    ASSERT_TRUE(hears(stepFrequency(4)));
    display.key(u"k"_s);
    openView();
    display.key(u"space"_s);
    EXPECT_TRUE(hearsSilence());
    display.key(u"space"_s);
    EXPECT_TRUE(hearsAnything());
    display.key(u"l"_s); // the song goes on
    ASSERT_TRUE(waitUntil([&] { return toneNow() > stepFrequency(4.5); }));
    display.key(u"1"_s);
    EXPECT_TRUE(hears(stepFrequency(4)));
    display.key(u"F11"_s);
    EXPECT_TRUE(isClosed());
    openView();
    display.key(u"Escape"_s);
    EXPECT_TRUE(isClosed());
    openView();
    display.key(u"ctrl+3"_s); // without the pane
    EXPECT_TRUE(isClosed());
    EXPECT_TRUE(hearsAnything());
    EXPECT_EQ(quit(), 0);
}

} // namespace
