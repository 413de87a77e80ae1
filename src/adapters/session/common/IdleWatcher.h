// SPDX-License-Identifier: MIT
#pragma once

#include "ports/Port.h"

#include <chrono>
#include <memory>

namespace zeph {

/// Tells whether there was no input for some time; its end ends the watch.
class IdleWatch : public Port {
public:
    /// Costs nothing. False until the desktop has told.
    virtual bool isQuiet() const = 0;
};

/// Has the desktop itself watch for a time without input, so that nobody asks in between.
class IdleWatcher : public Port {
public:
    /// Quiet is once the last input of any kind is `limit` ago, until the next one. Null where the
    /// desktop has no such thing.
    virtual std::unique_ptr<IdleWatch> watch(std::chrono::milliseconds limit) = 0;
};

} // namespace zeph
