// SPDX-License-Identifier: MIT
#include "host/DesktopIconsManager.h"

#include "base/Background.h"
#include "base/Log.h"
#include "host/EarlierIcons.h"
#include "ports/DesktopShell.h"

namespace zeph {

namespace {

/// Whether the icons are as the user wants them. Where what would draw them is off, it is missed
/// only if it went off by `hideIcons`, which `keepsEarlier` tells.
bool areAsWanted(const std::optional<IconSetting> &setting, bool hidden, bool keepsEarlier) {
    if (!setting) {
        return !hidden;
    }
    switch (setting->drawer) {
    case IconDrawer::there:
        return setting->areShown != hidden;
    case IconDrawer::off:
        return hidden || !keepsEarlier;
    case IconDrawer::none:
        break;
    }
    return true;
}

/// Whether nothing is there that would draw icons or should, so that there is nothing to change.
bool isNothingMissed(const std::optional<IconSetting> &setting, bool hidden, bool keepsEarlier) {
    return setting && setting->drawer != IconDrawer::there &&
           areAsWanted(setting, hidden, keepsEarlier);
}

/// Keeps the setting that icons are shown by now. What is hidden or can't be read says nothing of
/// it, and must not take the place of what was kept before. False where hiding them would lose it.
bool keepEarlier(const DesktopShell &shell, const std::optional<IconSetting> &setting,
                 EarlierIcons &earlier) {
    const auto kept = earlier.of(shell.name());
    if (setting && setting->areShown) {
        return earlier.keep(shell.name(),
                            kept ? shell.mergedValue(*kept, setting->value) : setting->value);
    }
    if (setting) {
        return true;
    }
    return shell.hidesUnread() && (kept || earlier.keep(shell.name(), {}));
}

ShellOutcome write(DesktopShell &shell, const EarlierIcons &earlier, bool hidden) {
    const ShellOutcome written =
        hidden ? shell.hideIcons() : shell.showIcons(earlier.of(shell.name()).value_or(QString()));
    const ShellOutcome followed = shell.relaunch();
    return written == ShellOutcome::done ? followed : written;
}

/// On a thread of the pool; one change at a time. Answers whether the icons have to stay.
bool apply(DesktopShell &shell, EarlierIcons earlier, bool hidden) {
    const auto isAsWanted = [&](const std::optional<IconSetting> &setting) {
        return areAsWanted(setting, hidden, earlier.of(shell.name()).has_value());
    };
    const auto setting = shell.iconSetting();
    if (isNothingMissed(setting, hidden, earlier.of(shell.name()).has_value())) {
        return false;
    }
    if (hidden && !keepEarlier(shell, setting, earlier)) {
        qCInfo(logSystem) << "the desktop's icons stay, since its setting could not be kept";
        return true;
    }
    ShellOutcome outcome = write(shell, earlier, hidden);
    bool isDone = isAsWanted(shell.iconSetting());
    if (!isDone) {
        outcome = write(shell, earlier, hidden);
        isDone = isAsWanted(shell.iconSetting());
    }
    if (!hidden && isDone && outcome == ShellOutcome::done) {
        earlier.forget(shell.name());
    }
    if (!isDone || outcome != ShellOutcome::done) {
        qCInfo(logSystem) << "the desktop did not take a change of its icons";
    }
    return false;
}

} // namespace

DesktopIconsManager::DesktopIconsManager(DesktopShell &shell, UserDefaults &defaults,
                                         const Background &background)
    : m_shell(shell), m_defaults(defaults), m_background(background) {}

bool DesktopIconsManager::canHide() const {
    return m_shell.canHideIcons();
}

bool DesktopIconsManager::keepsEarlier() const {
    return EarlierIcons(m_defaults).of(m_shell.name()).has_value();
}

bool DesktopIconsManager::keepsAny() const {
    return !EarlierIcons(m_defaults).isEmpty();
}

void DesktopIconsManager::systemIconsVisible(std::function<void(bool)> told) {
    m_background.run(
        m_questions,
        [&shell = m_shell, &defaults = m_defaults] {
            const bool keepsEarlier = EarlierIcons(defaults).of(shell.name()).has_value();
            return areAsWanted(shell.iconSetting(), false, keepsEarlier);
        },
        std::move(told));
}

void DesktopIconsManager::applyHidden(bool hidden, std::function<void(bool)> told) {
    m_background.run(
        m_changes,
        [&shell = m_shell, &defaults = m_defaults, hidden] {
            return apply(shell, EarlierIcons(defaults), hidden);
        },
        std::move(told));
}

} // namespace zeph
