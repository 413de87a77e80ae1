// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/session/common/UsableAreas.h"

namespace zeph {

class SwayIpc;
class SwayWorkspaceList;

/// What bars leave of each output: sway lays the workspace that an output shows out in just that.
class SwayInsets : public UsableAreas {
public:
    /// Both outlive this.
    SwayInsets(SwayIpc &ipc, SwayWorkspaceList &workspaces);

    std::optional<QRectF> usableArea(const QString &outputName, const QRectF &frame) override;
    bool laterLieBelow() const override { return m_laterLieBelow; }
    [[nodiscard]] Subscription subscribe(std::function<void()> handler) override;

private:
    void askVersion();

    SwayIpc &m_ipc;
    SwayWorkspaceList &m_workspaces;
    bool m_laterLieBelow = false;
    Subscription m_starts;
};

} // namespace zeph
