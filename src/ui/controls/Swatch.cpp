// SPDX-License-Identifier: MIT
#include "ui/controls/Swatch.h"

namespace zeph::ui {

Swatch::Swatch(const QString &name, const QString &hex, QWidget *parent)
    : QRadioButton(name, parent), m_hex(hex) {
    setToolTip(name);
}

} // namespace zeph::ui
