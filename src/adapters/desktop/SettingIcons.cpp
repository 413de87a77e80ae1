// SPDX-License-Identifier: MIT
#include "adapters/desktop/SettingIcons.h"

#include "adapters/desktop/NemoLayout.h"
#include "adapters/desktop/RunTool.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

/// Stands for a setting that nobody wrote yet.
const QString absentValue = u"absent"_s;

/// Values as the tool prints them, which it takes back as they are.
IconTool desktopSetting(const QString &desktop, const QString &desktopProgram,
                        const QString &schema, const QString &key, const QString &hidden,
                        const QStringList &shown) {
    return {.desktop = desktop,
            .desktopProgram = desktopProgram,
            .program = u"gsettings"_s,
            .read = {u"get"_s, schema, key},
            .write = {u"set"_s, schema, key},
            .hiddenValue = hidden,
            .shownValues = shown};
}

} // namespace

/// The styles: 0 for none, 1 for minimised windows, 2 for files, which is the one without a choice.
IconTool xfceIcons() {
    const QStringList property{u"--channel"_s, u"xfce4-desktop"_s, u"--property"_s,
                               u"/desktop-icons/style"_s};
    return {.desktop = u"xfce"_s,
            .desktopProgram = u"xfdesktop"_s,
            .program = u"xfconf-query"_s,
            .read = property,
            .write = property + QStringList{u"--create"_s, u"--type"_s, u"int"_s, u"--set"_s},
            .hiddenValue = u"0"_s,
            .shownValues = {u"2"_s, u"1"_s, u"3"_s},
            .reset = property + QStringList{u"--reset"_s},
            .absentError = u"does not exist"_s,
            .isServed = {u"--list"_s}};
}

/// Whether they are on the first monitor, and whether on the others. Another setting,
/// "show-desktop-icons", has no effect on files any more.
IconTool cinnamonIcons() {
    return desktopSetting(u"cinnamon"_s, u"nemo-desktop"_s, nemoDesktopSchema, nemoLayoutKey,
                          u"'false::false'"_s,
                          {u"'true::false'"_s, u"'true::true'"_s, u"'false::true'"_s});
}

/// Without icons the file manager has no window left, and may have ended.
IconTool mateIcons() {
    IconTool tool = desktopSetting(u"mate"_s, u"caja"_s, u"org.mate.background"_s,
                                   u"show-desktop-icons"_s, u"false"_s, {u"true"_s});
    tool.drawsAgain = {u"--no-default-window"_s};
    return tool;
}

SettingIcons::SettingIcons(IconTool tool)
    : m_tool(std::move(tool)),
      m_isInstalled(isProgramThere(m_tool.program) && isProgramThere(m_tool.desktopProgram)) {}

std::optional<IconSetting> SettingIcons::iconSetting() const {
    const auto answer = m_isInstalled ? runTool(m_tool.program, m_tool.read) : std::nullopt;
    if (!answer) {
        return std::nullopt;
    }
    if (answer->exitCode == 0) {
        return IconSetting{answer->output != m_tool.hiddenValue, inUsualWords(answer->output)};
    }
    const bool isAbsent =
        !m_tool.absentError.isEmpty() && answer->errors.contains(m_tool.absentError) && isServed();
    return isAbsent ? std::optional(IconSetting{true, absentValue}) : std::nullopt;
}

bool SettingIcons::isServed() const {
    const auto answer = runTool(m_tool.program, m_tool.isServed);
    return answer && answer->exitCode == 0;
}

ShellOutcome SettingIcons::hideIcons() {
    m_wantsIcons = false;
    return run(m_tool.write + QStringList{m_tool.hiddenValue});
}

ShellOutcome SettingIcons::showIcons(const QString &earlier) {
    m_wantsIcons = true;
    if (const auto now = iconSetting(); now && now->areShown) {
        return ShellOutcome::done;
    }
    if (earlier == absentValue && !m_tool.reset.isEmpty()) {
        return run(m_tool.reset);
    }
    const bool isKnown = m_tool.shownValues.contains(earlier);
    return run(m_tool.write + QStringList{isKnown ? earlier : m_tool.shownValues.front()});
}

ShellOutcome SettingIcons::relaunch() {
    if (!m_isInstalled) {
        return ShellOutcome::unavailable;
    }
    if (m_wantsIcons && !m_tool.drawsAgain.isEmpty()) {
        return startTool(m_tool.desktopProgram, m_tool.drawsAgain) ? ShellOutcome::done
                                                                   : ShellOutcome::refused;
    }
    return ShellOutcome::done;
}

ShellOutcome SettingIcons::run(const QStringList &arguments) const {
    if (!m_isInstalled) {
        return ShellOutcome::unavailable;
    }
    const auto answer = runTool(m_tool.program, arguments);
    return answer && answer->exitCode == 0 ? ShellOutcome::done : ShellOutcome::refused;
}

} // namespace zeph
