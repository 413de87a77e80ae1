// SPDX-License-Identifier: MIT
#pragma once

#include "base/WorkOwner.h"
#include "services/refresh/AccountFetches.h"

#include <functional>
#include <memory>
#include <optional>

namespace zeph {

class Background;

/// Asks one service outside of a refresh, for whoever waits for its answer. That is told on the
/// main thread, unless the owner that is given has ended by then. Main thread only.
class ServiceCheck {
public:
    /// `background` outlives this object; the store and the keychain outlive its threads as well.
    ServiceCheck(const Background &background, FetchTools tools);

    /// Asks the service of `account` with the secret that is kept. `told` gets no record when the
    /// account lacks what its service needs.
    void ask(WorkOwner &owner, const IntegrationConnection &account,
             std::function<void(const std::optional<AccountRecord> &)> told) const;

    /// Asks an endpoint for all that it has, whatever the fields of `config`.
    void ask(WorkOwner &owner, const CustomAPIConfig &config,
             std::function<void(const EndpointListing &)> told) const;

private:
    const Background &m_background;
    std::shared_ptr<const FetchTools> m_tools; // held by tasks for the length of their run
};

} // namespace zeph
