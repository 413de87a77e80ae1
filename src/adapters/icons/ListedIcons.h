// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/icons/DesktopIcons.h"

#include <QByteArray>

namespace zeph {

/// The grid that a program lays icons out in, in points.
struct IconGrid {
    QSizeF cell;
    QPointF corner; ///< of a cell, from the place that is kept with a file
};

/// Caja's and Nemo's.
IconGrid cajaGrid();

/// The icons in what "gio list --attributes=<attribute>" prints of the Desktop folder: one line an
/// entry, the place of its icon after the attribute's name. For the programs that keep it with the
/// file, which are Caja, Nemo and the icons of GNOME. Lines without a place, or with one that was
/// given up, are of icons that the program lays out by itself.
DesktopIcons listedIconsIn(const QByteArray &list, const QByteArray &attribute,
                           const IconGrid &grid);

} // namespace zeph
