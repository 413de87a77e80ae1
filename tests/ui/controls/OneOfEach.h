// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/Tokens.h"

#include <QImage>

namespace zeph::ui {

/// One of each control on a sheet that is `enlarged` as the font is, from right to left where
/// `isMirrored`.
QImage oneOfEach(Appearance appearance, double enlarged, bool isMirrored);

} // namespace zeph::ui
