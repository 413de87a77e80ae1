// SPDX-License-Identifier: MIT
#include "support/XvfbSession.h"

#include "support/WaitUntil.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace zeph {

XvfbSession::XvfbSession() : XvfbSession(Options()) {}

XvfbSession::XvfbSession(const Options &options) : m_options(options) {
    startServer();
}

void XvfbSession::startServer() {
    TestPipe number;
    QStringList command{u"Xvfb"_s,    u"-displayfd"_s, u"1"_s,
                        u"-screen"_s, u"0"_s,          QString::fromLatin1(m_options.screen),
                        u"-noreset"_s};
    if (m_options.listensToTcp) {
        command << u"-listen"_s << u"tcp"_s << u"-ac"_s;
    } else {
        command << u"-nolisten"_s << u"tcp"_s;
    }
    command += m_options.serverArguments;
    if (!m_display.isEmpty()) {
        command.insert(1, QString::fromLatin1(m_display));
    }
    m_held.reset();
    m_server = m_programs.start(command, number.writingEnd());
    number.closeWritingEnd();
    const QByteArray line = number.firstLine();
    if (line.isEmpty()) {
        killServer();
        return;
    }
    m_display = ":" + line;
    setVariable("DISPLAY", m_display);
    setVariable("WAYLAND_DISPLAY", {});
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

bool XvfbSession::restartServer() {
    killServer();
    const QByteArray display = m_display;
    startServer();
    return isRunning() && m_display == display;
}

void XvfbSession::killServer() {
    m_programs.kill(std::exchange(m_server, -1));
    if (!m_display.isEmpty()) {
        m_held.emplace(m_display);
    }
}

} // namespace zeph
