// SPDX-License-Identifier: MIT
#include "services/forms/ConnectionHint.h"

#include "services/accounts/IntegrationsStore.h"
#include "services/catalogue/ServiceCatalogue.h"
#include "settings/PreferencesStore.h"

#include <algorithm>

namespace zeph {

namespace {

/// The service that the settings offer accounts of for a widget; null for a widget of none.
const ServiceRow *offeredService(WidgetKind kind) {
    const auto rows = serviceCatalogue();
    const auto found = std::find_if(rows.begin(), rows.end(), [kind](const ServiceRow &row) {
        return row.widget == kind && row.words;
    });
    return found == rows.end() ? nullptr : &*found;
}

} // namespace

bool needsConnectionHint(WidgetKind kind, const PreferencesStore &preferences,
                         const IntegrationsStore &store) {
    if (!preferences.isOn(kind)) {
        return false;
    }
    if (kind == WidgetKind::quote) {
        return !store.quoteEnabled();
    }
    if (kind == WidgetKind::customAPIs) {
        // Those that a locked keyring does not tell are there all the same.
        return store.areCustomAPIsLoaded() && store.customAPIs().empty();
    }
    const ServiceRow *const service = offeredService(kind);
    return service && store.connections(service->key).empty();
}

} // namespace zeph
