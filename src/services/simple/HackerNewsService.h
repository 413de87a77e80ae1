// SPDX-License-Identifier: MIT
#pragma once

#include "services/simple/CardService.h"

#include <QJsonValue>

namespace zeph {

/// Throws `ServiceError` when the answer holds no user.
SimpleCard hackerNewsCard(const QJsonValue &answer, const QString &username,
                          const FramingContext &framing);

/// The karma of a Hacker News user, which needs no key. Callable from any thread but the main one.
class HackerNewsService : public CardService {
public:
    using CardService::CardService;

    /// Blocks for one request, for none without a name. Never throws; a failure is in `error`.
    SimpleIntegrationStats fetch(const QString &username) const;
};

} // namespace zeph
