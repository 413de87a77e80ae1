// SPDX-License-Identifier: MIT
#pragma once

#include "ports/Port.h"

#include <QString>

#include <optional>
#include <vector>

namespace zeph {

/// A peripheral's charge as its source tells it; `percent` can be any number.
struct AccessoryCharge {
    std::optional<QString> product;
    std::optional<qint64> percent;

    bool operator==(const AccessoryCharge &) const = default;
};

/// Peripherals with a battery, from two independent sources. Called away from the main thread;
/// may block for some seconds.
class Accessories : public Port {
public:
    /// Input devices whose driver reports a charge.
    virtual std::vector<AccessoryCharge> inputDevices() const = 0;

    /// What the power and Bluetooth services know.
    virtual std::vector<AccessoryCharge> powerSources() const = 0;
};

} // namespace zeph
