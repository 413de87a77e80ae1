// SPDX-License-Identifier: MIT
#include "services/accounts/Providers.h"

#include "base/Capitalized.h"
#include "services/catalogue/ServiceCatalogue.h"

namespace zeph::providers {

QString defaultName(const QString &provider) {
    const ServiceRow *const row = serviceRow(provider);
    return row ? QString(row->defaultName) : capitalized(provider);
}

QStringList keyed() {
    QStringList providers;
    for (const ServiceRow &row : serviceCatalogue()) {
        if (row.hadSingleAccount) {
            providers.append(row.key);
        }
    }
    return providers;
}

bool isKeyless(const QString &provider) {
    const ServiceRow *const row = serviceRow(provider);
    return row && row->secret == Need::none;
}

bool needsKey(const QString &provider) {
    const ServiceRow *const row = serviceRow(provider);
    return !row || row->secret == Need::required;
}

bool needsValue(const QString &provider) {
    const ServiceRow *const row = serviceRow(provider);
    return row && row->value == Need::required;
}

} // namespace zeph::providers
