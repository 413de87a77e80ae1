// SPDX-License-Identifier: MIT
#pragma once

#include "model/SimpleIntegrationStats.h"

#include <vector>

namespace zeph {

struct Date;
struct FramingContext;
struct SimpleCard;

/// The record of a fetch that gave `card`.
SimpleIntegrationStats simpleRecord(const QString &provider, SimpleCard card, Date updated);

/// A feed of these titles.
SimpleIntegrationStats feedRecord(const QString &title, const QStringList &items, Date updated);

/// One account at each service that has a card, in the words that the services make of what they
/// are answered.
std::vector<SimpleIntegrationStats> sampleCards(const FramingContext &framing, Date updated);

SimpleIntegrationStats sampleStartup(const FramingContext &framing, Date updated);

/// Names and numbers longer than a card has room for.
std::vector<SimpleIntegrationStats> oddCards(const FramingContext &framing, Date updated);

} // namespace zeph
