// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QProcess>
#include <QTemporaryDir>

#include <memory>
#include <vector>

#include <sys/types.h>

namespace zeph {

/// A private session bus with a private home folder, on which the real Evolution Data Server
/// starts when it is called. One for the whole test process, whose environment it changes; it
/// ends the bus and every server that was started on it.
class CalendarServer {
public:
    CalendarServer();
    ~CalendarServer();
    CalendarServer(const CalendarServer &) = delete;
    CalendarServer &operator=(const CalendarServer &) = delete;

    bool isRunning() const { return !m_address.isEmpty(); }
    const QByteArray &address() const { return m_address; }

    /// The processes of this bus whose command line holds `name`, such as
    /// "evolution-calendar-factory".
    std::vector<pid_t> processes(const char *name = "evolution-") const;

    /// Sends `signal` to those processes; answers how many there were.
    int signalAll(int signal, const char *name = "evolution-") const;

private:
    QTemporaryDir m_home;
    QProcess m_bus;
    QByteArray m_address;
};

} // namespace zeph
