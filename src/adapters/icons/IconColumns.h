// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/icons/DesktopIcons.h"

#include <QMarginsF>
#include <QRectF>

namespace zeph {

/// A screen as the arrangement of its icons sees it: rectangles in points, from the top left corner
/// of the whole desktop.
struct IconScreen {
    QRectF frame;
    QRectF workArea; ///< `frame` without panels
};

/// What the icons of a screen take at its left and its right side, in points from the sides of the
/// frame: whole columns, so that words beside them lie over none. Both together take at most a
/// third of the width; the side with more icons goes first. Icons in the middle are left out.
/// `desktopWorkArea` is that of the whole desktop, which grids are measured from.
QMarginsF iconColumns(const DesktopIcons &icons, const IconScreen &screen,
                      const QRectF &desktopWorkArea);

/// What is left out beside the icons of a screen, in points from the sides of the frame: their
/// columns, but for icons in rows that reach beyond those, whose rows are left out, unless they
/// would take more than a third of the height.
QMarginsF iconMargins(const DesktopIcons &icons, const IconScreen &screen,
                      const QRectF &desktopWorkArea);

} // namespace zeph
