// SPDX-License-Identifier: MIT
#pragma once

#include "model/CustomAPIResult.h"
#include "model/QuoteInfo.h"
#include "services/catalogue/AccountRecord.h"
#include "services/custom/EndpointListing.h"

#include <QHash>
#include <QString>

#include <functional>
#include <optional>

namespace zeph {

struct CustomAPIConfig;

/// The calls of the web services, which copies share. They are made on pool threads, block until
/// the service has answered and tell a failure within their record. All of them are set.
struct IntegrationServices {
    QHash<QString, AccountFetch> accounts; ///< by the key of the service
    std::function<CustomAPIResult(const CustomAPIConfig &config)> customAPI;
    std::function<EndpointListing(const CustomAPIConfig &config)> listEndpoint;
    std::function<std::optional<QuoteInfo>()> quote;
};

} // namespace zeph
