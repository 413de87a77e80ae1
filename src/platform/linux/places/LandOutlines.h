// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/places/GlobeOutline.h"

namespace zeph {

/// The continents and the larger islands, to tell a desert from a sea. The name is that of the
/// country, empty where there are several.
std::span<const GlobeOutline> landOutlines();

} // namespace zeph
