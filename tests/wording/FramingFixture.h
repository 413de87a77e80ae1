// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/locale/IcuCalendar.h"
#include "adapters/locale/IcuFormatters.h"
#include "base/NotificationCenter.h"
#include "settings/PreferencesStore.h"
#include "support/DateOf.h"
#include "support/FakeUserDefaults.h"
#include "wording/FramingContext.h"
#include "wording/StatFraming.h"

#include <gmock/gmock.h>

namespace zeph {

/// Wording in Berlin, metric and by the rules of "en_US" unless the test sets otherwise.
class Framing : public testing::Test {
protected:
    explicit Framing(const QString &locale = QStringLiteral("de_DE"))
        : formatters(locale, QStringLiteral("Europe/Berlin")) {
        preferences.setUnitSystem(UnitSystem::metric);
    }

    void useImperial() { preferences.setUnitSystem(UnitSystem::imperial); }
    void useSystemNumbers() { preferences.setUseSystemNumberFormat(true); }

    FakeUserDefaults defaults;
    NotificationCenter notifications;
    IcuCalendar calendar{QStringLiteral("de_DE"), QStringLiteral("Europe/Berlin")};
    IcuFormatters formatters;
    PreferencesStore preferences{defaults, notifications, formatters};
    FramingContext context{preferences, calendar, formatters};
};

} // namespace zeph
