// SPDX-License-Identifier: MIT
#pragma once

#include "services/catalogue/ServiceRow.h"

#include <memory>
#include <type_traits>

/// Calls of services as `ServiceRow::fetch` returns them. Each holds the service that it calls.
namespace zeph::calls {

template <typename Service>
std::shared_ptr<Service> made(const ServiceTools &tools) {
    if constexpr (std::is_constructible_v<Service, HttpClient &, const Endpoints &, const Clock &,
                                          const FramingContext &>) {
        return std::make_shared<Service>(tools.http, tools.endpoints, tools.clock, tools.framing);
    } else if constexpr (std::is_constructible_v<Service, HttpClient &, const Endpoints &,
                                                 const Clock &, const Calendar &>) {
        return std::make_shared<Service>(tools.http, tools.endpoints, tools.clock, tools.calendar);
    } else {
        return std::make_shared<Service>(tools.http, tools.endpoints, tools.clock);
    }
}

template <typename Service>
AccountFetch withKey(const ServiceTools &tools) {
    return [service = made<Service>(tools)](const AccountQuestion &question) -> AccountRecord {
        return service->fetch(question.key.value_or(QString()));
    };
}

template <typename Service>
AccountFetch withValue(const ServiceTools &tools) {
    return [service = made<Service>(tools)](const AccountQuestion &question) -> AccountRecord {
        return service->fetch(question.value);
    };
}

template <typename Service>
AccountFetch withKeyAndValue(const ServiceTools &tools) {
    return [service = made<Service>(tools)](const AccountQuestion &question) -> AccountRecord {
        return service->fetch(question.key.value_or(QString()), question.value);
    };
}

} // namespace zeph::calls
