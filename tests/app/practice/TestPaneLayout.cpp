#include "app/practice/PaneLayout.h"

#include <gtest/gtest.h>

using namespace lyrabox::paneLayout;

namespace {

TEST(PaneLayout, ThePaneHasTheHeightThatIsWantedIfTheListsKeepEnough)
{
    EXPECT_EQ(share(700, 320), (Share{Place::Below, 320}));
    EXPECT_EQ(share(470, 320), (Share{Place::Below, 320}));
}

TEST(PaneLayout, ThePaneIsNeverLowerOrHigherThanItsLimits)
{
    EXPECT_EQ(share(2000, 10), (Share{Place::Below, minimumHeight}));
    EXPECT_EQ(share(2000, 5000), (Share{Place::Below, maximumHeight}));
}

TEST(PaneLayout, ThePaneShrinksBeforeTheListsGetTooLow)
{
    EXPECT_EQ(share(469, 320), (Share{Place::Below, 319}));
    EXPECT_EQ(share(390, 460), (Share{Place::Below, 240}));
}

TEST(PaneLayout, ThePaneTakesThePlaceOfListsThatWouldBeTooLow)
{
    EXPECT_EQ(share(389, 240), (Share{Place::Instead, 389}));
    EXPECT_EQ(share(247, 320), (Share{Place::Instead, 247}));
    EXPECT_EQ(share(-5, 320), (Share{Place::Instead, 0}));
}

TEST(PaneLayout, AWindowGrowsDownwardsWhereTheScreenHasRoom)
{
    const QRect screen(0, 0, 1920, 1080);
    EXPECT_EQ(grown({100, 20, 1120, 720}, screen, 320), QRect(100, 20, 1120, 1040));
}

TEST(PaneLayout, AWindowThatGrowsMovesUpAtTheEndOfTheScreen)
{
    const QRect screen(0, 30, 1920, 1050);
    EXPECT_EQ(grown({100, 300, 1120, 600}, screen, 320), QRect(100, 160, 1120, 920));
}

TEST(PaneLayout, AWindowGrowsNoFurtherThanTheScreen)
{
    const QRect screen(0, 30, 1366, 738);
    EXPECT_EQ(grown({0, 30, 1120, 720}, screen, 320), QRect(0, 30, 1120, 738));
    EXPECT_EQ(grown({0, 30, 1120, 800}, screen, 320), QRect(0, 30, 1120, 800));
}

TEST(PaneLayout, AWindowThatReachesBeyondTheScreenIsNotMovedFurther)
{
    const QRect screen(0, 0, 1000, 1000);
    EXPECT_EQ(grown({0, 700, 500, 500}, screen, 100), QRect(0, 600, 500, 600));
}

} // namespace
