// SPDX-License-Identifier: MIT
#include "LoopbackEndpoints.h"

#include "services/catalogue/ServiceCatalogue.h"

using namespace Qt::StringLiterals;

namespace zeph {

Endpoints endpointsAt(const QString &root) {
    const auto at = [&root](QLatin1StringView service) { return root + u'/' + service; };
    Endpoints endpoints;
    for (const ServiceRow &service : serviceCatalogue()) {
        if (service.root) {
            endpoints.*service.root = at(service.key);
        }
    }
    // What is asked beside the accounts' services.
    endpoints.exchangeRates = at("exchangerates"_L1);
    endpoints.reddit = at("newreddit"_L1);
    endpoints.weather = at("weather"_L1);
    endpoints.airQuality = at("airquality"_L1);
    endpoints.zenQuotes = at("zenquotes"_L1);
    endpoints.quotable = at("quotable"_L1);
    endpoints.onThisDay = at("onthisday"_L1);
    endpoints.station = at("station"_L1);
    return endpoints;
}

} // namespace zeph
