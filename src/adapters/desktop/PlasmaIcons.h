// SPDX-License-Identifier: MIT
#pragma once

#include "ports/DesktopShell.h"

#include <QDBusConnection>

namespace zeph {

/// The icons of Plasma, which has no switch for them: each desktop that shows a folder gets a
/// filter that nothing passes. The filters that the user had are the setting's value.
class PlasmaIcons : public DesktopShell {
public:
    /// `bus` is the session bus.
    explicit PlasmaIcons(QDBusConnection bus);

    bool canHideIcons() const override { return m_isInstalled; }
    QString name() const override { return QStringLiteral("plasma"); }
    std::optional<IconSetting> iconSetting() const override;
    /// The filters of all desktops in either, the later one's where a desktop is in both.
    QString mergedValue(const QString &earlier, const QString &later) const override;

    ShellOutcome hideIcons() override;
    ShellOutcome showIcons(const QString &earlier) override;

    /// The shell was told with the change itself.
    ShellOutcome relaunch() override;

private:
    QDBusMessage evaluate(const QString &script) const;

    QDBusConnection m_bus;
    const bool m_isInstalled;
};

} // namespace zeph
