// SPDX-License-Identifier: MIT
// The adapters against the running kernel.
#include "adapters/kernel/ProcHostStatistics.h"
#include "adapters/kernel/ProcNetworkInterfaces.h"
#include "adapters/kernel/StatvfsVolume.h"
#include "adapters/kernel/SystemClock.h"

#include <QDir>
#include <QElapsedTimer>

#include <gmock/gmock.h>
#include <unistd.h>

#include <algorithm>
#include <ctime>
#include <filesystem>
#include <limits>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

TEST(ProcNetworkInterfacesOfTheKernel, listsTheLinksThatTheSystemKeeps) {
    const auto links = ProcNetworkInterfaces().links();
    ASSERT_TRUE(links);
    std::vector<QString> names;
    for (const LinkCounters &link : *links) {
        names.push_back(link.name);
    }
    const QDir folder(u"/sys/class/net"_s);
    const QStringList expected = folder.entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    EXPECT_THAT(names, testing::UnorderedElementsAreArray(expected.begin(), expected.end()));
    EXPECT_FALSE(names.empty());
}

TEST(ProcNetworkInterfacesOfTheKernel, countsNeverFallBetweenTwoReadings) {
    const ProcNetworkInterfaces interfaces;
    const auto before = interfaces.links();
    const auto after = interfaces.links();
    ASSERT_TRUE(before && after);
    ASSERT_EQ(before->size(), after->size());
    for (std::size_t index = 0; index < before->size(); ++index) {
        EXPECT_LE(before->at(index).bytesReceived, after->at(index).bytesReceived);
        EXPECT_LE(before->at(index).bytesSent, after->at(index).bytesSent);
    }
}

TEST(ProcHostStatisticsOfTheKernel, answersEverything) {
    const ProcHostStatistics host;
    ASSERT_TRUE(host.cpuTicks());
    ASSERT_TRUE(host.memoryPages());
    ASSERT_TRUE(host.bootTime());
    EXPECT_EQ(host.pageSize(), static_cast<quint64>(::sysconf(_SC_PAGESIZE)));
    EXPECT_GT(host.memoryPages()->active, 0U);
    EXPECT_LE(host.memoryPages()->active * host.pageSize(), host.physicalMemory());
}

TEST(ProcHostStatisticsOfTheKernel, agreesWithTheMonotonicClockOnTheBootTime) {
    timespec sinceBoot{};
    ASSERT_EQ(::clock_gettime(CLOCK_BOOTTIME, &sinceBoot), 0);
    const double boot =
        SystemClock().now().secondsSince1970 - static_cast<double>(sinceBoot.tv_sec);
    EXPECT_NEAR(ProcHostStatistics().bootTime()->secondsSince1970, boot, 3.0);
}

TEST(StatvfsVolumeOfTheKernel, answersTheFiguresOfTheRoot) {
    const auto capacity = StatvfsVolume().capacity();
    ASSERT_TRUE(capacity);
    EXPECT_EQ(capacity->totalBytes, static_cast<qint64>(std::filesystem::space("/").capacity));
    ASSERT_TRUE(capacity->availableBytes);
    EXPECT_GE(*capacity->availableBytes, 0);
    EXPECT_LE(*capacity->availableBytes, *capacity->totalBytes);
}

TEST(StatvfsVolumeOfTheKernel, refusesAPathThatIsNotThere) {
    EXPECT_FALSE(StatvfsVolume(u"/no/such/path"_s).capacity());
}

TEST(SystemClockOfTheKernel, tellsTheTimeToBetterThanAMillisecond) {
    const SystemClock clock;
    timespec now{};
    ASSERT_EQ(::clock_gettime(CLOCK_REALTIME, &now), 0);
    EXPECT_NEAR(clock.now().secondsSince1970, static_cast<double>(now.tv_sec), 2.0);
    // The least step of several, since the process may lose the processor between two readings.
    double leastStep = std::numeric_limits<double>::max();
    for (int attempt = 0; attempt < 100 && leastStep >= 0.001; ++attempt) {
        QElapsedTimer limit;
        limit.start();
        const Date first = clock.now();
        Date next = first;
        while (next == first && limit.elapsed() < 1000) {
            next = clock.now();
        }
        leastStep = next > first ? std::min(leastStep, next - first) : leastStep;
    }
    EXPECT_LT(leastStep, 0.001);
}

} // namespace

} // namespace zeph
