// SPDX-License-Identifier: MIT
#include "SensesFixture.h"

#include "adapters/session/wayland/WaylandIdle.h"

namespace zeph {

using std::chrono::milliseconds;
using Watches = std::vector<FakeSenses::Watch>;

using WaylandIdleTest = SensesTest;

TEST_F(WaylandIdleTest, hasTheCompositorWatchForTheTime) {
    connect();
    WaylandIdle idle(*connection);
    const auto quiet = idle.watch(milliseconds(90001));
    settle();
    EXPECT_EQ(compositor->watches(), (Watches{{90001, false}}));
    EXPECT_FALSE(quiet->isQuiet());
}

TEST_F(WaylandIdleTest, isQuietFromThatTimeUntilTheNextInputAndAgain) {
    for (const bool isOlder : {false, true}) {
        connect({.hasIdleNotifier = !isOlder});
        WaylandIdle idle(*connection);
        const auto quiet = idle.watch(milliseconds(90001));
        settle();
        EXPECT_EQ(compositor->watches(), (Watches{{90001, isOlder}}));
        for (int round = 0; round < 2; ++round) {
            compositor->tellIdle(true);
            settle();
            EXPECT_TRUE(quiet->isQuiet());
            compositor->tellIdle(false);
            settle();
            EXPECT_FALSE(quiet->isQuiet());
        }
    }
}

TEST_F(WaylandIdleTest, theEndOfAWatchEndsItInTheCompositor) {
    for (const bool isOlder : {false, true}) {
        connect({.hasIdleNotifier = !isOlder});
        WaylandIdle idle(*connection);
        auto quiet = idle.watch(milliseconds(90001));
        settle();
        compositor->tellIdle(true); // on its way when the watch ends
        quiet.reset();
        settle();
        EXPECT_TRUE(compositor->watches().empty()) << isOlder;
    }
}

TEST_F(WaylandIdleTest, watchesForNothingWhereTheCompositorDoesNot) {
    connect({.hasIdleNotifier = false, .hasOlderIdleNotifier = false});
    EXPECT_EQ(WaylandIdle(*connection).watch(milliseconds(1)), nullptr);
    connect({.hasSeat = false});
    EXPECT_EQ(WaylandIdle(*connection).watch(milliseconds(1)), nullptr);
}

TEST_F(WaylandIdleTest, survivesTheEndOfTheCompositor) {
    connect();
    WaylandIdle idle(*connection);
    const auto quiet = idle.watch(milliseconds(90001));
    settle();
    compositor.reset();
    bool isLost = false;
    const Subscription loss = connection->subscribeToLoss([&] { isLost = true; });
    EXPECT_TRUE(waitUntil([&] { return isLost; }));
    EXPECT_FALSE(quiet->isQuiet());
}

} // namespace zeph
