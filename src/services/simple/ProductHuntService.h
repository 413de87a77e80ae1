// SPDX-License-Identifier: MIT
#pragma once

#include "services/simple/SimpleCard.h"
#include "wording/FramingContext.h"

namespace zeph {

class Clock;
class HttpClient;
struct Endpoints;

/// The card from the text of a profile page. Throws `ServiceError` when it tells no followers.
SimpleCard productHuntCard(const QString &page, const QString &name, const FramingContext &framing);

/// Followers from the public page of a Product Hunt profile, since no open interface tells them.
/// Callable from any thread but the main one.
class ProductHuntService {
public:
    ProductHuntService(HttpClient &client, const Endpoints &endpoints, const Clock &clock,
                       const FramingContext &framing);

    /// Blocks for one request, for none without a name. Never throws; a failure is in `error`.
    SimpleIntegrationStats fetch(const QString &username) const;

private:
    /// The text of the page of `name`. Throws `TransportError` or `ServiceError`.
    QString page(const QString &name) const;

    HttpClient &m_client;
    const Clock &m_clock;
    FramingContext m_framing;
    QString m_root;
};

} // namespace zeph
