// SPDX-License-Identifier: MIT
// The adapters against the running kernel.
#include "platform/linux/proc/NetlinkInterfaces.h"
#include "platform/linux/proc/ProcHostStatistics.h"
#include "platform/linux/proc/StatvfsVolume.h"
#include "platform/linux/proc/SystemClock.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QStorageInfo>

#include <gmock/gmock.h>
#include <unistd.h>

#include <algorithm>
#include <ctime>
#include <limits>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

std::size_t openFiles() {
    return static_cast<std::size_t>(
        QDir(u"/proc/self/fd"_s)
            .entryList(QDir::NoDotAndDotDot | QDir::AllEntries | QDir::System)
            .size());
}

/// The kernel's other table of the same counters.
std::vector<QString> linkNamesOfProc() {
    QFile file(u"/proc/net/dev"_s);
    std::vector<QString> names;
    if (file.open(QIODevice::ReadOnly)) {
        const QList<QByteArray> lines = file.readAll().split('\n');
        for (const QByteArray &line : lines) {
            if (line.contains(':')) {
                names.push_back(QString::fromUtf8(line.left(line.indexOf(':')).trimmed()));
            }
        }
    }
    return names;
}

TEST(NetlinkInterfacesOfTheKernel, listsTheLinksThatProcLists) {
    const NetlinkInterfaces interfaces;
    const auto links = interfaces.links();
    ASSERT_TRUE(links);
    std::vector<QString> names;
    for (const LinkCounters &link : *links) {
        names.push_back(link.name);
    }
    EXPECT_THAT(names, testing::UnorderedElementsAreArray(linkNamesOfProc()));
    EXPECT_FALSE(names.empty());
}

TEST(NetlinkInterfacesOfTheKernel, keepsOneSocketOpen) {
    const NetlinkInterfaces interfaces;
    ASSERT_TRUE(interfaces.links());
    const std::size_t before = openFiles();
    for (int index = 0; index < 1000; ++index) {
        ASSERT_TRUE(interfaces.links());
    }
    EXPECT_EQ(openFiles(), before);
}

TEST(NetlinkInterfacesOfTheKernel, countsNeverFallBetweenTwoReadings) {
    const NetlinkInterfaces interfaces;
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
    EXPECT_EQ(capacity->totalBytes, QStorageInfo::root().bytesTotal());
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
