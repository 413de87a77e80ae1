// SPDX-License-Identifier: MIT
#pragma once

#include "support/HeldDisplay.h"
#include "support/SessionPrograms.h"

#include <optional>

namespace zeph {

/// A private X server without a screen, on a display number of its own, for one test. Everything
/// that was started in it ends with it, by process id, also when the test process is killed.
/// Works with and without an application object.
class XvfbSession {
public:
    struct Options {
        QByteArray screen = "1280x800x24";
        QStringList serverArguments = {};
        bool listensToTcp = false;
    };

    XvfbSession(); ///< with the default options
    explicit XvfbSession(const Options &options);

    /// False when the server did not come up within ten seconds.
    bool isRunning() const { return m_server > 0; }

    /// Such as ":93", for DISPLAY.
    QByteArray display() const { return m_display; }

    /// Starts the window manager and waits until it manages windows.
    bool startOpenbox();

    /// Starts a program of this display; answers its process id, or -1.
    pid_t start(const QStringList &command) { return m_programs.start(command); }

    /// Ends a process of this session and waits for its end.
    void stop(pid_t process) { m_programs.stop(process); }

    /// Runs a program of this display to its end; answers its output, or null when it fails.
    QByteArray run(const QStringList &command) const { return m_programs.run(command); }

    /// Set in the environment of what is started from now on, an empty value for "not set".
    void setVariable(const QByteArray &name, const QByteArray &value) {
        m_programs.setVariable(name, value);
    }

    /// Ends the server as a crash would. Its display stays without one until `restartServer`.
    void killServer();

    /// Starts another in its place, at the same display; false when it did not come up.
    bool restartServer();

private:
    void startServer();

    Options m_options;
    QByteArray m_display;
    SessionPrograms m_programs; // the server first, so that it ends last
    pid_t m_server = -1;
    std::optional<HeldDisplay> m_held; // while there is no server
};

} // namespace zeph
