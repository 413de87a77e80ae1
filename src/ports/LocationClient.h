// SPDX-License-Identifier: MIT
#pragma once

#include "base/ChangePublisher.h"
#include "base/Coordinate.h"
#include "ports/Port.h"

#include <vector>

namespace zeph {

/// Permission to know where the machine is; the numbers are part of the stored and shown state.
enum class LocationAuthorization { notDetermined = 0, restricted = 1, denied = 2, authorized = 3 };

/// What keeps the true position away, whatever the user allowed.
enum class LocationHindrance {
    none,      ///< nothing that is known of
    refused,   ///< the system's location service refused
    noAgent,   ///< the service waits for the desktop's agent, which there is none of
    noService, ///< the system has no location service
};

/// What a location client tells; called on the main thread.
class LocationClientDelegate : public Port {
public:
    virtual void authorizationChanged(LocationAuthorization status) = 0;
    /// The fixes of one answer, oldest first; can be empty.
    virtual void locationsUpdated(const std::vector<Coordinate> &fixes) = 0;
    virtual void locationFailed() = 0;
};

/// A coarse, one-shot position: no finer than a town.
class LocationClient : public Port {
public:
    /// Tells `delegate`, as others, until the subscription ends.
    [[nodiscard]] virtual Subscription subscribe(LocationClientDelegate &delegate) = 0;
    virtual LocationAuthorization authorizationStatus() const = 0;
    /// After the system's last answer; it does not tell of a change by itself.
    virtual LocationHindrance hindrance() const = 0;
    /// Asks for one fix, answered to every delegate later. Where the answer had to be a stand-in,
    /// the true fix is told as well when it comes.
    virtual void requestLocation() = 0;
    /// Asks the user for permission; the delegates hear of a change.
    virtual void requestWhenInUseAuthorization() = 0;
};

} // namespace zeph
