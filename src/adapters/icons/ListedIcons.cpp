// SPDX-License-Identifier: MIT
#include "adapters/icons/ListedIcons.h"

#include <QList>

#include <optional>

namespace zeph {

namespace {

// The grid as measured with Caja 1.26: 156 by 100 from one icon of 48 points to the next.
constexpr QSizeF kCell(156, 100);
constexpr double kIcon = 48;

constexpr int kFarthest = 100000;

std::optional<double> coordinate(const QByteArray &text) {
    bool isNumber = false;
    const int number = text.toInt(&isNumber);
    return isNumber && number > -kFarthest && number < kFarthest ? std::optional<double>(number)
                                                                 : std::nullopt;
}

/// What "x,y" tells.
std::optional<QPointF> placeIn(const QByteArray &text) {
    const qsizetype comma = text.indexOf(',');
    const auto x = coordinate(text.left(comma));
    const auto y = coordinate(text.mid(comma + 1));
    return comma > 0 && x && y ? std::optional(QPointF(*x, *y)) : std::nullopt;
}

} // namespace

IconGrid cajaGrid() {
    // The cell reaches beyond the picture to both sides, for the name below it.
    return {kCell, {(kIcon - kCell.width()) / 2, 0}};
}

DesktopIcons listedIconsIn(const QByteArray &list, const QByteArray &attribute,
                           const IconGrid &grid) {
    DesktopIcons icons{.cell = grid.cell};
    const QByteArray name = attribute + '=';
    for (const QByteArray &line : list.split('\n')) {
        if (line.isEmpty()) {
            continue;
        }
        // The name comes first and may hold whatever it likes.
        const QByteArray last = line.mid(line.lastIndexOf('\t') + 1);
        const QByteArray value = last.startsWith(name) ? last.mid(name.size()) : QByteArray();
        if (const auto place = placeIn(value)) {
            icons.places.push_back(*place + grid.corner);
        } else {
            ++icons.unplaced;
        }
    }
    return icons;
}

} // namespace zeph
