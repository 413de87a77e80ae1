// SPDX-License-Identifier: MIT
#pragma once

#include "services/simple/CardService.h"

#include <QJsonValue>

namespace zeph {

/// The card of a startup from the answer about it. Throws `ServiceError` without one.
SimpleCard trustMRRCard(const QJsonValue &answer, const QString &slug,
                        const FramingContext &framing);

/// Verified revenue of a startup. Callable from any thread but the main one.
class TrustMRRService : public CardService {
public:
    using CardService::CardService;

    /// Blocks for one request, for none without a slug. Never throws; a failure is in `error`.
    SimpleIntegrationStats fetch(const QString &key, const QString &slug) const;
};

} // namespace zeph
