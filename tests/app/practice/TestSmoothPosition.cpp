#include "app/practice/SmoothPosition.h"

#include <gtest/gtest.h>

#include <cmath>

using lyrabox::SmoothPosition;

namespace {

constexpr double speed = 44.1; // frames per millisecond
constexpr double jump = 5000.0;

TEST(SmoothPosition, MovesEvenlyWhereMeasurementsComeInSteps)
{
    SmoothPosition position;
    position.jumpTo(0.0, 0.0);
    double last = 0.0;
    for (double now = 16.0; now < 2000.0; now += 16.0) {
        const double measured = std::floor(now / 10.0) * 10.0 * speed; // a request of 10 ms
        const double shown = position.measured(measured, now, speed, jump);
        EXPECT_NEAR(shown - last, 16.0 * speed, 1.5 * speed) << now;
        EXPECT_NEAR(shown, now * speed, 10.0 * speed) << now;
        last = shown;
    }
}

TEST(SmoothPosition, NeverMovesBackWithoutAJump)
{
    SmoothPosition position;
    position.jumpTo(10'000.0, 0.0);
    EXPECT_DOUBLE_EQ(position.measured(8'000.0, 1.0, speed, jump), 10'000.0);
}

TEST(SmoothPosition, JumpsToAMeasurementThatIsFarAway)
{
    SmoothPosition position;
    position.jumpTo(400'000.0, 0.0);
    EXPECT_DOUBLE_EQ(position.measured(100'000.0, 16.0, speed, jump), 100'000.0);
    EXPECT_DOUBLE_EQ(position.position(), 100'000.0);
}

} // namespace
