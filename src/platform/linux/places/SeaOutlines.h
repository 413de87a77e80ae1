// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/places/GlobeOutline.h"

namespace zeph {

/// The seas, gulfs and straits with a name of their own, smaller ones first. They run over the
/// land beside them.
std::span<const GlobeOutline> seaOutlines();

} // namespace zeph
