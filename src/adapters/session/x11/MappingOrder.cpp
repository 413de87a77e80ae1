// SPDX-License-Identifier: MIT
#include "adapters/session/x11/MappingOrder.h"

#include <algorithm>

namespace zeph {

bool isMappedAfterAny(const std::vector<xcb_window_t> &order, const std::vector<xcb_window_t> &ours,
                      const std::vector<xcb_window_t> &icons) {
    const auto firstIcons =
        std::find_first_of(order.begin(), order.end(), icons.begin(), icons.end());
    return std::find_first_of(firstIcons, order.end(), ours.begin(), ours.end()) != order.end();
}

} // namespace zeph
