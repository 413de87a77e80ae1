// SPDX-License-Identifier: MIT
#pragma once

#include "core/NotificationCenter.h"
#include "platform/icu/IcuCalendar.h"
#include "platform/icu/IcuFormatters.h"
#include "presentation/framing/FramingContext.h"
#include "presentation/framing/StatFraming.h"
#include "presentation/preferences/PreferencesStore.h"
#include "support/DateOf.h"
#include "support/FakeUserDefaults.h"

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
