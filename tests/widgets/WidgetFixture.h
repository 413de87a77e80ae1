// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/locale/IcuCalendar.h"
#include "adapters/locale/IcuFormatters.h"
#include "base/NotificationCenter.h"
#include "drawing/palette/Palette.h"
#include "drawing/view/View.h"
#include "history/UsageStore.h"
#include "model/AppState.h"
#include "settings/PreferencesStore.h"
#include "support/FakeUserDefaults.h"
#include "support/FixedTextMetrics.h"
#include "support/ManualClock.h"
#include "support/QtPrinters.h"
#include "widgets/AccountChoices.h"
#include "widgets/WidgetContext.h"
#include "wording/FramingContext.h"

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
