// SPDX-License-Identifier: MIT
#pragma once

#include "ports/DesktopShell.h"

#include <QStringList>

namespace zeph {

/// A setting of a desktop's icons, as the desktop's own tool reads and writes it.
struct IconTool {
    QString desktop;        ///< `DesktopShell::name`
    QString desktopProgram; ///< that draws the icons
    QString program;        ///< the tool
    QStringList read;
    QStringList write; ///< before the value
    QString hiddenValue;
    QStringList shownValues;     ///< the first is the one for whoever had none
    QStringList reset = {};      ///< makes a setting that was not there absent again
    QString absentError = {};    ///< what the tool says of one that is not there
    QStringList isServed = {};   ///< fails where nobody keeps settings: all seem absent then
    QStringList drawsAgain = {}; ///< has a desktop program that ended draw icons again
};

IconTool xfceIcons();
IconTool cinnamonIcons();
IconTool mateIcons();

/// The icons of a desktop that keeps a setting for them and follows it by itself.
class SettingIcons : public DesktopShell {
public:
    explicit SettingIcons(IconTool tool);

    bool canHideIcons() const override { return m_isInstalled; }
    QString name() const override { return m_tool.desktop; }
    std::optional<IconSetting> iconSetting() const override;
    ShellOutcome hideIcons() override;
    ShellOutcome showIcons(const QString &earlier) override;
    ShellOutcome relaunch() override;

private:
    bool isServed() const;
    ShellOutcome run(const QStringList &arguments) const;

    const IconTool m_tool;
    const bool m_isInstalled;
    bool m_wantsIcons = false; // the last change; changes come one after the other
};

} // namespace zeph
