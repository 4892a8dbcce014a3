#include "library/TrackCountTextTransformer.h"

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

TEST(TrackCountTextTransformer, IsEmptyForAnEmptyList)
{
    EXPECT_EQ(TrackCountTextTransformer::transformedValue(0), u""_s);
}

TEST(TrackCountTextTransformer, UsesTheSingularForOneSong)
{
    EXPECT_EQ(TrackCountTextTransformer::transformedValue(1), u"1 song"_s);
}

TEST(TrackCountTextTransformer, CountsSongsWithoutSeparators)
{
    EXPECT_EQ(TrackCountTextTransformer::transformedValue(2), u"2 songs"_s);
    EXPECT_EQ(TrackCountTextTransformer::transformedValue(12), u"12 songs"_s);
    EXPECT_EQ(TrackCountTextTransformer::transformedValue(100000), u"100000 songs"_s);
}
