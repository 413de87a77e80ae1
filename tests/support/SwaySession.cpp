// SPDX-License-Identifier: MIT
#include "support/SwaySession.h"

#include <QFile>

#include <sys/stat.h>
#include <unistd.h>

#include <utility>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

constexpr uid_t kNobody = 65534; // the same number on every Linux, for the group too

} // namespace

SwaySession::SwaySession() : SwaySession(Options()) {}

SwaySession::SwaySession(const Options &options) : m_options(options) {
    const QByteArray folder = m_folder.path().toLocal8Bit();
    if (geteuid() == 0) {
        m_programs.setUser(kNobody);
    }
    if (m_folder.isValid() && writeConfiguration() &&
        (geteuid() != 0 || chown(folder.constData(), kNobody, kNobody) == 0)) {
        startCompositor();
    }
}

bool SwaySession::writeConfiguration() const {
    QFile file(m_folder.filePath(u"config"_s));
    // sway runs the last line once it listens, with the names in its environment.
    const QByteArray text = QByteArray(m_options.hasXwayland ? "" : "xwayland disable\n") +
                            "output * mode --custom 1280x720\n" + m_options.configuration +
                            "\nexec echo \"$WAYLAND_DISPLAY $SWAYSOCK $DISPLAY\"\n";
    return file.open(QIODevice::WriteOnly) && file.write(text) == text.size() && file.flush() &&
           chmod(QFile::encodeName(file.fileName()).constData(), 0644) == 0;
}

void SwaySession::startCompositor() {
    const QByteArray folder = m_folder.path().toLocal8Bit();
    setVariable("HOME", folder);
    setVariable("XDG_RUNTIME_DIR", folder);
    setVariable("XDG_CONFIG_HOME", folder);
    setVariable("DISPLAY", {});
    setVariable("WAYLAND_DISPLAY", {});
    setVariable("SWAYSOCK", {});
    setVariable("WLR_BACKENDS", "headless");
    setVariable("WLR_LIBINPUT_NO_DEVICES", "1");
    setVariable("WLR_RENDERER", "pixman");
    setVariable("WLR_HEADLESS_OUTPUTS", QByteArray::number(m_options.outputs));
    TestPipe names;
    m_compositor =
        m_programs.start({u"sway"_s, u"-c"_s, m_folder.filePath(u"config"_s)}, names.writingEnd());
    names.closeWritingEnd();
    const QByteArrayList words = names.firstLine().split(' ');
    if (words.size() < 2) {
        killCompositor();
        return;
    }
    m_waylandDisplay = folder + '/' + words[0];
    m_controlSocket = words[1];
    m_xDisplay = words.value(2);
    setVariable("WAYLAND_DISPLAY", m_waylandDisplay);
    setVariable("SWAYSOCK", m_controlSocket);
    setVariable("DISPLAY", m_xDisplay);
}

bool SwaySession::tell(const QString &command) const {
    return !run({u"swaymsg"_s, u"-q"_s, u"--"_s, command}).isNull();
}

bool SwaySession::restartCompositor() {
    killCompositor();
    const QByteArray socket = m_waylandDisplay;
    startCompositor();
    return isRunning() && m_waylandDisplay == socket;
}

void SwaySession::killCompositor() {
    m_programs.kill(std::exchange(m_compositor, -1));
}

} // namespace zeph
