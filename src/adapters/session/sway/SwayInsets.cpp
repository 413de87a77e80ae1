// SPDX-License-Identifier: MIT
#include "adapters/session/sway/SwayInsets.h"

#include "adapters/session/sway/SwayAnswers.h"
#include "adapters/session/sway/SwayIpc.h"
#include "adapters/session/sway/SwayWorkspaceList.h"

#include <utility>

namespace zeph {

SwayInsets::SwayInsets(SwayIpc &ipc, SwayWorkspaceList &workspaces)
    : m_ipc(ipc),
      m_workspaces(workspaces),
      m_starts(ipc.subscribeToStart([this] { askVersion(); })) {
    askVersion();
}

void SwayInsets::askVersion() {
    m_ipc.ask(SwayRequest::version, [this](const QByteArray &payload) {
        m_laterLieBelow = swayLaterLieBelowIn(payload).value_or(false);
    });
}

std::optional<QRectF> SwayInsets::usableArea(const QString &outputName, const QRectF & /*frame*/) {
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
