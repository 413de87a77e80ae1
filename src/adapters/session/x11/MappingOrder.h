// SPDX-License-Identifier: MIT
#pragma once

#include <xcb/xproto.h>

#include <vector>

namespace zeph {

/// Whether one of `ours` was mapped after one of `icons`, by the order in which windows were
/// mapped; those that are not in it don't count.
bool isMappedAfterAny(const std::vector<xcb_window_t> &order, const std::vector<xcb_window_t> &ours,
                      const std::vector<xcb_window_t> &icons);

} // namespace zeph
