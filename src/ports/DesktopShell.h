// SPDX-License-Identifier: MIT
#pragma once

#include "ports/Port.h"

namespace zeph {

/// The desktop's own setting of whether icons are shown on the desktop. Each call may take as long
/// as the desktop's tool does, so none is made on the main thread.
class DesktopShell : public Port {
public:
    /// False where the desktop has no such setting; then the others do nothing.
    virtual bool canHideIcons() const = 0;

    /// True also where the setting can't be read.
    virtual bool areIconsShown() const = 0;

    virtual void setIconsShown(bool areShown) = 0;

    /// Has the desktop read its setting again.
    virtual void relaunch() = 0;
};

} // namespace zeph
