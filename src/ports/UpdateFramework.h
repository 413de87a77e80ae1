// SPDX-License-Identifier: MIT
#pragma once

#include "base/ChangePublisher.h"
#include "ports/Port.h"

#include <QString>

#include <functional>

namespace zeph {

/// Where the search for a newer version of the program stands.
struct UpdateStatus {
    enum class Phase {
        idle,     ///< nobody asked yet
        checking, ///< `progress` tells how far
        upToDate,
        available,   ///< `version` can be installed
        installing,  ///< `progress` tells how far
        installed,   ///< `version` runs from the next start on
        notPackaged, ///< this program was built from a clone, so that no package can replace it
        sandboxed,   ///< the store that the sandbox came from brings newer versions
        noService,   ///< the system has nobody to ask
        failed,      ///< `problem` tells why
        refused,     ///< the user did not allow the installation
    };

    Phase phase = Phase::idle;
    QString version = {};
    QString problem = {}; ///< one sentence
    int progress = -1;    ///< percent, -1 while it is not known

    bool operator==(const UpdateStatus &) const = default;
};

/// Finds and installs newer versions of the program. Main thread only; nothing here waits.
class UpdateFramework : public Port {
public:
    virtual const UpdateStatus &status() const = 0;

    /// Calls `handler` after every change of the status, until the subscription ends.
    [[nodiscard]] virtual Subscription subscribe(std::function<void()> handler) = 0;

    /// Asks for a newer version, unless that is under way.
    virtual void checkForUpdates() = 0;

    /// Installs the version that was found; nothing while there is none.
    virtual void install() = 0;

    /// Ends the search or the installation where it can still be ended.
    virtual void cancel() = 0;
};

} // namespace zeph
