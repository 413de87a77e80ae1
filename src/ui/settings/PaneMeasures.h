// SPDX-License-Identifier: MIT
#pragma once

namespace zeph::ui {

// Gaps in the column of a pane, in logical pixels.
inline constexpr int belowHeader = 26;
inline constexpr int betweenCards = 14;

} // namespace zeph::ui
