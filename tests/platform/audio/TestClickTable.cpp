#include "platform/audio/ClickTable.h"

#include <gmock/gmock.h>

#include <vector>

namespace lyrabox {
namespace {

using testing::ElementsAre;

std::vector<SongBeat> fourBeats()
{
    return {{.frame = 1000, .beat = 1},
            {.frame = 11000, .beat = 2},
            {.frame = 21001, .beat = 3},
            {.frame = 31000, .beat = 4}};
}

TEST(ClickTable, AccentsTheFirstBeatOfABar)
{
    EXPECT_THAT(
        clickTable(fourBeats(), {})->clicks,
        ElementsAre(SongClick{1000, ClickKind::Accent, 1}, SongClick{11000, ClickKind::Beat, 2},
                    SongClick{21001, ClickKind::Beat, 3}, SongClick{31000, ClickKind::Beat, 4}));
}

TEST(ClickTable, DividesBeatsButNotTheLast)
{
    const auto table = clickTable(fourBeats(), {.subdivision = 3});
    std::vector<std::uint64_t> frames;
    for (const SongClick &click : table->clicks) {
        if (click.kind == ClickKind::Subdivision)
            frames.push_back(click.frame);
    }
    EXPECT_THAT(frames, ElementsAre(4333, 7667, 14334, 17667, 24334, 27667));
}

TEST(ClickTable, OfBackbeatsHasOnlyEvenBeatsAndNoSubdivisions)
{
    const auto table = clickTable(fourBeats(), {.subdivision = 2, .onlyBackbeats = true});
    EXPECT_THAT(table->clicks, ElementsAre(SongClick{11000, ClickKind::Beat, 2},
                                           SongClick{31000, ClickKind::Beat, 4}));
}

TEST(ClickTable, LeavesOutBeatsThatAreTooCloseOrOutOfOrder)
{
    const std::vector<SongBeat> odd{{.frame = 1000, .beat = 1},
                                    {.frame = 1000, .beat = 2},
                                    {.frame = 1440, .beat = 3},
                                    {.frame = 500, .beat = 4},
                                    {.frame = 1441, .beat = 1}};
    EXPECT_THAT(clickTable(odd, {})->clicks, ElementsAre(SongClick{1000, ClickKind::Accent, 1},
                                                         SongClick{1441, ClickKind::Accent, 1}));
    EXPECT_EQ(clickTable(odd, {.subdivision = 2})->clicks.size(), 2U)
        << "no room for subdivisions either";
}

TEST(ClickTable, BringsOddPatternsIntoTheirRange)
{
    const auto many = clickTable(fourBeats(), {.subdivision = 99, .barsOn = 0, .barsOff = -3});
    EXPECT_EQ(many->clicks.size(), 4U + 3U * (ClickPattern::maximumSubdivision - 1));
    EXPECT_EQ(many->barsOn, 1U);
    EXPECT_EQ(many->barsOff, 0U);
    EXPECT_EQ(clickTable(fourBeats(), {.subdivision = -1})->clicks.size(), 4U);
    EXPECT_EQ(clickTable(fourBeats(), {.barsOn = 1000, .barsOff = 1000})->barsOff, 64U);
    EXPECT_TRUE(clickTable({}, {})->clicks.empty());
}

} // namespace
} // namespace lyrabox
