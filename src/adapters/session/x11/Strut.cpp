// SPDX-License-Identifier: MIT
#include "adapters/session/x11/Strut.h"

#include <algorithm>
#include <array>

namespace zeph {

namespace {

constexpr std::array kStrutEdges{Qt::LeftEdge, Qt::RightEdge, Qt::TopEdge, Qt::BottomEdge};

// More than any screen has, and little enough to reckon with.
constexpr int kMostPixels = 0xFFFF;

int pixels(std::uint32_t value) {
    return static_cast<int>(std::min(value, std::uint32_t{kMostPixels}));
}

QRect coveredBy(const Strut &strut, const QSize &screen) {
    const int length = strut.last - strut.first + 1;
    switch (strut.edge) {
    case Qt::LeftEdge:
        return {0, strut.first, strut.depth, length};
    case Qt::RightEdge:
        return {screen.width() - strut.depth, strut.first, strut.depth, length};
    case Qt::TopEdge:
        return {strut.first, 0, length, strut.depth};
    case Qt::BottomEdge:
        return {strut.first, screen.height() - strut.depth, length, strut.depth};
    }
    return {};
}

QMargins taken(const QRect &monitor, const QRect &covered, Qt::Edge edge) {
    switch (edge) {
    case Qt::LeftEdge:
        return {covered.right() - monitor.left() + 1, 0, 0, 0};
    case Qt::TopEdge:
        return {0, covered.bottom() - monitor.top() + 1, 0, 0};
    case Qt::RightEdge:
        return {0, 0, monitor.right() - covered.left() + 1, 0};
    case Qt::BottomEdge:
        return {0, 0, 0, monitor.bottom() - covered.top() + 1};
    }
    return {};
}

bool isLessThanHalf(const QMargins &margins, const QSize &size) {
    return 2 * (margins.left() + margins.right()) < size.width() &&
           2 * (margins.top() + margins.bottom()) < size.height();
}

} // namespace

std::vector<Strut> strutsIn(const std::vector<std::uint32_t> &partial,
                            const std::vector<std::uint32_t> &plain) {
    // The depths of the four edges, then the first and the last pixel along each of them.
    const bool hasRanges = partial.size() >= 3 * kStrutEdges.size();
    const auto &values = hasRanges ? partial : plain;
    std::vector<Strut> struts;
    if (values.size() < kStrutEdges.size()) {
        return struts;
    }
    for (std::size_t i = 0; i < kStrutEdges.size(); ++i) {
        const std::size_t range = kStrutEdges.size() + 2 * i;
        const Strut strut{kStrutEdges.at(i), pixels(values[i]),
                          hasRanges ? pixels(values[range]) : 0,
                          hasRanges ? pixels(values[range + 1]) : kMostPixels};
        if (strut.depth > 0 && strut.first <= strut.last) {
            struts.push_back(strut);
        }
    }
    return struts;
}

QMargins reservedMargins(const QRect &monitor, const QSize &screen,
                         const std::vector<Strut> &struts) {
    QMargins reserved;
    for (const Strut &strut : struts) {
        const QRect covered = coveredBy(strut, screen) & monitor;
        if (covered.isEmpty()) {
            continue;
        }
        const QMargins margins = taken(monitor, covered, strut.edge);
        if (isLessThanHalf(margins, monitor.size())) {
            reserved = reserved | margins;
        }
    }
    return reserved;
}

} // namespace zeph
