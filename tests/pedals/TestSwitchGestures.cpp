#include "pedals/SwitchGestures.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

using namespace lyrabox;

namespace {

constexpr PedalTime ms(int milliseconds)
{
    return std::chrono::milliseconds(milliseconds);
}

constexpr GesturesInUse onlyTap{.tap = true};
constexpr GesturesInUse tapAndHold{.tap = true, .hold = true};
constexpr GesturesInUse tapAndDouble{.tap = true, .doubleTap = true};
constexpr GesturesInUse all{.tap = true, .doubleTap = true, .hold = true};

/// Collects what a switch does, each gesture with its time: "tap 0, hold 500".
class Foot {
public:
    explicit Foot(GesturesInUse inUse) : m_inUse(inUse) {}

    Foot &down(int time)
    {
        pass(time);
        note(m_gestures.press(ms(time), m_inUse), time);
        return *this;
    }
    Foot &up(int time)
    {
        pass(time);
        note(m_gestures.release(ms(time)), time);
        return *this;
    }
    Foot &pass(int time)
    {
        if (const auto deadline = m_gestures.deadline(); deadline && *deadline <= ms(time))
            note(m_gestures.advance(*deadline), static_cast<int>(deadline->count() / 1000));
        return *this;
    }
    const std::string &made() const { return m_made; }
    SwitchGestures &gestures() { return m_gestures; }

private:
    void note(std::optional<PedalGesture> gesture, int time)
    {
        if (!gesture)
            return;
        m_made += m_made.empty() ? "" : ", ";
        m_made += *gesture == PedalGesture::Tap         ? "tap "
                  : *gesture == PedalGesture::DoubleTap ? "double "
                                                        : "hold ";
        m_made += std::to_string(time);
    }

    GesturesInUse m_inUse;
    SwitchGestures m_gestures;
    std::string m_made;
};

TEST(SwitchGestures, ASwitchWithNothingButATapActsWhenItIsPressed)
{
    EXPECT_EQ(Foot(onlyTap).down(100).made(), "tap 100");
    EXPECT_EQ(Foot(onlyTap).down(0).up(900).pass(3000).made(), "tap 0");
    EXPECT_EQ(Foot(onlyTap).down(0).up(90).down(200).up(250).made(), "tap 0, tap 200");
}

TEST(SwitchGestures, ASwitchWithoutADoubleTapDoesNotWaitAfterItIsLetGo)
{
    EXPECT_EQ(Foot(tapAndHold).down(0).up(120).made(), "tap 120");
    EXPECT_EQ(Foot(tapAndHold).down(0).up(120).down(200).up(300).made(), "tap 120, tap 300");
    EXPECT_EQ(Foot(tapAndHold).down(0).pass(1000).up(1200).pass(3000).made(), "hold 500");
}

TEST(SwitchGestures, ATapWaitsForTheSecondOneOfADoubleTap)
{
    EXPECT_EQ(Foot(tapAndDouble).down(0).up(100).pass(340).made(), "");
    EXPECT_EQ(Foot(tapAndDouble).down(0).up(100).pass(3000).made(), "tap 350");
    EXPECT_EQ(Foot(tapAndDouble).down(0).up(100).down(300).up(400).pass(3000).made(), "double 300");
    EXPECT_EQ(Foot(tapAndDouble).down(0).up(100).down(400).up(500).pass(3000).made(),
              "tap 350, tap 750");
    EXPECT_EQ(Foot(tapAndDouble).down(0).pass(1000).up(1000).pass(3000).made(), "tap 350")
        << "held, and there is nothing that a hold would do";
}

TEST(SwitchGestures, ThreeTapsAreADoubleTapAndATap)
{
    EXPECT_EQ(
        Foot(tapAndDouble).down(0).up(80).down(160).up(240).down(320).up(400).pass(3000).made(),
        "double 160, tap 670");
}

TEST(SwitchGestures, ThreeGesturesAreToldApart)
{
    EXPECT_EQ(Foot(all).down(0).up(100).pass(3000).made(), "tap 350");
    EXPECT_EQ(Foot(all).down(0).up(100).down(200).pass(3000).up(3000).made(), "double 200");
    EXPECT_EQ(Foot(all).down(0).pass(3000).up(3000).pass(5000).made(), "hold 500");
    EXPECT_EQ(Foot(all).down(0).up(420).made(), "tap 420") << "too late for a second press";
}

TEST(SwitchGestures, GesturesWithoutACommandAreSilent)
{
    EXPECT_EQ(Foot({.hold = true}).down(0).up(100).pass(3000).made(), "");
    EXPECT_EQ(Foot({.hold = true}).down(0).pass(600).up(700).made(), "hold 500");
    EXPECT_EQ(Foot({.doubleTap = true}).down(0).up(100).pass(3000).made(), "");
    EXPECT_EQ(Foot({.doubleTap = true}).down(0).up(100).down(200).up(300).made(), "double 200");
    EXPECT_EQ(Foot({}).down(0).up(100).pass(3000).made(), "");
}

TEST(SwitchGestures, AChatteringContactIsOnePress)
{
    EXPECT_EQ(Foot(onlyTap).down(0).up(3).down(6).up(9).down(12).up(200).made(), "tap 0");
    EXPECT_EQ(Foot(tapAndDouble).down(0).up(3).down(6).up(100).pass(3000).made(), "tap 350");
    EXPECT_EQ(Foot(all).down(0).up(3).down(6).pass(900).up(900).made(), "hold 500");
}

TEST(SwitchGestures, WhatIsCancelledLeavesNothingBehind)
{
    Foot foot(all);
    foot.down(0);
    foot.gestures().cancel();
    EXPECT_TRUE(foot.gestures().isIdle());
    EXPECT_FALSE(foot.gestures().deadline());
    EXPECT_EQ(foot.up(100).pass(3000).made(), "");
    EXPECT_EQ(foot.down(4000).up(4100).pass(5000).made(), "tap 4350");
}

TEST(SwitchGestures, APressThatIsHandledLateIsJudgedByItsTime)
{
    // All of it is read two seconds later.
    EXPECT_EQ(Foot(all).down(0).up(100).down(2000).up(2100).pass(2400).made(), "tap 350, tap 2350");
}

} // namespace
