// SPDX-License-Identifier: MIT
#pragma once

#include "base/ChangePublisher.h"
#include "ports/Port.h"

#include <QString>

#include <functional>
#include <optional>
#include <vector>

namespace zeph {

/// One workspace of a display. Not regular: one that people can't choose, such as a full-screen
/// one.
struct ManagedSpace {
    quint64 id = 0;    ///< the same for as long as the workspace is there
    QString name = {}; ///< empty where the desktop gives none
    bool isRegular = true;

    bool operator==(const ManagedSpace &) const = default;
};

/// A display and its workspaces, in the desktop's order. Where displays share their workspaces
/// there is one, whose identifier is no display's.
struct ManagedDisplay {
    QString identifier = {}; ///< `Screen::persistentID` where each display has its own workspaces
    std::optional<quint64> currentSpace; ///< absent when the desktop doesn't tell
    std::vector<ManagedSpace> spaces;

    bool operator==(const ManagedDisplay &) const = default;
};

/// The workspaces of the session; main thread only.
class VirtualDesktops : public Port {
public:
    /// All of them; empty where the desktop has no such thing, or has not told of it yet.
    virtual std::vector<ManagedDisplay> managedDisplays() const = 0;

    /// Calls `handler` on the main thread after workspaces were added, removed or renamed, or
    /// another one became current, until the subscription ends.
    [[nodiscard]] virtual Subscription subscribe(std::function<void()> handler) = 0;
};

} // namespace zeph
