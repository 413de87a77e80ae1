// SPDX-License-Identifier: MIT
#pragma once

#include "support/SessionPrograms.h"

#include <QTemporaryDir>

namespace zeph {

/// A private sway without a screen, in a runtime folder of its own, for one test. Everything that
/// was started in it ends with it. Works with and without an application object.
///
/// sway does not run as root: a test that does has it, and all that is started in it, run as
/// "nobody".
class SwaySession {
public:
    struct Options {
        int outputs = 1; ///< named HEADLESS-1 and so on, 1280 × 720
        bool hasXwayland = false;
        QByteArray configuration = {}; ///< lines of its configuration, run at its start
    };

    SwaySession(); ///< with the default options
    explicit SwaySession(const Options &options);

    /// False when the compositor did not come up within ten seconds.
    bool isRunning() const { return m_compositor > 0; }

    /// The path of its socket, for WAYLAND_DISPLAY.
    QByteArray waylandDisplay() const { return m_waylandDisplay; }

    /// The path of its own socket, for SWAYSOCK.
    QByteArray controlSocket() const { return m_controlSocket; }

    /// Such as ":3", for DISPLAY; empty without Xwayland.
    QByteArray xDisplay() const { return m_xDisplay; }

    /// Whoever is started in the session may write here.
    QString folder() const { return m_folder.path(); }

    /// Starts a program of this display; answers its process id, or -1.
    pid_t start(const QStringList &command) { return m_programs.start(command); }

    /// Ends a process of this session and waits for its end.
    void stop(pid_t process) { m_programs.stop(process); }

    /// Runs a program of this display to its end; answers its output, or null when it fails.
    QByteArray run(const QStringList &command) const { return m_programs.run(command); }

    /// Has sway carry out a command, such as "workspace 2"; false when it refuses.
    bool tell(const QString &command) const;

    /// Set in the environment of what is started from now on, an empty value for "not set".
    void setVariable(const QByteArray &name, const QByteArray &value) {
        m_programs.setVariable(name, value);
    }

    /// Ends the compositor as a crash would.
    void killCompositor();

    /// Starts another in its place, at the same socket; false when it did not come up.
    bool restartCompositor();

private:
    bool writeConfiguration() const;
    void startCompositor();

    Options m_options;
    QTemporaryDir m_folder;
    SessionPrograms m_programs; // the compositor first, so that it ends last
    pid_t m_compositor = -1;
    QByteArray m_waylandDisplay;
    QByteArray m_controlSocket;
    QByteArray m_xDisplay;
};

} // namespace zeph
