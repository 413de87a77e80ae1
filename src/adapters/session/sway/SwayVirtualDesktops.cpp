// SPDX-License-Identifier: MIT
#include "adapters/session/sway/SwayVirtualDesktops.h"

#include "adapters/session/sway/SwayWorkspaceList.h"

#include <algorithm>
#include <utility>

namespace zeph {

SwayVirtualDesktops::SwayVirtualDesktops(SwayWorkspaceList &workspaces, Identify identify)
    : m_workspaces(workspaces), m_identify(std::move(identify)) {}

std::vector<ManagedDisplay> SwayVirtualDesktops::managedDisplays() const {
    std::vector<ManagedDisplay> displays;
    std::vector<QString> outputs; // of the displays
    for (const SwayWorkspaceFacts &workspace : m_workspaces.all()) {
        const auto known = std::find(outputs.begin(), outputs.end(), workspace.output);
        const auto index = static_cast<std::size_t>(known - outputs.begin());
        if (known == outputs.end()) {
            outputs.push_back(workspace.output);
            displays.emplace_back().identifier = m_identify(workspace.output);
        }
        ManagedDisplay &display = displays[index];
        display.spaces.push_back({.id = workspace.id, .name = workspace.name});
        if (workspace.isVisible) {
            display.currentSpace = workspace.id;
        }
    }
    return displays;
}

Subscription SwayVirtualDesktops::subscribe(std::function<void()> handler) {
    return m_workspaces.subscribe(std::move(handler));
}

} // namespace zeph
