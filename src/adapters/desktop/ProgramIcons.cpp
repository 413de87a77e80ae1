// SPDX-License-Identifier: MIT
#include "adapters/desktop/ProgramIcons.h"

#include "adapters/desktop/RunTool.h"

#include <QDeadlineTimer>
#include <QThread>

#include <utility>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

constexpr unsigned long betweenLooksMilliseconds = 50;

} // namespace

DesktopProgram lxdeDesktop() {
    return {.program = u"pcmanfm"_s,
            .desktopOff = {u"--desktop-off"_s},
            .desktopOn = {u"--desktop"_s, u"--profile"_s, u"LXDE"_s},
            .windowInstance = "pcmanfm"};
}

DesktopProgram lxqtDesktop() {
    return {.program = u"pcmanfm-qt"_s,
            .desktopOff = {u"--desktop-off"_s, u"--profile"_s, u"lxqt"_s},
            .desktopOn = {u"--desktop"_s, u"--profile"_s, u"lxqt"_s},
            .windowInstance = "pcmanfm-qt"};
}

ProgramIcons::ProgramIcons(DesktopProgram program, Look look, std::chrono::milliseconds patience)
    : m_program(std::move(program)),
      m_look(std::move(look)),
      m_patience(patience),
      m_isInstalled(isProgramThere(m_program.program)) {}

std::optional<IconSetting> ProgramIcons::iconSetting() const {
    const auto isDrawn = m_isInstalled ? m_look(m_program.windowInstance) : std::nullopt;
    return isDrawn ? std::optional(IconSetting{*isDrawn, *isDrawn ? u"on"_s : u"off"_s})
                   : std::nullopt;
}

ShellOutcome ProgramIcons::hideIcons() {
    m_wantsIcons = false;
    if (!m_isInstalled) {
        return ShellOutcome::unavailable;
    }
    const auto answer = runTool(m_program.program, m_program.desktopOff);
    return answer && answer->exitCode == 0 ? ShellOutcome::done : ShellOutcome::refused;
}

/// One that is not running yet goes on to run, so nobody waits for its end.
ShellOutcome ProgramIcons::showIcons(const QString & /*earlier*/) {
    m_wantsIcons = true;
    if (!m_isInstalled) {
        return ShellOutcome::unavailable;
    }
    return startTool(m_program.program, m_program.desktopOn) ? ShellOutcome::done
                                                             : ShellOutcome::refused;
}

ShellOutcome ProgramIcons::relaunch() {
    if (!m_isInstalled) {
        return ShellOutcome::unavailable;
    }
    const QDeadlineTimer deadline(m_patience);
    while (true) {
        const auto isDrawn = m_look(m_program.windowInstance);
        if (!isDrawn) {
            return ShellOutcome::unavailable;
        }
        if (*isDrawn == m_wantsIcons) {
            return ShellOutcome::done;
        }
        if (deadline.hasExpired()) {
            return ShellOutcome::refused;
        }
        QThread::msleep(betweenLooksMilliseconds);
    }
}

} // namespace zeph
