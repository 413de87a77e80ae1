// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/scene/AmbientBackground.h"
#include "drawing/scene/DrawItem.h"

#include <optional>
#include <vector>

namespace zeph {

/// All that one surface shows: the items lie on the backdrop in their order. Without a backdrop
/// the desktop beneath shows through.
struct Scene {
    std::optional<AmbientBackground> backdrop;
    std::vector<DrawItem> items;
};

} // namespace zeph
