// SPDX-License-Identifier: MIT
#pragma once

#include "settings/WidgetKind.h"

#include <QStringList>

#include <vector>

namespace zeph {

class AppState;
class Calendar;
class PreferencesStore;

/// What decides which widgets stand on the wallpaper. `quoteEnabled` is the user's switch for the
/// daily quote; `calendar` finds the next day of a repeating countdown.
namespace WidgetLayoutCatalog {

/// The wallpaper's own order. The clock is last because the layout pins the last widget; six
/// kinds are not shown and stand in no place.
const std::vector<WidgetKind> &defaultOrder();

/// The kinds to draw now: switched on and with content, in the user's order in manual mode.
std::vector<WidgetKind> orderedKinds(const AppState &state, const PreferencesStore &prefs,
                                     bool quoteEnabled, const Calendar &calendar);

/// False while a kind has nothing to say: no data yet, or every fetch of it failed. Kinds with a
/// waiting sentence always have content.
bool hasContent(WidgetKind kind, const AppState &state, const PreferencesStore &prefs,
                bool quoteEnabled, const Calendar &calendar);

/// `kinds` by their place in `order` (raw values), then those not in it by the default order.
std::vector<WidgetKind> applyingCustomOrder(std::vector<WidgetKind> kinds,
                                            const QStringList &order);

} // namespace WidgetLayoutCatalog

} // namespace zeph
