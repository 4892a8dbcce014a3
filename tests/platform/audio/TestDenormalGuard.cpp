#include "platform/audio/DenormalGuard.h"

#include <gtest/gtest.h>

#include <limits>

using lyrabox::DenormalGuard;

namespace {

// Volatile, so that the processor computes it and not the compiler.
double halved(double value)
{
    volatile double operand = value;
    volatile double half = 0.5;
    return operand * half;
}

constexpr double smallest = std::numeric_limits<double>::min();

TEST(DenormalGuard, MakesSubnormalResultsAndOperandsZero)
{
    if (!DenormalGuard::isEffective)
        GTEST_SKIP() << "this processor has no such switch";
    volatile double result = 1.0;
    volatile double operand = std::numeric_limits<double>::denorm_min();
    volatile double fromOperand = 1.0;
    {
        const DenormalGuard guard;
        result = halved(smallest);
        fromOperand = operand * 1e300;
    }
    EXPECT_EQ(result, 0.0);
    EXPECT_EQ(fromOperand, 0.0);
}

TEST(DenormalGuard, LeavesOrdinaryNumbersAlone)
{
    const DenormalGuard guard;
    EXPECT_EQ(halved(3.0), 1.5);
    EXPECT_EQ(halved(4.0 * smallest), 2.0 * smallest);
}

TEST(DenormalGuard, RestoresTheFormerSetting)
{
    {
        const DenormalGuard outer;
        {
            const DenormalGuard inner;
        }
        if (DenormalGuard::isEffective) {
            EXPECT_EQ(halved(smallest), 0.0) << "the inner guard switched the outer one off";
        }
    }
    EXPECT_NE(halved(smallest), 0.0);
}

} // namespace
