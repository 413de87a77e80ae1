// SPDX-License-Identifier: MIT
#pragma once

#include "settings/WidgetKind.h"

#include <QString>

#include <optional>

namespace zeph {

class AppState;
class Calendar;
class PreferencesStore;

/// Why a widget is not on the wallpaper now, as one plain sentence without a full stop; absent
/// when it is there. The arguments are those of `WidgetLayoutCatalog::orderedKinds`.
std::optional<QString> hiddenReason(WidgetKind kind, const AppState &state,
                                    const PreferencesStore &prefs, bool quoteEnabled,
                                    const Calendar &calendar);

} // namespace zeph
