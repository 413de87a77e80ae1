// SPDX-License-Identifier: MIT
#pragma once

#include "ports/Port.h"

#include <optional>

namespace zeph {

/// A desktop's own switch for do-not-disturb. Served from its last word; never blocks. Main thread
/// only.
class QuietSwitch : public Port {
public:
    /// Absent while the desktop has not told, and for good when it has no such switch.
    virtual std::optional<bool> isQuiet() const = 0;
};

} // namespace zeph
