// SPDX-License-Identifier: MIT
#pragma once

#include "base/ChangePublisher.h"
#include "ports/Port.h"

#include <QString>

#include <functional>
#include <vector>

namespace zeph {

/// One workspace of the desktop.
struct VirtualDesktop {
    int number = 1;    ///< from 1 on, in the desktop's order
    QString name = {}; ///< empty where the desktop gives none
    bool isCurrent = false;

    bool operator==(const VirtualDesktop &) const = default;
};

/// The workspaces of the session; main thread only.
class VirtualDesktops : public Port {
public:
    /// All of them, in order; empty where the desktop has no such thing.
    virtual std::vector<VirtualDesktop> all() const = 0;

    /// Calls `handler` on the main thread after workspaces were added, removed or renamed, or
    /// another one became current, until the subscription ends.
    [[nodiscard]] virtual Subscription subscribe(std::function<void()> handler) = 0;
};

} // namespace zeph
