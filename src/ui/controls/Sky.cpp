// SPDX-License-Identifier: MIT
#include "ui/controls/Sky.h"

#include "ui/controls/Look.h"

#include <QPainter>

namespace zeph::ui {

Sky::Sky(QWidget *parent) : QWidget(parent) {}

void Sky::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    painter.fillRect(rect(), Look::of(*this).tokens().skyTop);
}

} // namespace zeph::ui
