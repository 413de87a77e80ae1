// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/scene/DrawItem.h"

namespace zeph {

/// Enlarges or reduces `item` by `scale` with `fixed` as the point that stays where it is.
void scaleAbout(const QPointF &fixed, double scale, DrawItem &item);

} // namespace zeph
