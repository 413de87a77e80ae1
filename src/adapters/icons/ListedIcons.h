// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/icons/DesktopIcons.h"

#include <QByteArray>

namespace zeph {

/// The icons in what "gio list --attributes=<attribute>" prints of the Desktop folder: one line an
/// entry, the place of its icon after the attribute's name. For the programs that keep it with the
/// file, which are Caja, Nemo and the icons of GNOME. Lines without a place, or with one that was
/// given up, are of icons that the program lays out by itself.
DesktopIcons listedIconsIn(const QByteArray &list, const QByteArray &attribute);

} // namespace zeph
