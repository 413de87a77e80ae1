// SPDX-License-Identifier: MIT
#include "adapters/power/LinuxPowerSources.h"

#include "adapters/power/SupplyTree.h"
#include "adapters/power/UPowerFixture.h"
#include "adapters/power/UPowerSources.h"
#include "base/Background.h"
#include "sensing/BatteryMonitor.h"
#include "support/ManualRunLoop.h"
#include "support/ManualTaskExecutor.h"
#include "support/QtPrinters.h"

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

class PowerChoice : public UPowerFixture {
protected:
    PowerChoice() {
        tree.addMains("1");
        tree.addBattery(u"BAT0"_s, "Charging", "40000000", "20000000");
        subscription = sources.subscribe([this] {
            ++news;
            monitor.sample();
        });
    }

    const BatteryInfo &sample() {
        monitor.sample();
        return monitor.info();
    }
    void readTree() {
        executor.runAll();
        loop.drain();
    }
    bool upowerComes() {
        upower.appear();
        return eventually([&] { return upowerSources.battery() && upowerSources.isSettled(); });
    }
    bool upowerGoes() {
        upower.vanish();
        return eventually([&] { return !upowerSources.battery(); });
    }

    SupplyTree tree;
    ManualClock clock;
    ManualRunLoop loop{clock};
    ManualTaskExecutor executor;
    const Background background = Background::over(executor, loop);
    UPowerSources upowerSources{client.bus()};
    LinuxPowerSources sources{upowerSources, tree.root(), background};
    BatteryMonitor monitor{sources};
    int news = 0;
    Subscription subscription;
};

const BatteryInfo fromTree{80, true, true, 30, 83, 212, true};

TEST_F(PowerChoice, takesTheKernelsWordWithoutTheDaemon) {
    EXPECT_FALSE(sample().isPresent) << "nothing is known yet, and nothing waits for it";
    readTree();
    EXPECT_EQ(news, 1) << "the first word is told at once";
    EXPECT_EQ(monitor.info(), fromTree);
}

TEST_F(PowerChoice, takesTheDaemonsWordWhileItIsThere) {
    readTree();
    ASSERT_EQ(sample().percentage, 80);
    ASSERT_TRUE(upowerComes());
    EXPECT_EQ(news, 2);
    EXPECT_EQ(monitor.info().percentage, 42);
    EXPECT_EQ(monitor.info().minutesRemaining, 121);
    EXPECT_FALSE(monitor.info().isPluggedIn);
}

TEST_F(PowerChoice, leavesTheKernelAloneWhileTheDaemonIsThere) {
    ASSERT_TRUE(upowerComes());
    readTree();
    sample();
    sample();
    EXPECT_EQ(executor.waiting(), 0U);
    EXPECT_EQ(monitor.info().percentage, 42);
}

TEST_F(PowerChoice, fallsBackOnTheKernelWhenTheDaemonGoes) {
    ASSERT_TRUE(upowerComes());
    readTree();
    ASSERT_EQ(sample().percentage, 42);
    ASSERT_TRUE(upowerGoes());
    EXPECT_EQ(sample().percentage, 42) << "its last word stands until the kernel's is there";
    readTree();
    EXPECT_EQ(monitor.info().percentage, 80);
    ASSERT_TRUE(upowerComes());
    EXPECT_EQ(monitor.info().percentage, 42);
}

TEST_F(PowerChoice, servesTheKernelsWordWhileTheDaemonDoesNotAnswer) {
    upower.isMute = true;
    upower.appear();
    ASSERT_TRUE(eventually([&] { return upower.questions == 3; }));
    readTree();
    EXPECT_EQ(monitor.info().percentage, 80);
}

TEST_F(PowerChoice, isNoticedOnlyWhenThereIsNews) {
    readTree();
    const int before = news;
    for (int tick = 0; tick < 5; ++tick) {
        sample();
        readTree();
    }
    EXPECT_EQ(news, before) << "the tree did not change";
    tree.addMains("0");
    tree.addBattery(u"BAT0"_s, "Discharging", "40000000", "20000000");
    sample();
    readTree();
    EXPECT_EQ(news, before + 1);
    EXPECT_FALSE(monitor.info().isPluggedIn);
    EXPECT_EQ(executor.waiting(), 0U) << "the news itself asks for no further reading";
}

