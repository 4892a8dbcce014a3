#include "platform/foundation/ByteSearch.h"

#include <gtest/gtest.h>

using namespace lyrabox;
using namespace std::string_view_literals;

TEST(ByteSearch, FindsTheFirstOccurrenceOfTheNeedle)
{
    EXPECT_EQ(findBytes("ananas", "nas"), 3U);
    EXPECT_EQ(findBytes("ananas", "an"), 0U);
    EXPECT_EQ(findBytes("ananas", "s"), 5U);
    EXPECT_EQ(findBytes("an\0\xFFnas"sv, "\0\xFF"sv), 2U);
}

TEST(ByteSearch, FindsNothingThatIsNotThere)
{
    EXPECT_EQ(findBytes("ananas", "nan "), std::string_view::npos);
    EXPECT_EQ(findBytes("an", "ana"), std::string_view::npos);
    EXPECT_EQ(findBytes({}, "a"), std::string_view::npos);
    EXPECT_EQ(findBytes("ananas"sv.substr(0, 3), "nas"), std::string_view::npos);
}

TEST(ByteSearch, FindsAnEmptyNeedleAtTheBeginning)
{
    EXPECT_EQ(findBytes("ananas", {}), 0U);
}
