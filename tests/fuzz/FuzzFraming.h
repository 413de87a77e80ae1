// SPDX-License-Identifier: MIT
#pragma once

#include "base/NotificationCenter.h"
#include "settings/PreferencesStore.h"
#include "support/FakeFormatters.h"
#include "support/FakeUserDefaults.h"
#include "support/UtcCalendar.h"
#include "wording/FramingContext.h"

namespace zeph {

/// Wording without a locale library, which is not what is fuzzed.
struct FuzzFraming {
    FakeUserDefaults defaults;
    NotificationCenter notifications;
    FakeFormatters formatters;
    UtcCalendar calendar;
    PreferencesStore preferences{defaults, notifications, formatters};
    FramingContext context{preferences, calendar, formatters};
};

} // namespace zeph
