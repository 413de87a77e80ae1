// SPDX-License-Identifier: MIT
#pragma once

#include "services/simple/CardService.h"

#include <QJsonValue>

namespace zeph {

/// The domain that is asked for: a whole address is cut down to its host.
QString ahrefsDomain(const QString &input);

/// Throws `ServiceError` when the answer holds no rating.
SimpleCard ahrefsCard(const QJsonValue &answer, const QString &domain);

/// The domain rating of a site, which needs no key. Callable from any thread but the main one.
class AhrefsService : public CardService {
public:
    using CardService::CardService;

    /// Blocks for one request, for none without a domain. Never throws; a failure is in `error`.
    SimpleIntegrationStats fetch(const QString &domain) const;
};

} // namespace zeph
