// SPDX-License-Identifier: MIT
#pragma once

#include "services/simple/CardService.h"

#include <QJsonValue>

namespace zeph {

/// Throws `ServiceError` when the answer holds no site.
SimpleCard netlifyCard(const QJsonValue &answer);

/// How the site stands that was changed last in an account at Netlify. Callable from any thread but
/// the main one.
class NetlifyService : public CardService {
public:
    using CardService::CardService;

    /// Blocks for one request, for none without a token. Never throws; a failure is in `error`.
    SimpleIntegrationStats fetch(const QString &token) const;
};

} // namespace zeph
