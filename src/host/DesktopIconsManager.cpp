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

/// Whether the icons are as the user wants them. Where what would draw them is off, it is missed
/// only if it went off by `hideIcons`.
bool areAsWanted(const std::optional<IconSetting> &setting, bool hidden,
                 const UserDefaults &defaults) {
    if (!setting) {
        return !hidden;
    }
    switch (setting->drawer) {
    case IconDrawer::there:
        return setting->areShown != hidden;
    case IconDrawer::off:
        return hidden || !defaults.contains(earlierKey);
    case IconDrawer::none:
        break;
    }
    return true;
}

/// Whether nothing is there that would draw icons or should, so that there is nothing to change.
bool isNothingMissed(const std::optional<IconSetting> &setting, bool hidden,
                     const UserDefaults &defaults) {
    return setting && setting->drawer != IconDrawer::there &&
           areAsWanted(setting, hidden, defaults);
}

/// Keeps the setting that icons are shown by now. What is hidden or can't be read says nothing of
/// it, and must not take the place of what was kept before.
void keepEarlier(const DesktopShell &shell, const std::optional<IconSetting> &setting,
                 UserDefaults &defaults) {
    if (setting && setting->areShown) {
        const auto kept = defaults.get<QString>(earlierKey);
        defaults.set(earlierKey, kept ? shell.mergedValue(*kept, setting->value) : setting->value);
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
    const auto setting = shell.iconSetting();
    if (isNothingMissed(setting, hidden, defaults)) {
        return;
    }
    if (hidden) {
        keepEarlier(shell, setting, defaults);
    }
    ShellOutcome outcome = write(shell, defaults, hidden);
    bool isAsWanted = areAsWanted(shell.iconSetting(), hidden, defaults);
    if (!isAsWanted) {
        outcome = write(shell, defaults, hidden);
        isAsWanted = areAsWanted(shell.iconSetting(), hidden, defaults);
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

bool DesktopIconsManager::keepsEarlier() const {
    return m_defaults.contains(earlierKey);
}

void DesktopIconsManager::systemIconsVisible(std::function<void(bool)> told) {
    m_background.run(
        m_questions,
        [&shell = m_shell, &defaults = m_defaults] {
            return areAsWanted(shell.iconSetting(), false, defaults);
        },
        std::move(told));
}

void DesktopIconsManager::applyHidden(bool hidden) {
    m_background.run(
        m_changes,
        [&shell = m_shell, &defaults = m_defaults, hidden] { apply(shell, defaults, hidden); },
        [] {});
}

} // namespace zeph
