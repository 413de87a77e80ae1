// SPDX-License-Identifier: MIT
#pragma once

#include "services/simple/CardService.h"

#include <QJsonValue>

namespace zeph {

/// The whole handle in lower case; empty when nothing was entered.
QString blueskyHandle(const QString &input);

/// Throws `ServiceError` when the answer holds no profile.
SimpleCard blueskyCard(const QJsonValue &answer, const QString &handle,
                       const FramingContext &framing);

/// The public profile of a Bluesky account, which needs no key. Callable from any thread but the
/// main one.
class BlueskyService : public CardService {
public:
    using CardService::CardService;

    /// Blocks for one request, for none without a handle. Never throws; a failure is in `error`.
    SimpleIntegrationStats fetch(const QString &handle) const;
};

} // namespace zeph
