// SPDX-License-Identifier: MIT
#pragma once

#include "settings/WidgetKind.h"

#include <QString>

#include <vector>

namespace zeph {

class AppState;
class Calendar;
class PreferencesStore;

/// The widgets that the layout editor lists, in their order: those on the wallpaper without the
/// clock, whatever the layout mode. The arguments are those of `WidgetLayoutCatalog::orderedKinds`.
std::vector<WidgetKind> layoutRows(const AppState &state, const PreferencesStore &prefs,
                                   bool quoteEnabled, const Calendar &calendar);

/// "3 widgets · drag to reorder"
QString layoutCountText(std::size_t rows);

} // namespace zeph
