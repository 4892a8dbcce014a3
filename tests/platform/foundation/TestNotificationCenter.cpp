#include "platform/foundation/NotificationCenter.h"

#include <gmock/gmock.h>

#include <memory>

using namespace lyrabox;
using namespace Qt::Literals::StringLiterals;

TEST(NotificationCenter, ObserversOfTheNameAreCalledInTheOrderOfRegistration)
{
    NotificationCenter center;
    QObject context;
    QStringList calls;
    center.addObserver(&context, u"a"_s, [&] { calls.append(u"first"_s); });
    center.addObserver(&context, u"b"_s, [&] { calls.append(u"other"_s); });
    center.addObserver(&context, u"a"_s, [&] { calls.append(u"second"_s); });
    center.post(u"a"_s);
    EXPECT_EQ(calls, (QStringList{u"first"_s, u"second"_s}));
    center.post(u"nobody"_s);
    EXPECT_EQ(calls.size(), 2);
}

TEST(NotificationCenter, ADestroyedObserverIsForgotten)
{
    NotificationCenter center;
    int calls = 0;
    {
        const QObject context;
        center.addObserver(&context, u"a"_s, [&] { ++calls; });
    }
    center.post(u"a"_s);
    EXPECT_EQ(calls, 0);
}

TEST(NotificationCenter, AnObserverMayRemoveItselfAndOthersWhileCalled)
{
    NotificationCenter center;
    QObject first;
    auto second = std::make_unique<QObject>();
    int calls = 0;
    center.addObserver(&first, u"a"_s, [&] {
        ++calls;
        center.removeObserver(&first);
        second.reset();
    });
    center.addObserver(second.get(), u"a"_s, [&] { ++calls; });
    center.post(u"a"_s);
    center.post(u"a"_s);
    EXPECT_EQ(calls, 1);
}

TEST(NotificationCenter, AnObserverAddedWhilePostingWaitsForTheNextPost)
{
    NotificationCenter center;
    QObject context;
    int late = 0;
    bool isAdded = false;
    center.addObserver(&context, u"a"_s, [&] {
        if (!std::exchange(isAdded, true))
            center.addObserver(&context, u"a"_s, [&] { ++late; });
    });
    center.post(u"a"_s);
    EXPECT_EQ(late, 0);
    center.post(u"a"_s);
    EXPECT_EQ(late, 1);
}

TEST(NotificationCenter, CoalescedPostsFromInsideMakeOneMoreRound)
{
    NotificationCenter center;
    QObject context;
    int rounds = 0;
    int depth = 0;
    center.addObserver(&context, u"a"_s, [&] {
        EXPECT_EQ(depth, 0) << "rounds must not nest";
        ++depth;
        if (++rounds == 1) {
            center.postCoalescingOnName(u"a"_s);
            center.postCoalescingOnName(u"a"_s);
        }
        --depth;
    });
    center.postCoalescingOnName(u"a"_s);
    EXPECT_EQ(rounds, 2);
    center.postCoalescingOnName(u"a"_s);
    EXPECT_EQ(rounds, 3);
}
