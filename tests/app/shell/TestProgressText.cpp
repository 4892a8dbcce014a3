#include "app/shell/ProgressText.h"

#include <gtest/gtest.h>

using namespace lyrabox;
using namespace Qt::Literals::StringLiterals;

TEST(ProgressText, FormatsSongCountsForTheLocale)
{
    EXPECT_EQ(listProgressText(120, 5000), u"Reading songs: 120 of 5,000"_s);
    EXPECT_EQ(listProgressText(1200, 5000), u"Reading songs: 1,200 of 5,000"_s);
}

TEST(ProgressText, ShowsSeconds)
{
    EXPECT_EQ(loadProgressText(35, 240), u"Loading: 35 of 240 seconds"_s);
}

TEST(ProgressText, LeavesOutAnUnknownLength)
{
    EXPECT_EQ(loadProgressText(35, 0), u"Loading: 35 seconds"_s);
}

TEST(ProgressText, NeverShowsMoreSecondsThanTheTotal)
{
    EXPECT_EQ(loadProgressText(241, 240), u"Loading: 241 of 241 seconds"_s);
}

TEST(ProgressText, ShowsSearchedFilesAndSkippedSongs)
{
    EXPECT_EQ(searchProgressText(1200), u"Searching folders: 1,200 files"_s);
    EXPECT_EQ(skipProgressText(120, 5000), u"Skipping songs that cannot be loaded: 120 of 5,000"_s);
}

TEST(ProgressText, NamesTheStopKeyOnASecondLine)
{
    EXPECT_EQ(withStopHint(u"Reading"_s), u"Reading\nEscape stops it"_s);
}
