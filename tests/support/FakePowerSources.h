// SPDX-License-Identifier: MIT
#pragma once

#include "ports/PowerSources.h"

#include <map>
#include <utility>

namespace zeph {

/// Batteries that the test makes up. A machine without one until the test gives it some.
class FakePowerSources : public PowerSources {
public:
    std::optional<std::vector<QVariantMap>> descriptions() const override {
        ++readings;
        return sources;
    }
    std::optional<qint64> gauge(const QString &key) const override {
        ++gaugeReadings;
        const auto found = gauges.find(key);
        return found == gauges.end() ? std::nullopt : std::optional(found->second);
    }
    bool hasGauge() const override { return isGaugeThere; }

    Subscription subscribe(std::function<void()> handler) override {
        return changes.subscribe(std::move(handler));
    }

    std::optional<std::vector<QVariantMap>> sources = std::vector<QVariantMap>{};
    bool isGaugeThere = true;
    std::map<QString, qint64> gauges;
    ChangePublisher changes;
    mutable int readings = 0;
    mutable int gaugeReadings = 0;
};

} // namespace zeph
