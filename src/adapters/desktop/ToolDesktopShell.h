// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/desktop/IconTool.h"
#include "ports/DesktopShell.h"

#include <memory>

namespace zeph {

/// The icons of a desktop by its settings' own tool.
class ToolDesktopShell : public DesktopShell {
public:
    explicit ToolDesktopShell(IconTool tool);

    bool canHideIcons() const override { return m_isInstalled; }
    bool areIconsShown() const override;
    void setIconsShown(bool areShown) override;

    /// These desktops follow their setting by themselves.
    void relaunch() override {}

private:
    const IconTool m_tool;
    const bool m_isInstalled;
};

/// That of the desktop in XDG_CURRENT_DESKTOP.
std::unique_ptr<DesktopShell> makeDesktopShell(const QString &currentDesktop);

} // namespace zeph
