// SPDX-License-Identifier: MIT
#pragma once

#include "services/simple/CardService.h"

#include <QJsonValue>

namespace zeph {

/// Throws `ServiceError` unless the answer tells of success.
SimpleCard gumroadCard(const QJsonValue &answer, const FramingContext &framing);

/// The sales of today at Gumroad, as far as one page of them tells. Callable from any thread but
/// the main one.
class GumroadService : public CardService {
public:
    using CardService::CardService;

    /// Blocks for one request, for none without a token. Never throws; a failure is in `error`.
    SimpleIntegrationStats fetch(const QString &token) const;
};

} // namespace zeph
