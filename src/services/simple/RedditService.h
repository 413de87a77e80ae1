// SPDX-License-Identifier: MIT
#pragma once

#include "services/simple/CardService.h"

namespace zeph {

/// Karma and followers from the public pages of a Reddit profile, since no open interface tells
/// them. Callable from any thread but the main one.
class RedditService : public CardService {
public:
    using CardService::CardService;

    /// Blocks for one or two requests, for none without a name. Never throws; a failure is in
    /// `error`.
    SimpleIntegrationStats fetch(const QString &username) const;

private:
    SimpleCard card(const QString &name, const QString &user) const;

    /// The text of a page. Throws `TransportError` or `ServiceError`.
    QString html(const QString &url) const;
};

} // namespace zeph
