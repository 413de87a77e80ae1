// SPDX-License-Identifier: MIT
#include "base/ChangePublisher.h"

#include <gmock/gmock.h>

#include <string>

namespace zeph {

TEST(ChangePublisher, callsEverySubscriberInTheOrderOfSubscription) {
    ChangePublisher publisher;
    std::string calls;
    const auto first = publisher.subscribe([&calls] { calls += 'a'; });
    const auto second = publisher.subscribe([&calls] { calls += 'b'; });
    publisher.send();
    publisher.send();
    EXPECT_EQ(calls, "abab");
}

TEST(ChangePublisher, callsNobodyAfterTheSubscriptionEnded) {
    ChangePublisher publisher;
    int calls = 0;
    auto subscription = publisher.subscribe([&calls] { ++calls; });
    subscription = Subscription();
    publisher.send();
    EXPECT_EQ(calls, 0);
}

TEST(ChangePublisher, allowsASubscriptionToOutliveIt) {
    Subscription subscription;
    int calls = 0;
    {
        ChangePublisher publisher;
        subscription = publisher.subscribe([&calls] { ++calls; });
        publisher.send();
    }
    subscription = Subscription();
    EXPECT_EQ(calls, 1);
}

TEST(ChangePublisher, leavesOutAHandlerThatAnEarlierOneEnded) {
    ChangePublisher publisher;
    Subscription second;
    int calls = 0;
    const auto first = publisher.subscribe([&second] { second = Subscription(); });
    second = publisher.subscribe([&calls] { ++calls; });
    publisher.send();
    EXPECT_EQ(calls, 0);
}

TEST(ChangePublisher, allowsAHandlerToEndItself) {
    ChangePublisher publisher;
    Subscription own;
    int calls = 0;
    own = publisher.subscribe([&] {
        ++calls;
        own = Subscription();
    });
    publisher.send();
    publisher.send();
    EXPECT_EQ(calls, 1);
}

TEST(ChangePublisher, callsAHandlerAddedDuringASendFromTheNextOneOn) {
    ChangePublisher publisher;
    Subscription added;
    int calls = 0;
    bool isFirst = true;
    const auto first = publisher.subscribe([&] {
        if (isFirst) {
            added = publisher.subscribe([&calls] { ++calls; });
        }
        isFirst = false;
    });
    publisher.send();
    EXPECT_EQ(calls, 0);
    publisher.send();
    EXPECT_EQ(calls, 1);
}

TEST(ChangePublisher, mayBeDestroyedByItsHandler) {
    auto publisher = std::make_unique<ChangePublisher>();
    int calls = 0;
    const auto first = publisher->subscribe([&] {
        ++calls;
        publisher.reset();
    });
    publisher->send();
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(publisher, nullptr);
}

} // namespace zeph
