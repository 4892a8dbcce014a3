#include "app/practice/LaneLayout.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

using namespace lyrabox;
using namespace lyrabox::laneLayout;
using namespace Qt::Literals::StringLiterals;
using loopHands::Grip;

namespace {

/// A lane of 1,000 points; 100 frames a point.
class TheLane : public testing::Test {
protected:
    static constexpr double framesPerPoint = 100.0;

    PracticeId loop(double from, double to)
    {
        PracticeLoop made{.from = static_cast<std::uint64_t>(from * framesPerPoint),
                          .to = static_cast<std::uint64_t>(to * framesPerPoint)};
        record.loops.push_back(made);
        sortByPlace(record);
        return made.id;
    }

    PracticeId marker(double at)
    {
        PracticeMarker made{.at = static_cast<std::uint64_t>(at * framesPerPoint)};
        record.markers.push_back(made);
        sortByPlace(record);
        return made.id;
    }

    Lane laid(double first = 0.0) const
    {
        View view{{first * framesPerPoint, framesPerPoint}, 1000.0, 1.0, 0};
        return lay(record, view, sounding, [this](PracticeId) { return nameWidth; });
    }

    static const Bracket *bracket(const Lane &lane, PracticeId id)
    {
        const auto found = std::ranges::find(lane.brackets, id, &Bracket::id);
        return found == lane.brackets.end() ? nullptr : &*found;
    }

