// SPDX-License-Identifier: MIT
#include "host/DesktopIconsManager.h"

#include "base/Background.h"
#include "base/Log.h"
#include "ports/DesktopShell.h"
#include "ports/UserDefaults.h"

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

const QString earlierKey = u"zeph.desktop.earlierIcons"_s;

bool areVisible(const DesktopShell &shell) {
    const auto setting = shell.iconSetting();
    return !setting || setting->areShown;
}

/// Keeps the setting that icons are shown by now. What is hidden or can't be read says nothing of
/// it, and must not take the place of what was kept before.
void keepEarlier(const DesktopShell &shell, UserDefaults &defaults) {
    const auto setting = shell.iconSetting();
    if (setting && setting->areShown) {
        defaults.set(earlierKey, setting->value);
    } else if (!setting && !defaults.contains(earlierKey)) {
        defaults.set(earlierKey, QString());
    }
}

ShellOutcome write(DesktopShell &shell, const UserDefaults &defaults, bool hidden) {
    const ShellOutcome written =
        hidden ? shell.hideIcons()
               : shell.showIcons(defaults.get<QString>(earlierKey).value_or(QString()));
    const ShellOutcome followed = shell.relaunch();
    return written == ShellOutcome::done ? followed : written;
}

/// On a thread of the pool; one change at a time.
void apply(DesktopShell &shell, UserDefaults &defaults, bool hidden) {
    if (hidden) {
        keepEarlier(shell, defaults);
    }
    ShellOutcome outcome = write(shell, defaults, hidden);
    bool isAsWanted = areVisible(shell) != hidden;
    if (!isAsWanted) {
        outcome = write(shell, defaults, hidden);
        isAsWanted = areVisible(shell) != hidden;
    }
    if (!hidden && isAsWanted && outcome == ShellOutcome::done) {
        defaults.remove(earlierKey);
    }
    if (!isAsWanted || outcome != ShellOutcome::done) {
        qCInfo(logSystem) << "the desktop did not take a change of its icons";
    }
}

} // namespace

DesktopIconsManager::DesktopIconsManager(DesktopShell &shell, UserDefaults &defaults,
                                         const Background &background)
    : m_shell(shell), m_defaults(defaults), m_background(background) {}

bool DesktopIconsManager::canHide() const {
    return m_shell.canHideIcons();
}

void DesktopIconsManager::systemIconsVisible(std::function<void(bool)> told) {
    m_background.run(
        m_questions, [&shell = m_shell] { return areVisible(shell); }, std::move(told));
}

void DesktopIconsManager::applyHidden(bool hidden) {
    m_background.run(
        m_changes,
        [&shell = m_shell, &defaults = m_defaults, hidden] { apply(shell, defaults, hidden); },
        [] {});
}

} // namespace zeph
