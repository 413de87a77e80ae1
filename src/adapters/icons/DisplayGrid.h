// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/icons/DesktopIcons.h"
#include "adapters/icons/IconColumns.h"

namespace zeph {

/// The icons of one display at their places on the desktop, in points. `screen` is that display.
DesktopIcons placedOn(const IconScreen &screen, const DisplayIcons &icons);

} // namespace zeph
