#include "app/controls/LB_InvertibleImageCellView.h"

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace {

TEST(LB_InvertibleImageCellView, DarkBackgroundUsesTheNameFollowedByLight)
{
    EXPECT_EQ(LB_InvertibleImageCellView::imageNameForBackgroundStyle(u"IsPlaying"_s, true),
              u"IsPlayingLight"_s);
}

TEST(LB_InvertibleImageCellView, DeselectedImageReturnsToItsPlainName)
{
    EXPECT_EQ(LB_InvertibleImageCellView::imageNameForBackgroundStyle(u"IsPlayingLight"_s, false),
              u"IsPlaying"_s);
}

TEST(LB_InvertibleImageCellView, EveryLightInTheNameIsRemovedFirst)
{
    EXPECT_EQ(LB_InvertibleImageCellView::imageNameForBackgroundStyle(u"LightIsLightPlayingLight"_s,
                                                                      true),
              u"IsPlayingLight"_s);
    EXPECT_EQ(LB_InvertibleImageCellView::imageNameForBackgroundStyle(u"LightIsLightPlayingLight"_s,
                                                                      false),
              u"IsPlaying"_s);
}

} // namespace
