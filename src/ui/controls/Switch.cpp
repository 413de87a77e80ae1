// SPDX-License-Identifier: MIT
#include "ui/controls/Switch.h"

#include "ui/controls/Look.h"

namespace zeph::ui {

Switch::Switch(QWidget *parent) : QCheckBox(parent) {}

QSize Switch::sizeHint() const {
    return {scaled(48), scaled(34)};
}

} // namespace zeph::ui
