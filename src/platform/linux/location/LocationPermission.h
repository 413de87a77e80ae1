// SPDX-License-Identifier: MIT
#pragma once

#include "platform/LocationClient.h"

#include <chrono>
#include <functional>
#include <optional>

namespace zeph {

class UserDefaults;

/// The permission to ask where the machine is, one for all location clients. It has two givers: the
/// user, whose answer is kept in the settings under "zeph.consent.location", and the system, whose
/// refusal is only known once it is asked. Main thread only.
class LocationPermission {
public:
    using MonotonicNow = std::function<std::chrono::steady_clock::time_point()>;

    explicit LocationPermission(UserDefaults &defaults,
                                MonotonicNow now = std::chrono::steady_clock::now);

    /// What is stored, until the system refuses. A refusal is believed for a minute, then nothing
    /// is determined: the system does not tell when the user takes it back in its settings, and
    /// only asking again can.
    LocationAuthorization status() const;

    /// Keeps the consent for this and all later starts of the program.
    void grant();

    /// The system refused. The consent stays stored, and counts at the next start.
    void refuse();

private:
    UserDefaults &m_defaults;
    MonotonicNow m_now;
    std::optional<std::chrono::steady_clock::time_point> m_refusedAt;
};

} // namespace zeph
