// SPDX-License-Identifier: MIT
#include "adapters/icons/IconColumns.h"

#include <algorithm>
#include <cmath>

namespace zeph {

namespace {

// Words need the rest.
constexpr double kMostOfTheWidth = 1.0 / 3;
constexpr double kMostOfTheHeight = 1.0 / 3;

// Far more than fill a screen, whatever a file says.
constexpr int kMostUnplaced = 10000;

struct Side {
    int icons = 0;
    double width = 0;
};

/// Of the icons that lie on the screen.
std::vector<QRectF> cellsOf(const DesktopIcons &icons, const IconScreen &screen,
                            const QRectF &workArea) {
    const QPointF origin =
        icons.origin == DesktopIcons::Origin::workArea ? workArea.topLeft() : QPointF();
    std::vector<QRectF> cells;
    std::transform(icons.places.begin(), icons.places.end(), std::back_inserter(cells),
                   [&](QPointF place) { return QRectF(origin + place, icons.cell); });
    const int rows = std::max(1, static_cast<int>(workArea.height() / icons.cell.height()));
    for (int i = 0; i < std::min(icons.unplaced, kMostUnplaced); ++i) {
        const int column = i / rows;
        const double left = icons.isFromRight ? workArea.right() - (column + 1) * icons.cell.width()
                                              : workArea.left() + column * icons.cell.width();
        const double top = workArea.top() + i % rows * icons.cell.height();
        cells.emplace_back(QPointF(left, top), icons.cell);
    }
    cells.erase(
        std::remove_if(cells.begin(), cells.end(),
                       [&](const QRectF &cell) { return !screen.frame.contains(cell.center()); }),
        cells.end());
    return cells;
}

} // namespace

QMarginsF iconColumns(const DesktopIcons &icons, const IconScreen &screen,
                      const QRectF &desktopWorkArea) {
    if (icons.cell.isEmpty() || screen.frame.isEmpty()) {
        return {};
    }
    const double most = screen.frame.width() * kMostOfTheWidth;
    Side left;
    Side right;
    for (const QRectF &cell : cellsOf(icons, screen, desktopWorkArea)) {
        const QPointF centre = cell.center();
        if (centre.x() < screen.frame.left() + most) {
            ++left.icons;
            left.width = std::max(left.width, cell.right() - screen.frame.left());
        } else if (centre.x() > screen.frame.right() - most) {
            ++right.icons;
            right.width = std::max(right.width, screen.frame.right() - cell.left());
        }
    }
    Side &first = left.icons >= right.icons ? left : right;
    Side &second = &first == &left ? right : left;
    first.width = std::min(first.width, most);
    second.width = std::min(second.width, most - first.width);
    return {left.width, 0, right.width, 0};
}

QMarginsF iconMargins(const DesktopIcons &icons, const IconScreen &screen,
                      const QRectF &desktopWorkArea) {
    const QMarginsF columns = iconColumns(icons, screen, desktopWorkArea);
    if (!icons.areInRows || icons.cell.isEmpty()) {
        return columns;
    }
    const double left = screen.frame.left() + columns.left();
    const double right = screen.frame.right() - columns.right();
    double rows = 0;
    bool isClear = true;
    for (const QRectF &cell : cellsOf(icons, screen, desktopWorkArea)) {
        rows = std::max(rows, cell.bottom() - screen.frame.top());
        isClear = isClear && (cell.right() <= left || cell.left() >= right);
    }
    const bool areFew = rows <= screen.frame.height() * kMostOfTheHeight;
    return isClear || !areFew ? columns : QMarginsF(0, rows, 0, 0);
}

} // namespace zeph
