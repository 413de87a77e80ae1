// SPDX-License-Identifier: MIT
#include "support/SessionPrograms.h"

#include "support/WaitUntil.h"

#include <fcntl.h>
#include <grp.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <utility>
#include <vector>

namespace zeph {

namespace {

constexpr int kFirstLineMilliseconds = 10000;

struct Launch {
    std::vector<char *> arguments; // the last one is null
    const QMap<QByteArray, QByteArray> &environment;
    std::optional<uid_t> user;
    int output = -1; // becomes the standard output; /dev/null when negative
};

void becomeUser(uid_t user) {
    if (setgroups(0, nullptr) != 0 || setresgid(user, user, user) != 0 ||
        setresuid(user, user, user) != 0) {
        _exit(127);
    }
}

[[noreturn]] void becomeProgram(const Launch &launch, pid_t parent) {
    if (launch.user) {
        becomeUser(*launch.user);
        if (chdir("/") != 0) { // the test's folder may be closed to that user
            _exit(127);
        }
    }
    prctl(PR_SET_PDEATHSIG, SIGKILL); // a change of the user takes it back
    if (getppid() != parent) {
        _exit(127); // the test died before the line above
    }
    const int null = open("/dev/null", O_RDWR);
    dup2(null, STDIN_FILENO);
    dup2(launch.output >= 0 ? launch.output : null, STDOUT_FILENO);
    if (!qEnvironmentVariableIsSet("ZEPH_TEST_VERBOSE")) {
        dup2(null, STDERR_FILENO);
    }
    for (auto it = launch.environment.begin(); it != launch.environment.end(); ++it) {
        if (it.value().isEmpty()) {
            unsetenv(it.key().constData());
        } else {
            setenv(it.key().constData(), it.value().constData(), 1);
        }
    }
    execvp(launch.arguments.front(), launch.arguments.data());
    _exit(127);
}

void endProcess(pid_t process, int signal) {
    if (process <= 0) {
        return;
    }
    ::kill(process, signal);
    const auto hasEnded = [process] { return waitpid(process, nullptr, WNOHANG) != 0; };
    if (!waitUntil(hasEnded, std::chrono::seconds(3))) {
        ::kill(process, SIGKILL);
        waitpid(process, nullptr, 0);
    }
}

} // namespace

TestPipe::TestPipe() {
    if (pipe2(m_ends.data(), O_CLOEXEC) != 0) {
        m_ends = {-1, -1};
    }
}

TestPipe::~TestPipe() {
    closeWritingEnd();
    if (m_ends[0] >= 0) {
        close(m_ends[0]);
    }
}

void TestPipe::closeWritingEnd() {
    if (const int descriptor = std::exchange(m_ends[1], -1); descriptor >= 0) {
        close(descriptor);
    }
}

QByteArray TestPipe::firstLine() const {
    QByteArray line;
    pollfd ready{m_ends[0], POLLIN, 0};
    char letter = 0;
    while (poll(&ready, 1, kFirstLineMilliseconds) > 0 && read(m_ends[0], &letter, 1) == 1) {
        if (letter == '\n') {
            return line;
        }
        line.append(letter);
    }
    return {};
}

SessionPrograms::~SessionPrograms() {
    while (!m_children.isEmpty()) {
        stop(m_children.last());
    }
}

pid_t SessionPrograms::launch(const QStringList &command, int output) const {
    QByteArrayList bytes;
    for (const QString &word : command) {
        bytes.append(word.toLocal8Bit());
    }
    Launch launch{{}, m_environment, m_user, output};
    for (QByteArray &word : bytes) {
        launch.arguments.push_back(word.data());
    }
    launch.arguments.push_back(nullptr);
    const pid_t parent = getpid();
    const pid_t child = fork();
    if (child == 0) {
        becomeProgram(launch, parent);
    }
    return child;
}

pid_t SessionPrograms::start(const QStringList &command, int output) {
    const pid_t process = launch(command, output);
    if (process > 0) {
        m_children.append(process);
    }
    return process;
}

void SessionPrograms::stop(pid_t process) {
    m_children.removeAll(process);
    endProcess(process, SIGTERM);
}

void SessionPrograms::kill(pid_t process) {
    m_children.removeAll(process);
    endProcess(process, SIGKILL);
}

QByteArray SessionPrograms::run(const QStringList &command) const {
    TestPipe output;
    const pid_t process = launch(command, output.writingEnd());
    output.closeWritingEnd();
    QByteArray text("");
    std::array<char, 4096> buffer{};
    ssize_t count = 0;
    while ((count = read(output.readingEnd(), buffer.data(), buffer.size())) > 0) {
        text.append(buffer.data(), count);
    }
    int status = -1;
    waitpid(process, &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0 ? text : QByteArray();
}

void SessionPrograms::setVariable(const QByteArray &name, const QByteArray &value) {
    m_environment[name] = value;
}

} // namespace zeph
