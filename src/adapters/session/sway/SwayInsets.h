// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/session/common/UsableAreas.h"

namespace zeph {

class SwayWorkspaceList;

/// What bars leave of each output: sway lays the workspace that an output shows out in just that.
class SwayInsets : public UsableAreas {
public:
    /// `workspaces` outlives this.
    explicit SwayInsets(SwayWorkspaceList &workspaces) : m_workspaces(workspaces) {}

    std::optional<QRectF> usableArea(const QString &outputName) override;
    [[nodiscard]] Subscription subscribe(std::function<void()> handler) override;

private:
    SwayWorkspaceList &m_workspaces;
};

} // namespace zeph
