// SPDX-License-Identifier: MIT
#pragma once

#include "ports/Clock.h"

namespace zeph {

/// The system's wall clock.
class SystemClock : public Clock {
public:
    Date now() const override;
};

} // namespace zeph
