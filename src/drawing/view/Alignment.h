// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/view/Views.h"

namespace zeph {

/// How far content moves into `room` points that it leaves free (negative when it sticks out).
double alignedOffset(HorizontalAlignment alignment, double room);
double alignedOffset(VerticalAlignment alignment, double room);

} // namespace zeph
