// SPDX-License-Identifier: MIT
#pragma once

#include <QProcess>
#include <QProcessEnvironment>

#include <chrono>

namespace zeph {

/// One run of the built program. It is killed with this object and with the test process.
class Program {
public:
    explicit Program(const QProcessEnvironment &environment, const QStringList &arguments = {},
                     const QString &executable = QStringLiteral(ZEPH_TAVI));
    ~Program();
    Program(const Program &) = delete;
    Program &operator=(const Program &) = delete;

    qint64 process() const { return m_process.processId(); }
    bool isRunning() const { return m_process.state() == QProcess::Running; }
    void send(int signal);

    /// True when it ended by itself, with this status, before the deadline.
    bool endsWith(int status, std::chrono::milliseconds deadline = std::chrono::seconds(20));

    /// All that it printed so far.
    QString output();
    QString errors();

private:
    QProcess m_process;
    QByteArray m_output;
    QByteArray m_errors;
};

} // namespace zeph
