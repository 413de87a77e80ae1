// SPDX-License-Identifier: MIT
#include "base/NotificationCenter.h"

#include <gmock/gmock.h>

#include <set>

using namespace Qt::StringLiterals;

namespace zeph {

TEST(NotificationCenter, tellsTheObserversOfTheNameOnly) {
    NotificationCenter center;
    int first = 0;
    int second = 0;
    const auto one = center.observe(u"one"_s, [&first] { ++first; });
    const auto two = center.observe(u"two"_s, [&second] { ++second; });
    center.post(u"one"_s);
    center.post(u"one"_s);
    center.post(u"three"_s);
    EXPECT_EQ(first, 2);
    EXPECT_EQ(second, 0);
}

TEST(NotificationCenter, tellsEveryObserverOfAName) {
    NotificationCenter center;
    int calls = 0;
    const auto one = center.observe(u"name"_s, [&calls] { ++calls; });
    const auto two = center.observe(u"name"_s, [&calls] { calls += 10; });
    center.post(u"name"_s);
    EXPECT_EQ(calls, 11);
}

TEST(NotificationCenter, tellsNobodyAfterTheSubscriptionEnded) {
    NotificationCenter center;
    int calls = 0;
    auto subscription = center.observe(u"name"_s, [&calls] { ++calls; });
    subscription = Subscription();
    center.post(u"name"_s);
    EXPECT_EQ(calls, 0);
}

TEST(NotificationCenter, mayBePostedToByAnObserver) {
    NotificationCenter center;
    int calls = 0;
    const auto inner = center.observe(u"inner"_s, [&calls] { ++calls; });
    const auto outer = center.observe(u"outer"_s, [&center] { center.post(u"inner"_s); });
    center.post(u"outer"_s);
    EXPECT_EQ(calls, 1);
}

TEST(NotificationCenter, hasTheNamesThatTieSettingsToTheHost) {
    EXPECT_EQ(notifications::zephIntegrationsChanged, u"zeph.integrations.changed"_s);
    EXPECT_EQ(notifications::zephCustomAPIsLoaded, u"zeph.integrations.customAPIsLoaded"_s);
    EXPECT_EQ(notifications::zephPreferencesChanged, u"zeph.preferences.changed"_s);
    EXPECT_EQ(notifications::zephDisplaySelectionChanged, u"zeph.display.changed"_s);
    EXPECT_EQ(notifications::zephDesktopSelectionChanged, u"zeph.desktop.changed"_s);
}

} // namespace zeph
