// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/view/View.h"
#include "settings/WidgetKind.h"

#include <QString>

#include <optional>
#include <span>

namespace zeph {

class AppState;
class Calendar;
class PreferencesStore;
struct WidgetContext;

/// What decides whether a widget has something to say.
struct ContentFacts {
    const AppState &state;
    const PreferencesStore &prefs;
    bool quoteEnabled;        ///< the user's switch for the daily quote
    const Calendar &calendar; ///< finds the next day of a repeating countdown
};

/// One widget of the wallpaper.
struct WidgetEntry {
    WidgetKind kind;
    /// Draws the widget; null for the integration cards, which share rows.
    View (*draw)(const WidgetContext &context) = nullptr;
    /// Why it has nothing to say now, as one plain sentence without a full stop, absent when it
    /// has something; null for the widgets that say in a sentence what they wait for.
    std::optional<QString> (*absence)(const ContentFacts &facts) = nullptr;
};

/// The widgets in the wallpaper's own order. The clock is last because the layout pins the last
/// one.
std::span<const WidgetEntry> placedWidgets();

/// The entry of a kind; `placedWidgets` leaves out the kinds that the wallpaper has no place for at
/// present.
const WidgetEntry &widgetEntry(WidgetKind kind);

} // namespace zeph
