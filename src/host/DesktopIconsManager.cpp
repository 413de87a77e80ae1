// SPDX-License-Identifier: MIT
#include "host/DesktopIconsManager.h"

#include "base/Background.h"
#include "ports/DesktopShell.h"

namespace zeph {

namespace {

void write(DesktopShell &shell, bool hidden) {
    shell.setIconsShown(!hidden);
    shell.relaunch();
}

} // namespace

DesktopIconsManager::DesktopIconsManager(DesktopShell &shell, const Background &background)
    : m_shell(shell), m_background(background) {}

bool DesktopIconsManager::canHide() const {
    return m_shell.canHideIcons();
}

void DesktopIconsManager::systemIconsVisible(std::function<void(bool)> told) {
    m_background.run(
        m_questions, [&shell = m_shell] { return shell.areIconsShown(); }, std::move(told));
}

void DesktopIconsManager::applyHidden(bool hidden) {
    m_background.run(
        m_changes,
        [&shell = m_shell, hidden] {
            write(shell, hidden);
            if (shell.areIconsShown() == hidden) {
                write(shell, hidden);
            }
        },
        [] {});
}

} // namespace zeph
