// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/places/GlobeOutline.h"

namespace zeph {

/// Every ocean but the Pacific, which is all the rest. They run over seas and land.
std::span<const GlobeOutline> oceanOutlines();

/// Waters that no ocean reaches.
std::span<const GlobeOutline> lakeOutlines();

} // namespace zeph
