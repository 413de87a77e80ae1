// SPDX-License-Identifier: MIT
#include "support/XvfbSession.h"

#include "support/WaitUntil.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

constexpr int kStartMilliseconds = 10000;

struct Pipe {
    Pipe() {
        if (pipe2(ends.data(), O_CLOEXEC) != 0) {
            ends = {-1, -1};
        }
    }
    ~Pipe() {
        closeEnd(0);
        closeEnd(1);
    }
    Pipe(const Pipe &) = delete;
    Pipe &operator=(const Pipe &) = delete;

    void closeEnd(std::size_t end) {
        if (const int descriptor = std::exchange(ends.at(end), -1); descriptor >= 0) {
            close(descriptor);
        }
    }

    std::array<int, 2> ends{-1, -1}; // to read from, to write to
};

struct Launch {
    QStringList command;
    QMap<QByteArray, QByteArray> environment;
    int output = -1; // becomes the standard output; /dev/null when negative
};

[[noreturn]] void becomeProgram(const std::vector<char *> &arguments, const Launch &launch,
                                pid_t parent) {
    prctl(PR_SET_PDEATHSIG, SIGKILL);
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
    execvp(arguments.front(), arguments.data());
    _exit(127);
}

pid_t launchProgram(const Launch &launch) {
    QByteArrayList bytes;
    for (const QString &word : launch.command) {
        bytes.append(word.toLocal8Bit());
    }
    std::vector<char *> arguments;
    for (QByteArray &word : bytes) {
        arguments.push_back(word.data());
    }
    arguments.push_back(nullptr);
    const pid_t parent = getpid();
    const pid_t child = fork();
    if (child == 0) {
        becomeProgram(arguments, launch, parent);
    }
    return child;
}

void endProcess(pid_t process, int signal) {
    if (process <= 0) {
        return;
    }
    kill(process, signal);
    const auto hasEnded = [process] { return waitpid(process, nullptr, WNOHANG) != 0; };
    if (!waitUntil(hasEnded, std::chrono::seconds(3))) {
        kill(process, SIGKILL);
        waitpid(process, nullptr, 0);
    }
}

} // namespace

XvfbSession::XvfbSession() : XvfbSession(Options()) {}

XvfbSession::XvfbSession(const Options &options) {
    startServer(options);
}

XvfbSession::~XvfbSession() {
    while (!m_children.isEmpty()) {
        stop(m_children.last());
    }
    endProcess(std::exchange(m_server, -1), SIGTERM);
}

void XvfbSession::startServer(const Options &options) {
    Pipe number;
    QStringList command{u"Xvfb"_s,    u"-displayfd"_s, u"1"_s,
                        u"-screen"_s, u"0"_s,          QString::fromLatin1(options.screen),
                        u"-noreset"_s};
    if (options.listensToTcp) {
        command << u"-listen"_s << u"tcp"_s << u"-ac"_s;
    } else {
        command << u"-nolisten"_s << u"tcp"_s;
    }
    command += options.serverArguments;
    m_server = launchProgram({command, {}, number.ends[1]});
    number.closeEnd(1);
    const QByteArray line = firstLine(number.ends[0]);
    if (line.isEmpty()) {
        endProcess(std::exchange(m_server, -1), SIGKILL);
        return;
    }
    m_display = ":" + line;
    m_environment["DISPLAY"] = m_display;
    m_environment["WAYLAND_DISPLAY"] = QByteArray();
}

QByteArray XvfbSession::firstLine(int descriptor) const {
    QByteArray line;
    pollfd ready{descriptor, POLLIN, 0};
    char letter = 0;
    while (poll(&ready, 1, kStartMilliseconds) > 0 && read(descriptor, &letter, 1) == 1) {
        if (letter == '\n') {
            return line;
        }
        line.append(letter);
    }
    return {};
}

bool XvfbSession::startOpenbox() {
    if (start({u"openbox"_s, u"--sm-disable"_s}) < 0) {
        return false;
    }
    // It announces itself long before it listens, and a window that comes in between is left
    // waiting until something else happens. When it obeys, it listens.
    const auto goTo = [this](const QString &desktop) {
        return waitUntil([&] {
            run({u"xdotool"_s, u"set_desktop"_s, desktop});
            return run({u"xdotool"_s, u"get_desktop"_s}).trimmed() == desktop.toLatin1();
        });
    };
    return goTo(u"1"_s) && goTo(u"0"_s);
}

pid_t XvfbSession::start(const QStringList &command) {
    const pid_t process = launchProgram({command, m_environment, -1});
    if (process > 0) {
        m_children.append(process);
    }
    return process;
}

void XvfbSession::stop(pid_t process) {
    m_children.removeAll(process);
    endProcess(process, SIGTERM);
}

QByteArray XvfbSession::run(const QStringList &command) const {
    Pipe output;
    const pid_t process = launchProgram({command, m_environment, output.ends[1]});
    output.closeEnd(1);
    QByteArray text("");
    std::array<char, 4096> buffer{};
    ssize_t count = 0;
    while ((count = read(output.ends[0], buffer.data(), buffer.size())) > 0) {
        text.append(buffer.data(), count);
    }
    int status = -1;
    waitpid(process, &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0 ? text : QByteArray();
}

void XvfbSession::setVariable(const QByteArray &name, const QByteArray &value) {
    m_environment[name] = value;
}

void XvfbSession::killServer() {
    endProcess(std::exchange(m_server, -1), SIGKILL);
}

} // namespace zeph
