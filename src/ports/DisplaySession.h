// SPDX-License-Identifier: MIT
#pragma once

#include "ports/Port.h"

#include <QString>

#include <chrono>
#include <memory>

namespace zeph {

class DesktopWallpaper;
class InputEvents;
class Screens;
class VirtualDesktops;
class WindowServer;
class Workspace;

/// What one display system (an X server, a Wayland compositor) offers of the user's session. All
/// of it comes from the same connection, and ends with it. Main thread only.
class DisplaySession : public Port {
public:
    virtual Screens &screens() = 0;
    virtual WindowServer &windowServer() = 0;
    virtual Workspace &workspace() = 0;
    virtual InputEvents &inputEvents() = 0;
    virtual VirtualDesktops &virtualDesktops() = 0;

    /// Null where the desktop has no wallpaper that ours could take the place of.
    virtual DesktopWallpaper *desktopWallpaper() { return nullptr; }

    /// The program is about to end, while its surfaces are still there: the desktop is to look well
    /// without it. Waits for what that takes, no longer than `patience`.
    virtual void leave(std::chrono::milliseconds patience) { static_cast<void>(patience); }
};

/// A session, or why there is none.
struct OpenedSession {
    std::unique_ptr<DisplaySession> session;
    QString refusal; ///< what to tell the user where `session` is null
};

} // namespace zeph
