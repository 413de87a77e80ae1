// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/places/GlobeOutline.h"

namespace zeph {

/// Large countries with few cities in the weather library, so that the wild parts of one are not
/// named after a town of the next.
std::span<const GlobeOutline> countryOutlines();

} // namespace zeph
