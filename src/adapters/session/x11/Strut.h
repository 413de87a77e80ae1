// SPDX-License-Identifier: MIT
#pragma once

#include <QMargins>
#include <QRect>
#include <QSize>

#include <cstdint>
#include <vector>

namespace zeph {

/// Space that a window, such as a panel, keeps free of others. In device pixels, measured from an
/// edge of all monitors together.
struct Strut {
    Qt::Edge edge = Qt::TopEdge;
    int depth = 0;
    int first = 0; ///< of the pixels along the edge
    int last = 0;

    bool operator==(const Strut &) const = default;
};

/// The struts in the values of a window's `_NET_WM_STRUT_PARTIAL`, or, where those are too few, in
/// the values of its `_NET_WM_STRUT`.
std::vector<Strut> strutsIn(const std::vector<std::uint32_t> &partial,
                            const std::vector<std::uint32_t> &plain);

/// What struts take from the sides of `monitor`, where `screen` is the size of all monitors
/// together. A strut that would take half of the monitor or more is not counted: it is that of a
/// panel at an edge between two monitors, seen from the wrong side, or wild.
QMargins reservedMargins(const QRect &monitor, const QSize &screen,
                         const std::vector<Strut> &struts);

} // namespace zeph
