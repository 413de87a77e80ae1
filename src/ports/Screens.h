// SPDX-License-Identifier: MIT
#pragma once

#include "base/ChangePublisher.h"
#include "ports/Port.h"

#include <QRectF>
#include <QString>

#include <functional>
#include <optional>
#include <vector>

namespace zeph {

/// One display. Rectangles are in points, y grows downward.
struct Screen {
    std::optional<quint32> displayID;    ///< number of the display in this session
    std::optional<QString> persistentID; ///< stable across reboots and reconnects
    QRectF frame;
    QRectF visibleFrame;    ///< `frame` without panels and docks
    double scale = 1;       ///< device pixels in a point
    QRect deviceFrame;      ///< `frame` in device pixels of the window system
    QString name = {};      ///< for people: make and model, else the connector; empty when unknown
    QString connector = {}; ///< as the window system calls it, such as "DP-1"

    bool operator==(const Screen &) const = default;
};

/// The displays of the session; main thread only.
class Screens : public Port {
public:
    virtual std::vector<Screen> all() const = 0; ///< in system order
    virtual std::optional<Screen> main() const = 0;

    /// Calls `handler` on the main thread after displays were added, removed, resized or
    /// reordered, or their visible frame changed, until the subscription ends.
    [[nodiscard]] virtual Subscription subscribe(std::function<void()> handler) = 0;
};

} // namespace zeph
