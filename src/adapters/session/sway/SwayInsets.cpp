// SPDX-License-Identifier: MIT
#include "adapters/session/sway/SwayInsets.h"

#include "adapters/session/sway/SwayWorkspaceList.h"

#include <utility>

namespace zeph {

std::optional<QRectF> SwayInsets::usableArea(const QString &outputName) {
    for (const SwayWorkspaceFacts &workspace : m_workspaces.all()) {
        // One that was just made has no area yet.
        if (workspace.isVisible && workspace.output == outputName && !workspace.area.isEmpty()) {
            return QRectF(workspace.area);
        }
    }
    return std::nullopt;
}

Subscription SwayInsets::subscribe(std::function<void()> handler) {
    return m_workspaces.subscribe(std::move(handler));
}

} // namespace zeph
