// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QStringList>

#include <sys/types.h>

#include <array>
#include <optional>

namespace zeph {

/// A pipe whose ends are not inherited, unless as the output of a program.
class TestPipe {
public:
    TestPipe();
    ~TestPipe();
    TestPipe(const TestPipe &) = delete;
    TestPipe &operator=(const TestPipe &) = delete;

    int readingEnd() const { return m_ends[0]; }
    int writingEnd() const { return m_ends[1]; }
    void closeWritingEnd();

    /// The first line written, without its end; empty when none comes within ten seconds.
    QByteArray firstLine() const;

private:
    std::array<int, 2> m_ends{-1, -1};
};

/// The programs of a test's own display and what they find in their environment. All end with
/// this, by process id, also when the test process is killed.
class SessionPrograms {
public:
    SessionPrograms() = default;
    ~SessionPrograms();
    SessionPrograms(const SessionPrograms &) = delete;
    SessionPrograms &operator=(const SessionPrograms &) = delete;

    /// Starts a program; answers its process id, or -1. It writes to `output`, to nowhere when that
    /// is negative.
    pid_t start(const QStringList &command, int output = -1);

    /// Ends a program of these and waits for its end.
    void stop(pid_t process);

    /// Ends a program of these as a crash would, and waits for its end.
    void kill(pid_t process);

    /// Runs a program to its end; answers its output, or null when it fails.
    QByteArray run(const QStringList &command) const;

    /// Set in the environment of what is started from now on, an empty value for "not set".
    void setVariable(const QByteArray &name, const QByteArray &value);

    /// Has what is started from now on run as this user and group.
    void setUser(uid_t user) { m_user = user; }

private:
    pid_t launch(const QStringList &command, int output) const;

    QList<pid_t> m_children;
    QMap<QByteArray, QByteArray> m_environment;
    std::optional<uid_t> m_user;
};

} // namespace zeph
