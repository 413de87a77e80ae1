// SPDX-License-Identifier: MIT
#include "adapters/kernel/ProcHostStatistics.h"

#include "sensing/SystemLoadMonitor.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

QString tree(const QString &name) {
    return QString::fromUtf8(ZEPH_PROC_TREES) + u'/' + name;
}

/// A folder whose files the test writes between two readings.
class ChangingTree {
public:
    QString path() const { return m_folder.path(); }
    void write(const QString &name, const QByteArray &contents) const {
        QFile file(m_folder.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        ASSERT_EQ(file.write(contents), contents.size());
    }

private:
    QTemporaryDir m_folder;
};

void expectRefusals(const ProcHostStatistics &host) {
    EXPECT_FALSE(host.cpuTicks());
    EXPECT_FALSE(host.memoryPages());
    EXPECT_FALSE(host.bootTime());
    EXPECT_EQ(host.physicalMemory(), 0U);
}

TEST(ProcHostStatistics, addsInterruptsAndStolenTimeToSystemAndDiskWaitsToIdle) {
    const ProcHostStatistics host(tree(u"normal"_s));
    const CpuTicks expected{74608, 24433 + 4054 + 1200 + 313, 1117073 + 6176, 2520};
    EXPECT_EQ(host.cpuTicks(), expected);
}

TEST(ProcHostStatistics, takesAsUsedWhatIsNotAvailable) {
    const ProcHostStatistics host(tree(u"normal"_s));
    const auto pages = host.memoryPages();
    ASSERT_TRUE(pages);
    EXPECT_EQ(pages->active * host.pageSize(), (16384000ULL - 10240000ULL) * 1024);
    EXPECT_EQ(pages->wired, 0U);
    EXPECT_EQ(pages->compressed, 0U);
    EXPECT_EQ(host.physicalMemory(), 16384000ULL * 1024);
}

TEST(ProcHostStatistics, readsFilesOfAnyLength) {
    const ChangingTree folder;
    // As of a machine with very many interrupts, before and behind what is looked for.
    const QByteArray interrupts = "intr 9" + QByteArray(" 0").repeated(100'000) + '\n';
    folder.write(u"stat"_s, "cpu  1 2 3 4 0 0 0 0 0 0\n" + interrupts + "btime 1699950000\n");
    const ProcHostStatistics host(folder.path());
    EXPECT_EQ(host.cpuTicks(), (CpuTicks{1, 3, 4, 2}));
    EXPECT_EQ(host.bootTime(), Date{1699950000});
    folder.write(u"stat"_s, "btime 1699950000\n");
    EXPECT_EQ(host.bootTime(), Date{1699950000});
    EXPECT_FALSE(host.cpuTicks());
}

TEST(ProcHostStatistics, readsTheBootTime) {
    EXPECT_EQ(ProcHostStatistics(tree(u"normal"_s)).bootTime(), Date{1699950000});
}

TEST(ProcHostStatistics, addsTheCachesToTheFreePagesOnAKernelWithoutMemAvailable) {
    const ProcHostStatistics host(tree(u"old-kernel"_s));
    ASSERT_TRUE(host.memoryPages());
    EXPECT_EQ(host.memoryPages()->active, 600000ULL * 1024 / host.pageSize());
}

TEST(ProcHostStatistics, readsAKernelThatTellsFourColumns) {
    EXPECT_EQ(ProcHostStatistics(tree(u"old-kernel"_s)).cpuTicks(), (CpuTicks{100, 30, 4000, 20}));
}

TEST(ProcHostStatistics, refusesMissingFiles) {
    expectRefusals(ProcHostStatistics(tree(u"no-such-tree"_s)));
}

TEST(ProcHostStatistics, refusesEmptyFiles) {
    expectRefusals(ProcHostStatistics(tree(u"empty"_s)));
}

TEST(ProcHostStatistics, refusesALineThatIsCutOff) {
    const ProcHostStatistics host(tree(u"truncated"_s));
    EXPECT_FALSE(host.cpuTicks()) << "1117 may be the head of a longer number";
    EXPECT_FALSE(host.bootTime());
    const auto pages = host.memoryPages();
    ASSERT_TRUE(pages) << "what came through is told as on a kernel without the figure";
    EXPECT_EQ(pages->active, (16384000ULL - 1024000ULL) * 1024 / host.pageSize());
}

TEST(ProcHostStatistics, refusesGarbage) {
    expectRefusals(ProcHostStatistics(tree(u"garbage"_s)));
}

TEST(ProcHostStatistics, refusesNumbersThatAreTooLargeToBeTrue) {
    expectRefusals(ProcHostStatistics(tree(u"huge"_s)));
}

TEST(ProcHostStatistics, tellsCountersModuloTwoToTheThirtyTwo) {
    const ProcHostStatistics host(tree(u"wrapped"_s));
    EXPECT_EQ(host.cpuTicks(), (CpuTicks{5, 12, 6, 2})); // system 4294967290 + 18, idle ... + 4
}

TEST(ProcHostStatistics, givesASmallShareAcrossTheWrap) {
    ChangingTree files;
    files.write(u"stat"_s, "cpu 4294967290 0 0 4294967200 0 0 0 0\n");
    files.write(u"meminfo"_s, "MemTotal: 1000 kB\nMemAvailable: 250 kB\n");
    const ProcHostStatistics host(files.path());
    SystemLoadMonitor monitor(host);
    monitor.sampleCPU();
    files.write(u"stat"_s, "cpu 4294967310 0 0 4294967280 0 0 0 0\n");
    monitor.sampleCPU();
    EXPECT_DOUBLE_EQ(monitor.load().cpuUsage, 0.2);
}

TEST(ProcHostStatistics, takesAnIdleTimeThatFellByATickForNoTime) {
    ChangingTree files;
    files.write(u"stat"_s, "cpu 100 0 0 500 40 0 0 0\n");
    const ProcHostStatistics host(files.path());
    SystemLoadMonitor monitor(host);
    monitor.sampleCPU();
    files.write(u"stat"_s, "cpu 200 0 0 500 39 0 0 0\n");
    monitor.sampleCPU();
    EXPECT_DOUBLE_EQ(monitor.load().cpuUsage, 1.0);
    files.write(u"stat"_s, "cpu 250 0 0 550 39 0 0 0\n");
    monitor.sampleCPU();
    EXPECT_DOUBLE_EQ(monitor.load().cpuUsage, 0.5) << "later ticks count from the lower reading";
}

TEST(ProcHostStatistics, readsAMachineOfAThousandProcessors) {
    QByteArray stat = "cpu  1 2 3 4 5 6 7 8 9 10\n";
    for (int cpu = 0; cpu < 1024; ++cpu) {
        stat += "cpu" + QByteArray::number(cpu) + " 9 9 9 9 9 9 9 9 9 9\n";
    }
    stat += "intr 1" + QByteArray(" 0").repeated(100'000) + "\nbtime 77\n";
    ChangingTree files;
    files.write(u"stat"_s, stat);
    const ProcHostStatistics host(files.path());
    EXPECT_EQ(host.cpuTicks(), (CpuTicks{1, 24, 9, 2}));
    EXPECT_EQ(host.bootTime(), Date{77});
}

TEST(ProcHostStatistics, readsTheFilesAnewEachTime) {
    ChangingTree files;
    const ProcHostStatistics host(files.path());
    EXPECT_FALSE(host.bootTime());
    files.write(u"stat"_s, "btime 10\n");
    EXPECT_EQ(host.bootTime(), Date{10});
    files.write(u"stat"_s, "btime 12\n");
    EXPECT_EQ(host.bootTime(), Date{12});
}

TEST(ProcHostStatistics, refusesABootTimeBeyondWhatSignedSecondsHold) {
    ChangingTree files;
    const ProcHostStatistics host(files.path());
    files.write(u"stat"_s, "btime 9223372036854775807\n");
    EXPECT_TRUE(host.bootTime());
    files.write(u"stat"_s, "btime 9223372036854775808\n");
    EXPECT_FALSE(host.bootTime());
    files.write(u"stat"_s, "btime 18446744073709551615\n");
    EXPECT_FALSE(host.bootTime());
}

TEST(ProcHostStatistics, usesNoMemoryWhenMoreIsAvailableThanThereIs) {
    ChangingTree files;
    files.write(u"meminfo"_s, "MemTotal: 1000 kB\nMemAvailable: 2000 kB\n");
    EXPECT_EQ(ProcHostStatistics(files.path()).memoryPages(), MemoryPages{});
}

} // namespace

} // namespace zeph
