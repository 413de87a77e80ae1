// SPDX-License-Identifier: MIT
#include "FakeMutter.h"

#include "adapters/session/gnome/MutterIdle.h"

#include <optional>

namespace zeph {

class MutterIdleTest : public testing::Test {
protected:
    std::unique_ptr<IdleWatch> watch(std::chrono::milliseconds limit) {
        if (!idle) {
            idle.emplace(ours.bus());
        }
        return idle->watch(limit);
    }

    quint32 idleWatch() {
        EXPECT_TRUE(eventually([&] { return mutter.idleWatches.size() == 1; }));
        return mutter.idleWatches.begin()->first;
    }

    /// The time of the watch is reached, and the next input is waited for.
    void fallQuiet(const IdleWatch &watch) {
        const quint32 number = idleWatch();
        mutter.fire(number);
        ASSERT_TRUE(eventually([&] { return watch.isQuiet(); }));
        ASSERT_TRUE(eventually([&] { return mutter.activeWatches.size() == 1; }));
    }

    PrivateBus bus;
    BusConnection ours{bus.address()};
    FakeMutter mutter{bus.address()};
    std::optional<MutterIdle> idle;
};

TEST_F(MutterIdleTest, hasTheShellWatchForTheTime) {
    mutter.appear();
    const auto quiet = watch(std::chrono::milliseconds(90001));
    idleWatch();
    EXPECT_EQ(mutter.idleWatches.begin()->second, 90001U);
    EXPECT_FALSE(quiet->isQuiet());
}

TEST_F(MutterIdleTest, isQuietFromThatTimeUntilTheNextInputAndAgain) {
    mutter.appear();
    const auto quiet = watch(std::chrono::seconds(90));
    for (int round = 0; round < 2; ++round) {
        fallQuiet(*quiet);
        mutter.fire(mutter.activeWatches.constFirst());
        EXPECT_TRUE(eventually([&] { return !quiet->isQuiet(); })) << round;
    }
}

TEST_F(MutterIdleTest, inputThatIsToldBeforeItsWatchIsNamedCounts) {
    mutter.appear();
    mutter.firesEarly = true;
    const auto quiet = watch(std::chrono::seconds(90));
    mutter.fire(idleWatch());
    ASSERT_TRUE(eventually([&] { return mutter.activeWatchesAdded == 1; }));
    EXPECT_TRUE(eventually([&] { return !quiet->isQuiet(); }));
    eventually([&] { return quiet->isQuiet(); }, 100);
    EXPECT_FALSE(quiet->isQuiet());
}

TEST_F(MutterIdleTest, whatOtherWatchesTellIsNotOurs) {
    mutter.appear();
    const auto quiet = watch(std::chrono::seconds(90));
    const quint32 number = idleWatch();
    mutter.fire(number + 100);
    mutter.fire(number);
    ASSERT_TRUE(eventually([&] { return mutter.activeWatches.size() == 1; }));
    mutter.fire(number + 100);
    eventually([&] { return !quiet->isQuiet(); }, 100);
    EXPECT_TRUE(quiet->isQuiet());
}

TEST_F(MutterIdleTest, nobodyIsQuietWhoseReturnWouldNotBeTold) {
    mutter.appear();
    const auto quiet = watch(std::chrono::seconds(90));
    const quint32 number = idleWatch();
    mutter.refuses = true;
    mutter.fire(number);
    ASSERT_TRUE(eventually([&] { return mutter.refusals == 1; }));
    EXPECT_TRUE(eventually([&] { return !quiet->isQuiet(); }));
    eventually([&] { return quiet->isQuiet(); }, 100);
    EXPECT_FALSE(quiet->isQuiet());
}

TEST_F(MutterIdleTest, isSetAnewInAShellThatIsStartedAnew) {
    mutter.appear();
    const auto quiet = watch(std::chrono::seconds(90));
    fallQuiet(*quiet);
    mutter.vanish();
    EXPECT_TRUE(eventually([&] { return !quiet->isQuiet(); }));
    mutter.appear();
    fallQuiet(*quiet);
}

TEST_F(MutterIdleTest, theEndOfAWatchEndsItInTheShell) {
    mutter.appear();
    auto quiet = watch(std::chrono::seconds(90));
    fallQuiet(*quiet);
    quiet.reset();
    EXPECT_TRUE(eventually([&] { return mutter.idleWatches.empty(); }));
    EXPECT_TRUE(eventually([&] { return mutter.activeWatches.isEmpty(); }));
}

TEST_F(MutterIdleTest, aWatchThatEndsBeforeItIsNamedIsEndedThen) {
    mutter.appear();
    auto quiet = watch(std::chrono::seconds(90));
    const auto other = idle->watch(std::chrono::seconds(30));
    ASSERT_TRUE(eventually([&] { return mutter.idleWatches.size() == 2; }));
    auto late = idle->watch(std::chrono::seconds(10));
    late.reset(); // its question is on its way
    ASSERT_TRUE(eventually([&] { return mutter.idleWatchesAdded == 3; }));
    EXPECT_TRUE(eventually([&] { return mutter.idleWatches.size() == 2; }));
}

TEST_F(MutterIdleTest, withoutTheShellNobodyIsQuiet) {
    const auto quiet = watch(std::chrono::seconds(90));
    EXPECT_FALSE(quiet->isQuiet());
}

} // namespace zeph
