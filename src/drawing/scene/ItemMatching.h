// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/scene/DrawItem.h"

#include <vector>

namespace zeph {

/// The items that two lists do not share. What they share stands in the same order in both.
struct UnmatchedItems {
    std::vector<const DrawItem *> removed; ///< of the list before
    std::vector<const DrawItem *> added;   ///< of the list after
};

/// Compares two lists of items by their look. The pointers are into the lists.
UnmatchedItems unmatchedItems(const std::vector<DrawItem> &before,
                              const std::vector<DrawItem> &after);

} // namespace zeph
