// SPDX-License-Identifier: MIT
#pragma once

#include "ports/Consent.h"
#include "ports/LocationClient.h"

#include <chrono>
#include <optional>

namespace zeph {

/// The permission to ask where the machine is, one for all location clients. It has two givers: the
/// user, whose consent is kept, and the system, whose refusal is only known once it is asked. Main
/// thread only.
class LocationPermission {
public:
    using MonotonicNow = std::function<std::chrono::steady_clock::time_point()>;

    /// `consent` outlives this.
    explicit LocationPermission(Consent &consent,
                                MonotonicNow now = std::chrono::steady_clock::now);

    /// The user's consent, until the system refuses. A refusal is believed for a minute, then
    /// nothing is determined: the system does not tell when the user takes it back in its
    /// settings, and only asking again can.
    LocationAuthorization status() const;

    /// Keeps the consent for this and all later starts of the program.
    void grant();

    /// The system refused. The consent stays, and counts again at the next start and when it is
    /// given anew.
    void refuse();

    /// What is known of the service that is asked, to tell the user. A refusal is forgotten when the
    /// consent is given anew.
    LocationHindrance hindrance() const { return m_hindrance; }
    void setHindrance(LocationHindrance hindrance) { m_hindrance = hindrance; }

    /// Calls `handler` after the consent was given or withdrawn, until the subscription ends.
    [[nodiscard]] Subscription subscribe(std::function<void()> handler) {
        return m_changes.subscribe(std::move(handler));
    }

private:
    void consentChanged();
    void forgetRefusal();

    Consent &m_consent;
    MonotonicNow m_now;
    std::optional<std::chrono::steady_clock::time_point> m_refusedAt;
    LocationHindrance m_hindrance = LocationHindrance::none;
    ChangePublisher m_changes;
    Subscription m_subscription;
};

} // namespace zeph
