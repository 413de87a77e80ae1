// SPDX-License-Identifier: MIT
#pragma once

#include "base/ChangePublisher.h"
#include "ports/Port.h"

#include <QRect>
#include <QString>

#include <functional>
#include <optional>

namespace zeph {

/// How large a point is on each monitor, where the desktop tells it beside the X server. Main
/// thread only.
class MonitorScales : public Port {
public:
    /// Device pixels in a point of the monitor with this connector and place on the root window;
    /// absent while it is not known.
    virtual std::optional<double> scaleOf(const QString &connector,
                                          const QRect &geometry) const = 0;

    /// Calls `handler` after every change, until the subscription ends.
    [[nodiscard]] virtual Subscription subscribe(std::function<void()> handler) = 0;
};

} // namespace zeph
