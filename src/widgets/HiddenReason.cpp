// SPDX-License-Identifier: MIT
#include "widgets/HiddenReason.h"

#include "settings/PreferencesStore.h"
#include "widgets/WidgetLayoutCatalog.h"
#include "widgets/WidgetTable.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace zeph {

std::optional<QString> hiddenReason(WidgetKind kind, const AppState &state,
                                    const PreferencesStore &prefs, bool quoteEnabled,
                                    const Calendar &calendar) {
    const std::vector<WidgetKind> &order = WidgetLayoutCatalog::defaultOrder();
    if (std::find(order.begin(), order.end(), kind) == order.end()) {
        return u"The wallpaper has no place for it at present"_s;
    }
    if (prefs.placement(kind) == WidgetPlacement::off) {
        return u"It is switched off"_s;
    }
    const WidgetEntry &entry = widgetEntry(kind);
    return entry.absence ? entry.absence({state, prefs, quoteEnabled, calendar}) : std::nullopt;
}

} // namespace zeph
