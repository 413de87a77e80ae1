// SPDX-License-Identifier: MIT
#pragma once

#include "ports/Port.h"

#include <QString>

#include <optional>

namespace zeph {

/// The wireless network. Served from the last answer; never blocks.
class WiFi : public Port {
public:
    /// Name of the joined network; absent when not joined, or without a network manager.
    virtual std::optional<QString> ssid() const = 0;
};

} // namespace zeph
