// SPDX-License-Identifier: MIT
#include "adapters/desktop/ProgramIcons.h"

#include "adapters/desktop/RunTool.h"

#include <QDeadlineTimer>
#include <QFile>
#include <QRegularExpression>
#include <QThread>

#include <utility>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

constexpr unsigned long betweenLooksMilliseconds = 50;

/// One that can be neither an option nor a way out of the folder of the settings.
bool isPlainName(const QString &profile) {
    static const QRegularExpression plain(u"^[A-Za-z0-9][A-Za-z0-9_.-]*$"_s);
    return plain.match(profile).hasMatch();
}

QString profileOf(quint32 process) {
    QFile file(u"/proc/%1/cmdline"_s.arg(process));
    return file.open(QFile::ReadOnly) ? profileIn(file.readAll()) : QString();
}

} // namespace

DesktopProgram lxdeDesktop() {
    return {.desktop = u"lxde"_s,
            .program = u"pcmanfm"_s,
            .profile = u"LXDE"_s,
            .windowInstance = "pcmanfm"};
}

DesktopProgram lxqtDesktop() {
    return {.desktop = u"lxqt"_s,
            .program = u"pcmanfm-qt"_s,
            .profile = u"lxqt"_s,
            .windowInstance = "pcmanfm-qt"};
}

QString profileIn(const QByteArray &commandLine) {
    const QStringList words = QString::fromUtf8(commandLine).split(QChar(0));
    for (qsizetype index = 1; index < words.size(); ++index) {
        const QString &word = words[index];
        QString profile = word == u"--profile"_s || word == u"-p"_s ? words.value(index + 1)
                          : word.startsWith(u"--profile="_s)        ? word.section(u'=', 1)
                                                                    : QString();
        if (isPlainName(profile)) {
            return profile;
        }
    }
    return {};
}

ProgramIcons::ProgramIcons(DesktopProgram program, Look look, std::chrono::milliseconds patience,
                           Notices notices)
    : m_program(std::move(program)),
      m_look(std::move(look)),
      m_patience(patience),
      m_notices(std::move(notices)),
      m_isInstalled(isProgramThere(m_program.program)) {}

std::optional<IconSetting> ProgramIcons::iconSetting() const {
    const auto look = m_isInstalled ? m_look(m_program.windowInstance) : std::nullopt;
    if (!look) {
        return std::nullopt;
    }
    return look->isDrawn ? IconSetting{true, profileOf(look->process)}
                         : IconSetting{false, {}, IconDrawer::off};
}

ShellOutcome ProgramIcons::hideIcons() {
    m_wantsIcons = false;
    if (!m_isInstalled) {
        return ShellOutcome::unavailable;
    }
    const auto answer = runTool(m_program.program, {u"--desktop-off"_s});
    return answer && answer->exitCode == 0 ? ShellOutcome::done : ShellOutcome::refused;
}

/// One that is not running yet goes on to run, so nobody waits for its end.
ShellOutcome ProgramIcons::showIcons(const QString &earlier) {
    m_wantsIcons = true;
    if (!m_isInstalled) {
        return ShellOutcome::unavailable;
    }
    const QString &profile = isPlainName(earlier) ? earlier : m_program.profile;
    return startTool(m_program.program, {u"--desktop"_s, u"--profile"_s, profile})
               ? ShellOutcome::done
               : ShellOutcome::refused;
}

ShellOutcome ProgramIcons::relaunch() {
    if (!m_isInstalled) {
        return ShellOutcome::unavailable;
    }
    const QDeadlineTimer deadline(m_patience);
    while (true) {
        const auto look = m_look(m_program.windowInstance);
        if (!look) {
            return ShellOutcome::unavailable;
        }
        if (look->isDrawn == m_wantsIcons) {
            return ShellOutcome::done;
        }
        if (deadline.hasExpired()) {
            return ShellOutcome::refused;
        }
        QThread::msleep(betweenLooksMilliseconds);
    }
}

Subscription ProgramIcons::subscribeToDrawer(const std::function<void()> &handler) {
    return m_isInstalled && m_notices ? m_notices(handler) : Subscription();
}

} // namespace zeph
