// SPDX-License-Identifier: MIT
#pragma once

#include "ports/VirtualDesktops.h"

namespace zeph {

class SwayWorkspaceList;

/// The workspaces of sway, of which each output has its own.
class SwayVirtualDesktops : public VirtualDesktops {
public:
    /// The `Screen::persistentID` of the output with a name of sway's; empty for one that is no
    /// screen.
    using Identify = std::function<QString(const QString &outputName)>;

    /// `workspaces` outlives this.
    SwayVirtualDesktops(SwayWorkspaceList &workspaces, Identify identify);

    std::vector<ManagedDisplay> managedDisplays() const override;
    [[nodiscard]] Subscription subscribe(std::function<void()> handler) override;

private:
    SwayWorkspaceList &m_workspaces;
    Identify m_identify;
};

} // namespace zeph
