// SPDX-License-Identifier: MIT
#pragma once

#include <QBrush>
#include <QSizeF>

namespace zeph::ui {

/// A quiet landscape of `size` logical pixels that stands for the desktop's own picture, which is
/// not known here. Its light is that of most photographs, so that the widgets over it look as they
/// will.
QBrush standInDesktop(const QSizeF &size, double pixelRatio);

} // namespace zeph::ui
