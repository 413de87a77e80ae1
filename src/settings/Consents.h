// SPDX-License-Identifier: MIT
#pragma once

#include "settings/StoredConsent.h"

namespace zeph {

/// What the user allowed the program to know. Without its consent a sensor is not even started.
struct Consents {
    explicit Consents(UserDefaults &defaults)
        : input(defaults, QStringLiteral("zeph.consent.input")),
          location(defaults, QStringLiteral("zeph.consent.location")),
          calendar(defaults, QStringLiteral("zeph.consent.calendar")),
          reminders(defaults, QStringLiteral("zeph.consent.reminders")) {}

    StoredConsent input;     ///< when keys and buttons are pressed and how far the pointer travels
    StoredConsent location;  ///< where the machine is, to a town
    StoredConsent calendar;  ///< when meetings begin
    StoredConsent reminders; ///< what is due in the task lists
};

} // namespace zeph
