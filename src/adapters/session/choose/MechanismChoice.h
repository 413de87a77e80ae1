// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/session/choose/SessionOffer.h"
#include "ports/DrawingWay.h"

namespace zeph {

/// By what the wallpaper gets onto this desktop: where there are icons, so that they stay visible
/// and clickable if any way allows it.
DrawingWay chooseDrawingWay(const SessionOffer &offer);

} // namespace zeph
