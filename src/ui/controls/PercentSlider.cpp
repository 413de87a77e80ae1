// SPDX-License-Identifier: MIT
#include "ui/controls/PercentSlider.h"

#include <QWheelEvent>

namespace zeph::ui {

PercentSlider::PercentSlider(QWidget *parent) : QSlider(Qt::Horizontal, parent) {
    setRange(0, 100);
}

void PercentSlider::wheelEvent(QWheelEvent *event) {
    event->ignore();
}

} // namespace zeph::ui