    PracticeRecord record;
    std::optional<Sounding> sounding;
    double nameWidth = 60.0;
};

TEST_F(TheLane, HasBracketsAndFlagsAtTheirPlaces)
{
    const PracticeId a = loop(100, 300);
    const PracticeId m = marker(400);
    const Lane lane = laid();
    ASSERT_EQ(lane.brackets.size(), 1U);
    EXPECT_EQ(lane.brackets[0].id, a);
    EXPECT_EQ(lane.brackets[0].left, 100.0);
    EXPECT_EQ(lane.brackets[0].right, 300.0);
    EXPECT_EQ(lane.brackets[0].name, (NameRoom{170.0, 60.0}));
    ASSERT_EQ(lane.flags.size(), 1U);
    EXPECT_EQ(lane.flags[0].id, m);
    EXPECT_EQ(lane.flags[0].x, 400.0);
    EXPECT_EQ(lane.flags[0].name, (NameRoom{400.0 + flagWidth + nameGap, 60.0}));
}

TEST_F(TheLane, LeavesOutWhatCannotBeSeen)
{
    loop(100, 300);
    loop(2500, 2600);
    const Lane lane = laid(1000.0);
    EXPECT_TRUE(lane.brackets.empty());
}

TEST_F(TheLane, NamesDoNotOverlap)
{
    nameWidth = 90.0;
    for (double at : {50.0, 120.0, 140.0, 145.0, 400.0, 430.0, 700.0})
        marker(at);
    loop(100, 450);
    loop(300, 420);
    loop(350, 900);
    const Lane lane = laid();
    struct Part {
        double left, right;
    };
    std::vector<Part> names;
    for (const Flag &flag : lane.flags) {
        EXPECT_TRUE(flag.name.width == 0.0 || flag.name.width >= leastName);
        if (flag.name.width > 0.0)
            names.push_back({flag.name.left, flag.name.left + flag.name.width});
    }
    for (const Bracket &each : lane.brackets) {
        if (each.name.width > 0.0)
            names.push_back({each.name.left, each.name.left + each.name.width});
    }
    EXPECT_GE(names.size(), 6U);
    std::ranges::sort(names, {}, &Part::left);
    for (std::size_t i = 1; i < names.size(); ++i)
        EXPECT_LE(names[i - 1].right, names[i].left) << i;
    for (const Part &name : names) {
        for (const Flag &flag : lane.flags)
            EXPECT_FALSE(flag.x < name.right && flag.x + flagWidth > name.left) << flag.x;
    }
}

TEST_F(TheLane, ANameStaysInTheVisiblePartOfItsBracket)
{
    const PracticeId a = loop(100, 3000);
    const Lane lane = laid(1500.0);
    const Bracket *shown = bracket(lane, a);
    ASSERT_NE(shown, nullptr);
    EXPECT_GE(shown->name.left, 0.0);
    EXPECT_LE(shown->name.left + shown->name.width, 1000.0);
    EXPECT_EQ(shown->name.width, 60.0);
}

TEST_F(TheLane, ShortLoopsLieAboveLongOnesAndTheSoundingOneAboveAll)
{
    const PracticeId shortOne = loop(150, 160);
    const PracticeId longOne = loop(100, 900);
    const PracticeId middle = loop(120, 400);
    sounding = Sounding{{10000, 90000}, longOne};
    const Lane lane = laid();
    ASSERT_EQ(lane.brackets.size(), 3U);
    EXPECT_EQ(lane.brackets[0].id, middle);
    EXPECT_EQ(lane.brackets[1].id, shortOne);
    EXPECT_EQ(lane.brackets[2].id, longOne);
    EXPECT_TRUE(lane.brackets[2].sounds);
}

TEST_F(TheLane, FlagsThatAreTooNearBecomeOneAndTheSameOneWhileTheWaveMoves)
{
    for (int i = 0; i < 2000; ++i)
        marker(0.75 * i);
    const Lane lane = laid(200.0);
    EXPECT_LE(lane.flags.size(), 1600U / 4);
    for (double by : {0.4, 1.0, 2.3}) {
        const Lane next = laid(200.0 + by);
        for (const Flag &flag : lane.flags) {
            const bool isInside = flag.x > 10.0 && flag.x < 990.0;
            const bool isThere =
                std::ranges::find(next.flags, flag.id, &Flag::id) != next.flags.end();
            EXPECT_TRUE(!isInside || isThere) << flag.x;
        }
    }
}

TEST_F(TheLane, EverythingLiesOnWholeDevicePixelsAndMovesAsTheWaveDoes)
{
    loop(100.37, 300.21);
    marker(400.77);
    for (double first : {0.0, 0.3, 17.9}) {
        const View view{{first * framesPerPoint, framesPerPoint}, 1000.0, 2.0, 0};
        const Lane lane = lay(record, view, {}, [](PracticeId) { return 20.0; });
        const double column = framesPerPoint / 2.0;
        const auto wanted = [&](std::uint64_t frame) {
            return static_cast<double>(std::llround(static_cast<double>(frame) / column) -
                                       std::llround(view.scale.first / column)) /
                   2.0;
        };
        EXPECT_EQ(lane.brackets[0].left, wanted(record.loops[0].from));
        EXPECT_EQ(lane.brackets[0].right, wanted(record.loops[0].to));
        EXPECT_EQ(lane.flags[0].x, wanted(record.markers[0].at));
    }
}

TEST_F(TheLane, KnowsWhatLiesAtAPoint)
{
    const PracticeId a = loop(100, 500);
    const PracticeId b = loop(200, 300);
    const PracticeId m = marker(400);
    const Lane lane = laid();
    EXPECT_EQ(hitAt(lane, 101.0), (Hit{Hit::Kind::Loop, a, Grip::Start}));
    EXPECT_EQ(hitAt(lane, 150.0), (Hit{Hit::Kind::Loop, a, Grip::Whole}));
    EXPECT_EQ(hitAt(lane, 250.0), (Hit{Hit::Kind::Loop, b, Grip::Whole}));
    EXPECT_EQ(hitAt(lane, 298.0), (Hit{Hit::Kind::Loop, b, Grip::End}));
    EXPECT_EQ(hitAt(lane, 403.0), (Hit{Hit::Kind::Marker, m, Grip::Nothing}));
    EXPECT_EQ(hitAt(lane, 440.0), (Hit{Hit::Kind::Marker, m, Grip::Nothing}));
    EXPECT_EQ(hitAt(lane, 700.0), Hit{});
}

TEST_F(TheLane, LeavesTheLoopThatSoundsToTheWave)
{
    loop(100, 500);
    const PracticeId m = marker(400);
    sounding = Sounding{{20000, 60000}, 0};
    const Lane lane = laid();
    EXPECT_EQ(hitAt(lane, 250.0).kind, Hit::Kind::Sounding);
    EXPECT_EQ(hitAt(lane, 203.0), (Hit{Hit::Kind::Sounding, 0, Grip::Start}));
    EXPECT_EQ(hitAt(lane, 410.0), (Hit{Hit::Kind::Marker, m, Grip::Nothing}));
    EXPECT_EQ(hitAt(lane, 150.0).kind, Hit::Kind::Loop);
}

} // namespace
