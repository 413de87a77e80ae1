// SPDX-License-Identifier: MIT
#pragma once

#include "core/AppState.h"
#include "core/NotificationCenter.h"
#include "history/UsageStore.h"
#include "platform/icu/IcuCalendar.h"
#include "platform/icu/IcuFormatters.h"
#include "presentation/framing/FramingContext.h"
#include "presentation/palette/Palette.h"
#include "presentation/preferences/PreferencesStore.h"
#include "presentation/view/View.h"
#include "presentation/widgets/AccountChoices.h"
#include "presentation/widgets/WidgetContext.h"
#include "support/FakeUserDefaults.h"
#include "support/FixedTextMetrics.h"
#include "support/ManualClock.h"
#include "support/QtPrinters.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace zeph {

/// One user's state, preferences and history, and the drawing of a view without a screen.
class WidgetFixture : public testing::Test {
protected:
    /// A local time of Thursday, 12 March 2026, or of another day of 2026.
    Date at(int hour, int minute, int second = 0, int month = 3, int day = 12) const;

    /// What `view` draws at its natural size.
    std::vector<DrawItem> draw(const View &view) const;
    QSizeF naturalSize(const View &view) const;

    /// The texts that `view` draws, in drawing order.
    QStringList texts(const View &view) const;
    QStringList symbols(const View &view) const;

    /// The drawn text of these words; fails the test when there is none.
    TextItem textItem(const View &view, const QString &words) const;
    SymbolItem symbolItem(const View &view, const QString &identifier) const;
    std::vector<ShapeItem> shapes(const View &view) const;

    double lineHeight(double fontSize) const {
        FontSpec font;
        font.size = fontSize;
        return metrics.size({}, font).height();
    }

    /// The box that a symbol of this many points is drawn in.
    QSizeF symbolBox(double points) const;

    /// The palette's text colour at `opacity`, as it comes to the screen.
    Color textColor(double opacity) const { return palette.text.opacity(opacity); }

    QTemporaryDir folder;
    ManualClock clock;
    IcuCalendar calendar{QStringLiteral("en_US"), QStringLiteral("Europe/Berlin")};
    IcuFormatters formatters{QStringLiteral("en_US"), QStringLiteral("Europe/Berlin")};
    FakeUserDefaults defaults;
    NotificationCenter notificationCenter;
    PreferencesStore preferences{defaults, notificationCenter, formatters};
    UsageStore usage{folder.path(), clock, calendar};
    AppState state{at(9, 41)};
    FramingContext framing{preferences, calendar, formatters};
    Palette palette = Palette::forMood(0.5, FocusState::off);
    FixedTextMetrics metrics;
    AccountChoices accounts;
    WidgetContext context{state, preferences, usage, framing, palette, accounts};
};

/// Holds when two colours are the same one on screen.
void expectColor(const Color &actual, const Color &expected);

} // namespace zeph
