// SPDX-License-Identifier: MIT
#pragma once

#include "ports/Port.h"

namespace zeph {

class InputEvents;
class UsableAreas;
class VirtualDesktops;
class Workspace;

/// What the Wayland protocol leaves to each desktop to tell in a way of its own.
class SessionParts : public Port {
public:
    virtual Workspace &workspace() = 0;
    virtual InputEvents &inputEvents() = 0;
    virtual VirtualDesktops &virtualDesktops() = 0;

    /// What panels leave of the displays; null where the desktop does not tell.
    virtual UsableAreas *usableAreas() = 0;
};

} // namespace zeph
