#include "platform/audio/PublishedObject.h"

#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <thread>

using lyrabox::PublishedObject;

namespace {

TEST(PublishedObject, IsNullBeforeTheFirstPublish)
{
    PublishedObject<int> published;
    EXPECT_EQ(published.take(), nullptr);
    EXPECT_EQ(published.newest(), nullptr);
}

TEST(PublishedObject, GivesTheNewestAgainAndAgain)
{
    PublishedObject<int> published;
    published.publish(std::make_shared<const int>(1));
    published.publish(std::make_shared<const int>(2));
    for (int i = 0; i < 3; ++i) {
        ASSERT_NE(published.take(), nullptr);
        EXPECT_EQ(*published.take(), 2);
    }
    published.publish(nullptr);
    EXPECT_EQ(published.take(), nullptr);
}

TEST(PublishedObject, KeepsAnObjectAliveWhileItIsUsedAndNoLonger)
{
    PublishedObject<int> published;
    std::weak_ptr<const int> first;
    {
        const auto object = std::make_shared<const int>(1);
        first = object;
        published.publish(object);
    }
    const int *used = published.take();
    published.publish(std::make_shared<const int>(2));
    published.publish(std::make_shared<const int>(3));
    EXPECT_EQ(*used, 1);
    EXPECT_FALSE(first.expired());
    EXPECT_EQ(published.alive(), 2U) << "the one in between was never used";
    published.take();
    published.publish(std::make_shared<const int>(4));
    EXPECT_TRUE(first.expired());
}

TEST(PublishedObject, NeverShowsAFreedOrMixedObjectToTheOtherThread)
{
    using Values = std::array<int, 64>;
    PublishedObject<Values> published;
    std::atomic<bool> done = false;
    std::atomic<int> taken = 0;
    int mixed = 0;
    int backwards = 0;
    std::thread reader([&] {
        int last = 0;
        while (!done) {
            const Values *values = published.take();
            if (values == nullptr)
                continue;
            const int first = values->front();
            for (const int value : *values)
                mixed += value == first ? 0 : 1;
            backwards += first < last ? 1 : 0;
            last = first;
            ++taken;
        }
    });
    for (int i = 1; i <= 20000 || taken < 100; ++i) {
        auto values = std::make_shared<Values>();
        values->fill(i);
        published.publish(std::move(values));
        EXPECT_LE(published.alive(), 2U);
    }
    done = true;
    reader.join();
    EXPECT_EQ(mixed, 0);
    EXPECT_EQ(backwards, 0);
}

} // namespace
