// SPDX-License-Identifier: MIT
#include "Program.h"

#include "adapters/bus/PrivateBus.h"
#include "support/WaitUntil.h"

#include <csignal>

namespace zeph {

Program::Program(const QProcessEnvironment &environment, const QStringList &arguments,
                 const QString &executable) {
    endWithThisProcess(m_process);
    m_process.setProcessEnvironment(environment);
    m_process.start(executable, arguments);
    EXPECT_TRUE(m_process.waitForStarted()) << executable.toStdString();
}

Program::~Program() {
    if (m_process.state() != QProcess::NotRunning) {
        m_process.kill();
        m_process.waitForFinished();
    }
}

void Program::send(int signal) {
    ASSERT_TRUE(isRunning());
    ASSERT_EQ(kill(static_cast<pid_t>(process()), signal), 0);
}

bool Program::endsWith(int status, std::chrono::milliseconds deadline) {
    return waitUntil([this] { return !isRunning(); }, deadline) &&
           m_process.exitStatus() == QProcess::NormalExit && m_process.exitCode() == status;
}

QString Program::output() {
    m_output += m_process.readAllStandardOutput();
    return QString::fromUtf8(m_output);
}

QString Program::errors() {
    m_errors += m_process.readAllStandardError();
    return QString::fromUtf8(m_errors);
}

} // namespace zeph
