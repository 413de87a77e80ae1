// SPDX-License-Identifier: MIT
#include "adapters/icons/PcmanfmIcons.h"

#include "adapters/icons/KeyGroups.h"

#include <algorithm>

namespace zeph {

namespace {

// Its grid as measured with version 1.3.2 and icons of 48 points: 116 by 112.
constexpr QSizeF kGridCell(120, 112);

constexpr int kMostPoints = 100000;

bool isPlace(std::optional<int> number) {
    return number && *number > -kMostPoints && *number < kMostPoints;
}

// Icons that are no files, which it shows unless it is told not to.
int ownIcons(const KeyGroup &settings) {
    const auto isOn = [&](const QByteArray &key) { return settings.number(key).value_or(0) != 0; };
    return (isOn("show_documents") ? 1 : 0) + (isOn("show_trash") ? 1 : 0);
}

} // namespace

DesktopIcons pcmanfmIconsIn(const QByteArray &items, int shown) {
    DesktopIcons icons{.cell = kGridCell, .unplaced = std::max(shown, 0)};
    for (const KeyGroup &group : keyGroupsIn(items)) {
        const auto x = group.number("x");
        const auto y = group.number("y");
        if (group.name == "*") {
            icons.unplaced += ownIcons(group);
        } else if (isPlace(x) && isPlace(y)) {
            icons.places.emplace_back(*x, *y);
            icons.unplaced = std::max(icons.unplaced - 1, 0);
        }
    }
    return icons;
}

} // namespace zeph
