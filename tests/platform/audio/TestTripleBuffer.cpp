#include "platform/audio/TripleBuffer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <thread>

using lyrabox::TripleBuffer;

namespace {

TEST(TripleBuffer, HasNothingBeforeTheFirstPublish)
{
    TripleBuffer<int> published;
    EXPECT_EQ(published.takeNewest(), nullptr);
}

TEST(TripleBuffer, GivesAValueOnlyOnce)
{
    TripleBuffer<int> published;
    published.publish(7);
    const int *taken = published.takeNewest();
    ASSERT_NE(taken, nullptr);
    EXPECT_EQ(*taken, 7);
    EXPECT_EQ(published.takeNewest(), nullptr);
    EXPECT_EQ(*taken, 7) << "a value stays until the next one is taken";
}

TEST(TripleBuffer, GivesOnlyTheNewestOfSeveralValues)
{
    TripleBuffer<int> published;
    for (int i = 1; i <= 10; ++i)
        published.publish(i);
    const int *taken = published.takeNewest();
    ASSERT_NE(taken, nullptr);
    EXPECT_EQ(*taken, 10);
    EXPECT_EQ(published.takeNewest(), nullptr);
}

TEST(TripleBuffer, DoesNotOverwriteTheValueBeingRead)
{
    TripleBuffer<int> published;
    published.publish(1);
    const int *taken = published.takeNewest();
    for (int i = 2; i <= 10; ++i) {
        published.publish(i);
        EXPECT_EQ(*taken, 1);
    }
}

TEST(TripleBuffer, GivesAnotherThreadWholeValuesInOrderUpToTheLast)
{
    constexpr int last = 20000;
    using Value = std::array<int, 64>;
    TripleBuffer<Value> published;
    std::thread writer([&] {
        for (int i = 1; i <= last; ++i) {
            Value value;
            value.fill(i);
            published.publish(value);
        }
    });
    int newest = 0;
    bool areWhole = true;
    bool isOrdered = true;
    while (newest != last) {
        const Value *value = published.takeNewest();
        if (value == nullptr) {
            std::this_thread::yield();
            continue;
        }
        areWhole = areWhole && std::all_of(value->begin(), value->end(),
                                           [&](int part) { return part == value->front(); });
        isOrdered = isOrdered && value->front() > newest;
        newest = value->front();
    }
    writer.join();
    EXPECT_TRUE(areWhole);
    EXPECT_TRUE(isOrdered);
}

} // namespace
