// SPDX-License-Identifier: MIT
#pragma once

#include "ports/Port.h"

#include <QString>

#include <functional>
#include <optional>

namespace zeph {

/// The start of the program with the user's session. Main thread only.
class LoginItem : public Port {
public:
    /// Whether the program is started with the session, as far as that can be read.
    virtual bool isEnabled() const = 0;

    /// Has the program started with the session, or no longer. `done` runs on the main thread, with
    /// why it failed, absent where it didn't. It may run within the call.
    virtual void setEnabled(bool enabled,
                            std::function<void(const std::optional<QString> &error)> done) = 0;

    /// Has the session start this program where it is to start a copy of it that is gone, such as
    /// one that was moved. What starts another copy, or was switched off, stays. `done` as above.
    virtual void renew(std::function<void(const std::optional<QString> &error)> done) = 0;
};

} // namespace zeph
