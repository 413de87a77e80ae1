// SPDX-License-Identifier: MIT
#include "ui/controls/Stepper.h"

#include <QLineEdit>
#include <QWheelEvent>

namespace zeph::ui {

Stepper::Stepper(int least, int most, QWidget *parent) : QSpinBox(parent) {
    setRange(least, most);
}

void Stepper::wheelEvent(QWheelEvent *event) {
    event->ignore();
}

} // namespace zeph::ui
