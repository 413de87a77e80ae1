// SPDX-License-Identifier: MIT
#pragma once

#include "ports/Accessories.h"

#include <atomic>

namespace zeph {

/// Peripherals that the test sets before samples run.
class FakeAccessories : public Accessories {
public:
    std::vector<AccessoryCharge> inputDevices() const override {
        ++readings;
        return input;
    }
    std::vector<AccessoryCharge> powerSources() const override { return services; }

    std::vector<AccessoryCharge> input;
    std::vector<AccessoryCharge> services;
    mutable std::atomic<int> readings = 0;
};

} // namespace zeph
