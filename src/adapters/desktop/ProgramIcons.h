// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/desktop/X11DesktopLook.h"
#include "ports/DesktopShell.h"

#include <QByteArray>
#include <QStringList>

#include <chrono>
#include <functional>

namespace zeph {

/// A file manager that draws the desktop with its icons while it is told to.
struct DesktopProgram {
    QString desktop; ///< `DesktopShell::name`
    QString program;
    QString profile;           ///< its set of settings, unless it runs with another one
    QByteArray windowInstance; ///< of the WM_CLASS of its desktop window
};

DesktopProgram lxdeDesktop();
DesktopProgram lxqtDesktop();

/// The profile in a program's command line, of which each word ends with a zero; empty without one,
/// or when it is no plain name.
QString profileIn(const QByteArray &commandLine);

/// The icons of a desktop that has no setting for them: its program draws the desktop or does not,
/// until the session ends. So with the next session they are hidden anew. The setting's value is
/// the program's profile.
class ProgramIcons : public DesktopShell {
public:
    /// Whether a window of that instance is a desktop; absent where nobody can tell.
    using Look = std::function<std::optional<DesktopLook>(const QByteArray &instance)>;

    /// Has a handler called on the main thread when the desktop's programs may have come or gone.
    using Notices = std::function<Subscription(std::function<void()> handler)>;

    /// `patience` is how long `relaunch` waits for the program to follow; without `notices` nobody
    /// is told of its coming.
    ProgramIcons(DesktopProgram program, Look look, std::chrono::milliseconds patience,
                 Notices notices = {});

    bool canHideIcons() const override { return m_isInstalled; }
    QString name() const override { return m_program.desktop; }
    bool hidesUnread() const override { return true; }
    std::optional<IconSetting> iconSetting() const override;
    ShellOutcome hideIcons() override;
    ShellOutcome showIcons(const QString &earlier) override;
    ShellOutcome relaunch() override;
    [[nodiscard]] Subscription subscribeToDrawer(const std::function<void()> &handler) override;

private:
    const DesktopProgram m_program;
    const Look m_look;
    const std::chrono::milliseconds m_patience;
    const Notices m_notices;
    const bool m_isInstalled;
    bool m_wantsIcons = false; // the last change; changes come one after the other
};

} // namespace zeph
