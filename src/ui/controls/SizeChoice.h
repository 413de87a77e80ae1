// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/Segmented.h"

namespace zeph::ui {

/// Small, medium or large, each a letter A of that size. Indices as in `WidgetSizeOption`.
class SizeChoice : public Segmented {
public:
    explicit SizeChoice(QWidget *parent = nullptr);
};

} // namespace zeph::ui
