// SPDX-License-Identifier: MIT
#pragma once

#include "base/ChangePublisher.h"
#include "ports/Port.h"

#include <QString>
#include <QVariantMap>

#include <functional>
#include <optional>
#include <vector>

namespace zeph {

/// The machine's own batteries. Served from the last answer of the system; never blocks. Main
/// thread only.
class PowerSources : public Port {
public:
    /// One description a source, by the keys "Current Capacity", "Max Capacity" (whole numbers),
    /// "Power Source State" ("AC Power" or "Battery Power"), "Is Charging" (boolean), "Time to
    /// Full Charge", "Time to Empty" (minutes, -1 while unknown). A key that the system can't
    /// tell is missing. Absent when the system tells nothing of power.
    virtual std::optional<std::vector<QVariantMap>> descriptions() const = 0;

    /// A whole number of the battery's own gauge by the keys "CycleCount", "DesignCapacity",
    /// "AppleRawMaxCapacity", "MaxCapacity"; absent when the gauge doesn't tell. Whether there is
    /// a gauge at all tells `hasGauge`.
    virtual std::optional<qint64> gauge(const QString &key) const = 0;
    virtual bool hasGauge() const = 0;

    /// Calls `handler` on the main thread when the system's first word arrives, and whenever what
    /// `descriptions` answered last turns out to be out of date by more than the course of the
    /// charge, until the subscription ends. A handler may ask at once.
    [[nodiscard]] virtual Subscription subscribe(std::function<void()> handler) = 0;
};

} // namespace zeph
