// SPDX-License-Identifier: MIT
#pragma once

#include "model/SimpleIntegrationStats.h"

#include <functional>

namespace zeph {

class Clock;

/// What a service found: the main line and the small facts below it.
struct SimpleCard {
    QString headline;
    std::vector<IntegrationChip> chips = {};

    bool operator==(const SimpleCard &) const = default;
};

/// The record of one fetch under a new identity: the card that `read` gives with the time when it
/// was done, or no card and the description of the `DescribedError` that `read` threw.
SimpleIntegrationStats simpleRecord(const QString &provider, const Clock &clock,
                                    const std::function<SimpleCard()> &read);

} // namespace zeph
