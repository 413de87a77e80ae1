// SPDX-License-Identifier: MIT
#include "services/simple/SimpleCard.h"

#include "base/DescribedError.h"
#include "ports/Clock.h"

#include <utility>

namespace zeph {

SimpleIntegrationStats simpleRecord(const QString &provider, const Clock &clock,
                                    const std::function<SimpleCard()> &read) {
    SimpleIntegrationStats stats;
    stats.id = QUuid::createUuid();
    stats.provider = provider;
    try {
        SimpleCard card = read();
        stats.headline = std::move(card.headline);
        stats.chips = std::move(card.chips);
        stats.updated = clock.now();
    } catch (const DescribedError &error) {
        stats.error = error.description();
    }
    return stats;
}

} // namespace zeph
