// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/icons/DesktopIcons.h"

#include <QByteArray>

namespace zeph {

/// The icons in the text of pcmanfm's desktop-items-0.conf, of `shown` entries of the folder: it
/// tells the places of those alone that the user moved.
DesktopIcons pcmanfmIconsIn(const QByteArray &items, int shown);

} // namespace zeph
