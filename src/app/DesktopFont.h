// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>

namespace zeph {

/// The font for our windows, all measures of which follow its size. `told` is the toolkit's: that
/// of the desktop, or, where no desktop tells it one, its own small choice. That one is taken at
/// the size the windows are designed for.
QFont desktopFont(const QFont &told);

} // namespace zeph
