// SPDX-License-Identifier: MIT
#pragma once

#include "base/ChangePublisher.h"
#include "ports/Port.h"

#include <QString>

#include <functional>
#include <optional>

namespace zeph {

/// An application as the desktop knows it. `bundleIdentifier` is the desktop-entry id, else the
/// window class; `bundlePath` the desktop entry's file, from which an icon can be found.
struct RunningApplication {
    std::optional<QString> bundleIdentifier;
    std::optional<QString> localizedName;
    std::optional<QString> bundlePath;

    bool operator==(const RunningApplication &) const = default;
};

/// The application in front of the user's session. Workspaces that one switches between are
/// `VirtualDesktops`.
class Workspace : public Port {
public:
    /// Absent when no application has the foreground. Asked once a second; must not block.
    virtual std::optional<RunningApplication> frontmostApplication() const = 0;

    /// Calls `handler` on the main thread whenever another application comes to the front, until
    /// the subscription ends.
    [[nodiscard]] virtual Subscription
    subscribeToActivations(std::function<void(const RunningApplication &)> handler) = 0;
};

} // namespace zeph
