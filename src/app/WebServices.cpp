// SPDX-License-Identifier: MIT
#include "app/WebServices.h"

#include "ports/Platform.h"
#include "services/ambient/QuoteService.h"
#include "services/catalogue/ServiceCatalogue.h"
#include "services/custom/CustomAPIService.h"

#include <memory>

namespace zeph {

IntegrationServices makeWebServices(const Platform &platform, const Endpoints &endpoints,
                                    const FramingContext &framing) {
    const ServiceTools tools{platform.httpClient, endpoints,          platform.clock,
                             platform.calendar,   platform.gregorian, framing};
    IntegrationServices services;
    for (const ServiceRow &row : serviceCatalogue()) {
        if (row.fetch) {
            services.accounts.insert(row.key, row.fetch(tools));
        }
    }
    const CustomAPIService endpoint(platform.httpClient);
    services.customAPI = [endpoint](const CustomAPIConfig &config) {
        return endpoint.fetch(config);
    };
    services.listEndpoint = [endpoint](const CustomAPIConfig &config) {
        return endpoint.list(config);
    };
    services.quote = [service = std::make_shared<QuoteService>(
                          platform.httpClient, endpoints, platform.clock, platform.calendar,
                          platform.userDefaults, platform.runLoop)] { return service->fetch(); };
    return services;
}

} // namespace zeph
