// SPDX-License-Identifier: MIT
#pragma once

namespace zeph {

/// Where a window is shown.
enum class SpaceBehavior {
    allSpaces, ///< on every workspace, without further ado
    pinned,    ///< on some, see `SpacesManager`
};

/// A window that can be kept to some workspaces.
class SpaceWindow {
public:
    SpaceWindow() = default;
    virtual ~SpaceWindow() = default;
    SpaceWindow(const SpaceWindow &) = delete;
    SpaceWindow &operator=(const SpaceWindow &) = delete;

    virtual int windowNumber() const = 0; ///< no other window of this process ever has the same

    virtual SpaceBehavior spaceBehavior() const = 0;
    virtual void setSpaceBehavior(SpaceBehavior behavior) = 0;

    /// Whether it was ordered front, and not out since.
    virtual bool isVisible() const = 0;

    /// Puts the window on its screen; no application loses focus.
    virtual void orderFrontRegardless() = 0;
    virtual void orderOut() = 0;
};

} // namespace zeph
