// SPDX-License-Identifier: MIT
#include "adapters/icons/DisplayGrid.h"

#include <algorithm>
#include <cmath>

namespace zeph {

namespace {

// Far more than fill a screen, whatever a file says.
constexpr int kMostPerStripe = 1000;

int cellsThatFit(double room, double leastCell) {
    return std::clamp(static_cast<int>(room / leastCell), 1, kMostPerStripe);
}

/// The length of a cell of so many, in whole units of the program's own.
double cellLength(double room, int cells) {
    return std::max(1.0, std::floor(room / cells));
}

/// Those that are known, and the first free ones for all others.
std::set<IconCell> allTaken(const DisplayIcons &icons, int stripes, int perStripe) {
    std::set<IconCell> taken = icons.taken;
    int left = icons.unplaced;
    for (int i = 0; i < stripes * perStripe && left > 0; ++i) {
        left -= taken.insert({i / perStripe, i % perStripe}).second ? 1 : 0;
    }
    return taken;
}

} // namespace

DesktopIcons placedOn(const IconScreen &screen, const DisplayIcons &icons) {
    if (icons.display.isEmpty() || icons.leastCell.isEmpty() || screen.workArea.isEmpty()) {
        return {};
    }
    const double points =
        screen.frame.width() / icons.display.width(); // in a unit of the program's
    const QSizeF room = screen.workArea.size() / points;
    const int told = std::clamp(icons.perStripe, 0, kMostPerStripe);
    const bool isToldOfRows = told > 0 && icons.isByColumns;
    const bool isToldOfColumns = told > 0 && !icons.isByColumns;
    const int columns =
        isToldOfColumns ? told : cellsThatFit(room.width(), icons.leastCell.width());
    const int rows = isToldOfRows ? told : cellsThatFit(room.height(), icons.leastCell.height());

    DesktopIcons placed{.areInRows = !icons.isByColumns};
    placed.cell =
        QSizeF(cellLength(room.width(), columns), cellLength(room.height(), rows)) * points;
    const auto taken =
        icons.isByColumns ? allTaken(icons, columns, rows) : allTaken(icons, rows, columns);
    for (const IconCell &cell : taken) {
        const int column = icons.isByColumns ? cell.stripe : cell.place;
        const int row = icons.isByColumns ? cell.place : cell.stripe;
        const double left = icons.isFromRight
                                ? screen.workArea.right() - (column + 1.0) * placed.cell.width()
                                : screen.workArea.left() + column * placed.cell.width();
        placed.places.emplace_back(left, screen.workArea.top() + row * placed.cell.height());
    }
    return placed;
}

} // namespace zeph
