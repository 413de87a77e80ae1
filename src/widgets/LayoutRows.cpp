// SPDX-License-Identifier: MIT
#include "widgets/LayoutRows.h"

#include "settings/PreferencesStore.h"
#include "widgets/WidgetLayoutCatalog.h"

using namespace Qt::StringLiterals;

namespace zeph {

std::vector<WidgetKind> layoutRows(const AppState &state, const PreferencesStore &prefs,
                                   bool quoteEnabled, const Calendar &calendar) {
    std::vector<WidgetKind> kinds;
    for (const WidgetKind kind : WidgetLayoutCatalog::defaultOrder()) {
        if (kind != WidgetKind::clock && prefs.isOn(kind) &&
            WidgetLayoutCatalog::hasContent(kind, state, prefs, quoteEnabled, calendar)) {
            kinds.push_back(kind);
        }
    }
    return WidgetLayoutCatalog::applyingCustomOrder(std::move(kinds), prefs.customOrder());
}

QString layoutCountText(std::size_t rows) {
    return u"%1 widget%2 · drag to reorder"_s.arg(rows).arg(rows == 1 ? QString() : u"s"_s);
}

} // namespace zeph
