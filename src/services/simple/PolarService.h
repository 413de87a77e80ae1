// SPDX-License-Identifier: MIT
#pragma once

#include "services/simple/CardService.h"

#include <QJsonValue>

namespace zeph {

/// The card of the last period in the answer. Throws `ServiceError` when it holds none.
SimpleCard polarCard(const QJsonValue &answer, const FramingContext &framing);

/// The figures of this month of an organization at Polar. Callable from any thread but the main
/// one.
class PolarService : public CardService {
public:
    using CardService::CardService;

    /// Blocks for one request, for none without a token. Never throws; a failure is in `error`.
    SimpleIntegrationStats fetch(const QString &token) const;
};

} // namespace zeph
