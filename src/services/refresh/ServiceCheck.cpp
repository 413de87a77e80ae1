// SPDX-License-Identifier: MIT
#include "services/refresh/ServiceCheck.h"

#include "base/Background.h"

#include <utility>

namespace zeph {

ServiceCheck::ServiceCheck(const Background &background, FetchTools tools)
    : m_background(background), m_tools(std::make_shared<FetchTools>(std::move(tools))) {}

void ServiceCheck::ask(WorkOwner &owner, const IntegrationConnection &account,
                       std::function<void(const std::optional<AccountRecord> &)> told) const {
    m_background.run(
        owner, [tools = m_tools, account] { return fetchAccount(*tools, account); },
        std::move(told));
}

void ServiceCheck::ask(WorkOwner &owner, const CustomAPIConfig &config,
                       std::function<void(const EndpointListing &)> told) const {
    m_background.run(
        owner, [tools = m_tools, config] { return listEndpoint(*tools, config); }, std::move(told));
}

} // namespace zeph
