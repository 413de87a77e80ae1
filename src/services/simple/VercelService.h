// SPDX-License-Identifier: MIT
#pragma once

#include "services/simple/CardService.h"

#include <QJsonValue>

namespace zeph {

/// Throws `ServiceError` when the answer holds no deployment.
SimpleCard vercelCard(const QJsonValue &answer);

/// How the last deployment of an account at Vercel stands. Callable from any thread but the main
/// one.
class VercelService : public CardService {
public:
    using CardService::CardService;

    /// Blocks for one request, for none without a token. Never throws; a failure is in `error`.
    SimpleIntegrationStats fetch(const QString &token) const;
};

} // namespace zeph
