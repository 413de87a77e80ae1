// SPDX-License-Identifier: MIT
#pragma once

#include "services/simple/CardService.h"

namespace zeph {

/// The card from the text of a profile page. Throws `ServiceError` when it tells no followers.
SimpleCard productHuntCard(const QString &page, const QString &name, const FramingContext &framing);

/// Followers from the public page of a Product Hunt profile, since no open interface tells them.
/// Callable from any thread but the main one.
class ProductHuntService : public CardService {
public:
    using CardService::CardService;

    /// Blocks for one request, for none without a name. Never throws; a failure is in `error`.
    SimpleIntegrationStats fetch(const QString &username) const;

private:
    /// The text of the page of `name`. Throws `TransportError` or `ServiceError`.
    QString page(const QString &name) const;
};

} // namespace zeph
