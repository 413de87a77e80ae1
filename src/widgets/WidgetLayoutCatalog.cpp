// SPDX-License-Identifier: MIT
#include "widgets/WidgetLayoutCatalog.h"

#include "settings/PreferencesStore.h"
#include "widgets/WidgetTable.h"

#include <algorithm>
#include <limits>

namespace zeph::WidgetLayoutCatalog {

namespace {

/// The place of `element` in `list`, the greatest number when it has none.
template <typename List, typename Element>
qint64 place(const List &list, const Element &element) {
    const auto found = std::find(list.begin(), list.end(), element);
    return found == list.end() ? std::numeric_limits<qint64>::max()
                               : std::distance(list.begin(), found);
}

} // namespace

const std::vector<WidgetKind> &defaultOrder() {
    static const std::vector<WidgetKind> order = [] {
        std::vector<WidgetKind> kinds;
        for (const WidgetEntry &entry : placedWidgets()) {
            kinds.push_back(entry.kind);
        }
        return kinds;
    }();
    return order;
}

std::vector<WidgetKind> orderedKinds(const AppState &state, const PreferencesStore &prefs,
                                     bool quoteEnabled, const Calendar &calendar) {
    std::vector<WidgetKind> kinds;
    for (const WidgetKind kind : defaultOrder()) {
        if (prefs.placement(kind) != WidgetPlacement::off &&
            hasContent(kind, state, prefs, quoteEnabled, calendar)) {
            kinds.push_back(kind);
        }
    }
    if (prefs.layoutMode() == WidgetLayoutMode::manual && !prefs.customOrder().isEmpty()) {
        return applyingCustomOrder(std::move(kinds), prefs.customOrder());
    }
    return kinds;
}

bool hasContent(WidgetKind kind, const AppState &state, const PreferencesStore &prefs,
                bool quoteEnabled, const Calendar &calendar) {
    const WidgetEntry &entry = widgetEntry(kind);
    return !entry.absence || !entry.absence({state, prefs, quoteEnabled, calendar});
}

std::vector<WidgetKind> applyingCustomOrder(std::vector<WidgetKind> kinds,
                                            const QStringList &order) {
    const auto rank = [&order](WidgetKind kind) {
        return std::pair(place(order, rawValue(kind)), place(defaultOrder(), kind));
    };
    std::stable_sort(kinds.begin(), kinds.end(), [&rank](WidgetKind left, WidgetKind right) {
        return rank(left) < rank(right);
    });
    return kinds;
}

} // namespace zeph::WidgetLayoutCatalog
