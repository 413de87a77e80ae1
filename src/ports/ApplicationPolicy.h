// SPDX-License-Identifier: MIT
#pragma once

#include "ports/Port.h"

class QWindow;

namespace zeph {

/// Whether the program's own windows count as an application's for task bars and window switchers.
enum class ActivationPolicy {
    regular,   ///< they are listed like those of any application
    accessory, ///< they are not listed: the tray leads to them
};

/// What the program is to the desktop beside its wallpaper. Main thread only; nothing here waits.
class ApplicationPolicy : public Port {
public:
    /// Applies to the windows that are there and to all that come.
    virtual void setActivationPolicy(ActivationPolicy policy) = 0;

    /// Brings `window` in front of all others and gives it the keyboard, for an action of the
    /// user. The program's other windows stay where they are; one that is hidden stays so.
    virtual void activate(QWindow &window) = 0;
};

} // namespace zeph
