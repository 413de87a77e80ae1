// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/session/choose/SessionOffer.h"
#include "ports/DrawingWay.h"

namespace zeph {

/// Chooses the technique that puts the wallpaper on this desktop. Where there are icons it is one
/// that leaves them visible and clickable, if any does.
DrawingWay chooseDrawingWay(const SessionOffer &offer);

} // namespace zeph
