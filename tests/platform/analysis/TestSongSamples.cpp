#include "platform/analysis/SongSamples.h"

#include "MadeSong.h"

#include <gtest/gtest.h>

namespace lyrabox::test {
namespace {

TEST(SongSamples, AreMonoIfBothChannelsAreTheSame)
{
    MadeSong song(5000);
    song.addTone(0, 440.0, 0.5);
    EXPECT_TRUE(song.samples().isMono());
    EXPECT_TRUE(song.mono().isMono());
    song.right[4999] += 1.0e-6F;
    EXPECT_FALSE(song.samples().isMono());
    EXPECT_TRUE(SongSamples{}.isMono());
}

} // namespace
} // namespace lyrabox::test