TEST_F(PowerChoice, doesNotTellTheCourseOfTheDaemonsCharge) {
    ASSERT_TRUE(upowerComes());
    readTree();
    sample();
    const int before = news;
    setDevice(u"DisplayDevice"_s, {{u"Percentage"_s, 17.0}});
    EXPECT_TRUE(eventually([&] { return upowerSources.battery()->current == 17; }));
    EXPECT_EQ(news, before);
    EXPECT_EQ(sample().percentage, 17) << "the next sample has it";
}

TEST_F(PowerChoice, tellsEveryListener) {
    int others = 0;
    auto other = sources.subscribe([&] { ++others; });
    readTree();
    EXPECT_EQ(news, 1);
    EXPECT_EQ(others, 1);
    other = {};
    ASSERT_TRUE(upowerComes());
    EXPECT_EQ(news, 2);
    EXPECT_EQ(others, 1);
}

TEST_F(PowerChoice, showsNoBatteryBeforeItToldItsCharge) {
    for (const double lie : {qQNaN(), -5.0, 255.0}) {
        setDevice(u"DisplayDevice"_s, batteryProperties(lie));
        ASSERT_TRUE(upowerComes());
        LinuxPowerSources fresh(upowerSources, tree.root(), background);
        BatteryMonitor watching(fresh);
        watching.sample();
        EXPECT_FALSE(watching.info().isPresent) << lie;
        setDevice(u"DisplayDevice"_s, {{u"Percentage"_s, 37.0}});
        EXPECT_TRUE(eventually([&] { return upowerSources.battery()->current == 37; }));
        watching.sample();
        EXPECT_TRUE(watching.info().isPresent);
        EXPECT_EQ(watching.info().percentage, 37);
        setDevice(u"DisplayDevice"_s, {{u"Percentage"_s, lie}});
        EXPECT_TRUE(eventually([&] { return !upowerSources.battery()->current; }));
        watching.sample();
        EXPECT_TRUE(watching.info().isPresent) << "it was read once";
        EXPECT_EQ(watching.info().percentage, 37);
        ASSERT_TRUE(upowerGoes());
    }
}

TEST_F(PowerChoice, startsOneReadingOfTheKernelAtATime) {
    sample();
    sample();
    sample();
    EXPECT_EQ(executor.waiting(), 1U) << "a driver that hangs holds one thread";
}

TEST_F(PowerChoice, noticesABatteryThatIsTakenOutAndPutBack) {
    readTree();
    ASSERT_EQ(sample().percentage, 80);
    readTree();
    tree.remove(u"BAT0"_s);
    sample();
    readTree();
    EXPECT_FALSE(monitor.info().isPresent);
    EXPECT_EQ(monitor.info().percentage, 80) << "all else keeps its value";
    tree.addBattery(u"BAT0"_s, "Charging", "25000000", "25000000");
    sample();
    readTree();
    EXPECT_TRUE(monitor.info().isPresent);
    EXPECT_EQ(monitor.info().percentage, 50);
}

TEST_F(PowerChoice, theDaemonsLastWordEndsWhereTheKernelTellsNothing) {
    ASSERT_TRUE(upowerComes());
    readTree();
    ASSERT_TRUE(sample().isPresent);
    EXPECT_TRUE(QDir(tree.root()).removeRecursively());
    ASSERT_TRUE(upowerGoes());
    readTree();
    EXPECT_FALSE(monitor.info().isPresent);
    EXPECT_FALSE(sources.hasGauge());
}

TEST_F(PowerChoice, aReadingMayArriveAfterTheEnd) {
    auto shortLived = std::make_unique<LinuxPowerSources>(upowerSources, tree.root(), background);
    int calls = 0;
    const auto listening = shortLived->subscribe([&] { ++calls; });
    shortLived.reset();
    readTree();
    EXPECT_EQ(calls, 0);
}

} // namespace

} // namespace zeph
