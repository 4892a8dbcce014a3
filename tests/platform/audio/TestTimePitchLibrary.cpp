#include "platform/audio/TimePitchLibrary.h"

#include <gtest/gtest.h>

#include <utility>

using namespace lyrabox;

namespace {

std::pair<int, int> rowFor(const char *version)
{
    const TimePitchLibrary &row = timePitchLibraryFor(version);
    return {row.major, row.minor};
}

} // namespace

TEST(TimePitchLibrary, AVersionIsDescribedByTheLastRowThatIsNotNewer)
{
    EXPECT_EQ(rowFor("3.0.0"), std::pair(3, 0));
    EXPECT_EQ(rowFor("3.1.2"), std::pair(3, 0));
    EXPECT_EQ(rowFor("3.2"), std::pair(3, 2));
    EXPECT_EQ(rowFor("3.3.0"), std::pair(3, 2));
    EXPECT_EQ(rowFor("3.10.1"), std::pair(3, 2));
    EXPECT_EQ(rowFor("4.0.0"), std::pair(3, 2));
}

TEST(TimePitchLibrary, ATextWithoutAVersionGivesTheOldestRow)
{
    EXPECT_EQ(rowFor(""), std::pair(3, 0));
    EXPECT_EQ(rowFor("unknown"), std::pair(3, 0));
}

TEST(TimePitchLibrary, TheRowsAreSortedByVersion)
{
    const auto rows = timePitchLibraries();
    for (std::size_t i = 1; i < rows.size(); ++i)
        EXPECT_LT(std::pair(rows[i - 1].major, rows[i - 1].minor),
                  std::pair(rows[i].major, rows[i].minor));
}
