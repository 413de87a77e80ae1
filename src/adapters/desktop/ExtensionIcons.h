// SPDX-License-Identifier: MIT
#pragma once

#include "ports/DesktopShell.h"

#include <QStringList>

namespace zeph {

/// The icons of GNOME, which come by an extension of its shell: they are hidden by switching it
/// off.
class ExtensionIcons : public DesktopShell {
public:
    /// `dataFolders` are those of XDG_DATA_HOME and XDG_DATA_DIRS, which tell what is installed.
    explicit ExtensionIcons(const QStringList &dataFolders);

    bool canHideIcons() const override { return !m_installed.isEmpty(); }
    QString name() const override { return QStringLiteral("gnome"); }
    std::optional<IconSetting> iconSetting() const override;
    ShellOutcome hideIcons() override;
    ShellOutcome showIcons(const QString &earlier) override;

    /// The shell follows by itself.
    ShellOutcome relaunch() override;

private:
    ShellOutcome run(const QString &command, const QStringList &extensions) const;

    const QStringList m_installed; // of those that draw icons; none without the shell's tool
};

} // namespace zeph
