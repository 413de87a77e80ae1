// SPDX-License-Identifier: MIT
#pragma once

#include "base/Date.h"
#include "ports/Port.h"

namespace zeph {

/// The wall clock. It may jump either way when the user or the network sets it.
class Clock : public Port {
public:
    virtual Date now() const = 0;
};

} // namespace zeph
