// SPDX-License-Identifier: MIT
#include "adapters/calendar/CalendarServer.h"

#include "support/WaitUntil.h"

#include <QDir>
#include <QFile>

#include <sys/prctl.h>

#include <csignal>

using namespace Qt::StringLiterals;

namespace zeph {

CalendarServer::CalendarServer() {
    const QDir home(m_home.path());
    const auto place = [&](const char *variable, const QString &name) {
        home.mkpath(name);
        qputenv(variable, QFile::encodeName(home.filePath(name)));
    };
    place("HOME", u"home"_s);
    place("XDG_CONFIG_HOME", u"config"_s);
    place("XDG_DATA_HOME", u"data"_s);
    place("XDG_CACHE_HOME", u"cache"_s);
    place("XDG_STATE_HOME", u"state"_s);
    place("XDG_RUNTIME_DIR", u"runtime"_s);
    QFile::setPermissions(home.filePath(u"runtime"_s),
                          QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    qputenv("TZ", "Europe/Berlin");
    qputenv("GSETTINGS_BACKEND", "memory");
    qputenv("GIO_USE_VFS", "local");
    qunsetenv("DBUS_SESSION_BUS_ADDRESS");

    m_bus.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGKILL); });
    m_bus.setStandardErrorFile(QProcess::nullDevice());
    m_bus.start(u"dbus-daemon"_s, {u"--session"_s, u"--nofork"_s, u"--print-address"_s});
    if (m_bus.waitForStarted() && m_bus.waitForReadyRead()) {
        m_address = m_bus.readLine().trimmed();
        qputenv("DBUS_SESSION_BUS_ADDRESS", m_address);
    }
}

CalendarServer::~CalendarServer() {
    signalAll(SIGCONT);
    signalAll(SIGKILL);
    m_bus.kill();
    m_bus.waitForFinished();
    waitUntil([this] { return signalAll(SIGKILL) == 0; });
}

std::vector<pid_t> CalendarServer::processes(const char *name) const {
    const QByteArray mark = "XDG_RUNTIME_DIR=" + QFile::encodeName(m_home.path());
    std::vector<pid_t> found;
    const QStringList entries = QDir(u"/proc"_s).entryList(QDir::Dirs);
    for (const QString &entry : entries) {
        bool isNumber = false;
        const pid_t process = entry.toInt(&isNumber);
        QFile environment(u"/proc/%1/environ"_s.arg(entry));
        QFile command(u"/proc/%1/cmdline"_s.arg(entry));
        if (isNumber && command.open(QFile::ReadOnly) && command.readAll().contains(name) &&
            environment.open(QFile::ReadOnly) && environment.readAll().contains(mark)) {
            found.push_back(process);
        }
    }
    return found;
}

int CalendarServer::signalAll(int signal, const char *name) const {
    const auto targets = processes(name);
    for (const pid_t process : targets) {
        kill(process, signal);
    }
    return static_cast<int>(targets.size());
}

} // namespace zeph
