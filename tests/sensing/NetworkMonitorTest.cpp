// SPDX-License-Identifier: MIT
#include "sensing/NetworkMonitor.h"

#include "support/FakeMachine.h"
#include "support/ManualClock.h"

#include <gtest/gtest.h>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

class NetworkSample : public testing::Test {
protected:
    void sampleAfter(double seconds, const std::vector<LinkCounters> &links) {
        interfaces.counters = links;
        clock.advance(seconds);
        monitor.sample();
    }
    double up() const { return monitor.throughput().uploadBytesPerSec; }
    double down() const { return monitor.throughput().downloadBytesPerSec; }

    ManualClock clock;
    FakeNetworkInterfaces interfaces;
    FakeWiFi wifi;
    NetworkMonitor monitor{clock, interfaces, wifi};
};

TEST_F(NetworkSample, leavesBothRatesAtZeroTheFirstTimeAndIsPrimed) {
    EXPECT_FALSE(monitor.primed());
    sampleAfter(3, {{u"en0"_s, 5000, 9000}});
    EXPECT_DOUBLE_EQ(up(), 0);
    EXPECT_DOUBLE_EQ(down(), 0);
    EXPECT_TRUE(monitor.primed());
}

TEST_F(NetworkSample, dividesByTheRealGap) {
    sampleAfter(3, {{u"en0"_s, 1000, 2000}});
    sampleAfter(120, {{u"en0"_s, 1000 + 1200, 2000 + 2400}});
    EXPECT_DOUBLE_EQ(up(), 10);
    EXPECT_DOUBLE_EQ(down(), 20);
}

TEST_F(NetworkSample, keepsTheRatesWithTheClockUnchangedButStoresTheSums) {
    sampleAfter(3, {{u"en0"_s, 0, 0}});
    sampleAfter(1, {{u"en0"_s, 100, 200}});
    sampleAfter(0, {{u"en0"_s, 1100, 1200}});
    EXPECT_DOUBLE_EQ(up(), 100);
    EXPECT_DOUBLE_EQ(down(), 200);
    sampleAfter(1, {{u"en0"_s, 1101, 1202}});
    EXPECT_DOUBLE_EQ(up(), 1) << "counted from the stored sum";
    EXPECT_DOUBLE_EQ(down(), 2);
}

TEST_F(NetworkSample, keepsTheRatesWithTheClockMovedBackButStoresTheSumsAndTheTime) {
    sampleAfter(3, {{u"en0"_s, 0, 0}});
    sampleAfter(1, {{u"en0"_s, 100, 200}});
    sampleAfter(-3600, {{u"en0"_s, 1100, 1200}});
    EXPECT_DOUBLE_EQ(up(), 100);
    sampleAfter(2, {{u"en0"_s, 1102, 1204}});
    EXPECT_DOUBLE_EQ(up(), 1);
    EXPECT_DOUBLE_EQ(down(), 2);
}

TEST_F(NetworkSample, countsWiredAndWirelessLinksOnly) {
    const auto links = [](quint64 each) {
        std::vector<LinkCounters> all;
        for (const QString &name :
             {u"lo"_s, u"enp3s0"_s, u"eth0"_s, u"wlan0"_s, u"wlp2s0"_s, u"docker0"_s, u"br-en"_s,
              u"veth12"_s, u"tun0"_s, u"wg0"_s, u"virbr0"_s, u"Eth1"_s, u"enp3s0.100"_s,
              u"eth0.5"_s, u"wlan0.7"_s}) {
            all.push_back({name, each, 2 * each});
        }
        return all;
    };
    sampleAfter(1, links(0));
    sampleAfter(1, links(10));
    EXPECT_DOUBLE_EQ(up(), 40);
    EXPECT_DOUBLE_EQ(down(), 80);
}

TEST_F(NetworkSample, givesZeroRatesWithoutACountedLink) {
    sampleAfter(1, {{u"lo"_s, 10, 10}});
    sampleAfter(1, {{u"lo"_s, 9999, 9999}});
    EXPECT_DOUBLE_EQ(up(), 0);
    EXPECT_DOUBLE_EQ(down(), 0);
}

TEST_F(NetworkSample, publishesOneHugeRateWhenALinkGoesAway) {
    sampleAfter(1, {{u"en0"_s, 100, 100}, {u"en1"_s, 50, 50}});
    sampleAfter(1, {{u"en0"_s, 100, 100}});
    EXPECT_GT(up(), 1.8e19);
    EXPECT_GT(down(), 1.8e19);
    sampleAfter(1, {{u"en0"_s, 101, 102}});
    EXPECT_DOUBLE_EQ(up(), 1);
    EXPECT_DOUBLE_EQ(down(), 2);
}

TEST_F(NetworkSample, takesARefusedListForNoBytes) {
    sampleAfter(1, {{u"en0"_s, 100, 100}});
    interfaces.counters.reset();
    clock.advance(1);
    monitor.sample();
    EXPECT_GT(up(), 1.8e19);
    clock.advance(1);
    monitor.sample();
    EXPECT_DOUBLE_EQ(up(), 0);
}

TEST_F(NetworkSample, takesAFirstRefusedListForNoBytesToo) {
    interfaces.counters.reset();
    clock.advance(1);
    monitor.sample();
    EXPECT_TRUE(monitor.primed());
    sampleAfter(2, {{u"en0"_s, 100, 300}});
    EXPECT_DOUBLE_EQ(up(), 50);
    EXPECT_DOUBLE_EQ(down(), 150);
}

TEST_F(NetworkSample, followsTheWirelessNameWhileThroughputGoesOn) {
    wifi.network = u"home"_s;
    sampleAfter(1, {{u"wlan0"_s, 0, 0}});
    EXPECT_EQ(monitor.throughput().ssid, u"home"_s);
    wifi.network.reset();
    sampleAfter(1, {{u"wlan0"_s, 7, 8}});
    EXPECT_FALSE(monitor.throughput().ssid);
    EXPECT_DOUBLE_EQ(up(), 7);
}

} // namespace

} // namespace zeph
