// SPDX-License-Identifier: MIT
#include "history/Database.h"
#include "history/UsageStore.h"
#include "support/ManualClock.h"
#include "support/UtcCalendar.h"

#include <QFile>
#include <QTemporaryDir>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <csignal>
#include <random>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

/// A `CrashWriter` at work, whose reports are read line by line.
class Writer {
public:
    Writer(const QString &folder, const QString &day) {
        const QByteArray program(ZEPH_CRASH_WRITER);
        const QByteArray folderBytes = QFile::encodeName(folder);
        const QByteArray dayBytes = day.toLatin1();
        std::array<int, 2> ends{};
        EXPECT_EQ(pipe2(ends.data(), O_CLOEXEC), 0);
        m_pid = fork();
        if (m_pid == 0) {
            dup2(ends[1], STDOUT_FILENO);
            execl(program.constData(), program.constData(), folderBytes.constData(),
                  dayBytes.constData(), nullptr);
            _exit(127);
        }
        close(ends[1]);
        m_reports = ends[0];
    }
    ~Writer() {
        kill();
        close(m_reports);
    }
    Writer(const Writer &) = delete;
    Writer &operator=(const Writer &) = delete;

    /// Reads until `count` more saves are reported or the reports end; true in the first case.
    bool awaitReports(int count) {
        char byte = 0;
        while (count > 0 && read(m_reports, &byte, 1) == 1) {
            if (byte == '\n') {
                m_lastReported = m_line.toLongLong();
                m_line.clear();
                --count;
            } else {
                m_line += byte;
            }
        }
        return count == 0;
    }

    void kill() {
        if (m_pid > 0) {
            ::kill(m_pid, SIGKILL);
            waitpid(m_pid, &m_status, 0);
            m_pid = 0;
        }
    }

    bool wasKilled() const { return WIFSIGNALED(m_status) && WTERMSIG(m_status) == SIGKILL; }
    qint64 lastReported() const { return m_lastReported; }

private:
    pid_t m_pid = 0;
    int m_reports = -1;
    int m_status = 0;
    QByteArray m_line;
    qint64 m_lastReported = 0;
};

void busyFor(std::chrono::microseconds span) {
    const auto end = std::chrono::steady_clock::now() + span;
    while (std::chrono::steady_clock::now() < end) {
    }
}

TEST(UsageStoreCrash, everyReportedSaveSurvivesAKillAtAnyMoment) {
    constexpr int kills = 60;
    const QString day = u"2023-11-14"_s;
    const QTemporaryDir folder;
    const ManualClock clock;
    const UtcCalendar calendar;
    std::mt19937 random(20231114); // the same moments at every run, as far as the machine allows
    std::uniform_int_distribution<int> reports(0, 40);
    std::uniform_int_distribution<int> microseconds(0, 5000);
    qint64 reported = 0;
    for (int round = 0; round < kills; ++round) {
        SCOPED_TRACE(round);
        Writer writer(folder.path(), day);
        // Every fourth one is struck while it starts and recovers the file of the one before.
        ASSERT_TRUE(writer.awaitReports(round % 4 == 3 ? 0 : reports(random)));
        busyFor(std::chrono::microseconds((round % 4 == 3 ? 10 : 1) * microseconds(random)));
        writer.kill();
        ASSERT_TRUE(writer.wasKilled());
        writer.awaitReports(std::numeric_limits<int>::max()); // those still in the pipe
        reported = std::max(reported, writer.lastReported());

        const auto file = Database::open(folder.filePath(u"zeph.sqlite"_s));
        ASSERT_NE(file, nullptr);
        EXPECT_THAT(file->query(u"PRAGMA integrity_check"_s, {},
                                [](const DatabaseRow &row) { return row.text(0); }),
                    testing::ElementsAre(u"ok"_s));
        UsageStore store(folder.path(), clock, calendar);
        const auto totals = store.loadDailyStats(day);
        const qint64 stored = totals ? totals->second.totalKeystrokes : 0;
        EXPECT_GE(stored, reported);
        EXPECT_LE(stored, reported + 1); // one more may be finished and not yet reported
        const auto apps = store.loadAppUsage(day);
        for (const AppUsage &app : apps) {
            EXPECT_GE(app.seconds, static_cast<double>(reported));
        }
        if (reported > 0) {
            EXPECT_EQ(apps.size(), 5U);
        }
        reported = stored;
    }
    EXPECT_GT(reported, kills);
}

} // namespace

} // namespace zeph
