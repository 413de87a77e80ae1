// SPDX-License-Identifier: MIT
#include "adapters/icons/XfdesktopIcons.h"

#include "adapters/icons/KeyGroups.h"

#include <QStringList>
#include <QXmlStreamReader>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

// Its grid as measured with version 4.18: 42, 72, 103, 139 and 211 points from one column to the
// next with icons of 16, 32, 48, 64 and 96. This is never less and at most a tenth more.
constexpr double kCellPerIcon = 2.2;
constexpr double kCellBesides = 8;

// From the work area to the first cell.
constexpr double kMargin = 8;

// What its settings offer; anything else is damage.
constexpr int kSmallestIcon = 16;
constexpr int kLargestIcon = 192;

constexpr int kMostCells = 1000; // in one direction

} // namespace

XfdesktopIconSettings xfdesktopSettingsIn(const QByteArray &xml) {
    XfdesktopIconSettings settings;
    QXmlStreamReader reader(xml);
    QStringList path;
    while (!reader.atEnd()) {
        const auto token = reader.readNext();
        if (token == QXmlStreamReader::EndElement && !path.isEmpty()) {
            path.removeLast();
        }
        if (token != QXmlStreamReader::StartElement) {
            continue;
        }
        path.append(reader.attributes().value("name"_L1).toString());
        bool isNumber = false;
        const int value = reader.attributes().value("value"_L1).toInt(&isNumber);
        if (!isNumber || path.size() != 3 || path[1] != u"desktop-icons"_s) {
            continue;
        }
        if (path[2] == u"style"_s) {
            settings.areShown = value != 0;
        } else if (path[2] == u"icon-size"_s && value >= kSmallestIcon && value <= kLargestIcon) {
            settings.iconSize = value;
        }
    }
    return settings;
}

DesktopIcons xfdesktopIconsIn(const QByteArray &rc, const XfdesktopIconSettings &settings) {
    const double side = kCellPerIcon * settings.iconSize + kCellBesides;
    DesktopIcons icons{.origin = DesktopIcons::Origin::workArea, .cell = {side, side}};
    if (!settings.areShown) {
        return icons;
    }
    for (const KeyGroup &group : keyGroupsIn(rc)) {
        const auto row = group.number("row");
        const auto column = group.number("col");
        if (row && column && *row >= 0 && *row < kMostCells && *column >= 0 &&
            *column < kMostCells) {
            icons.places.emplace_back(kMargin + *column * side, kMargin + *row * side);
        }
    }
    return icons;
}

} // namespace zeph
