// SPDX-License-Identifier: MIT
#include "ui/controls/ChoiceBox.h"

#include <QWheelEvent>

namespace zeph::ui {

ChoiceBox::ChoiceBox(const QStringList &texts, QWidget *parent) : QComboBox(parent) {
    addItems(texts);
}

void ChoiceBox::wheelEvent(QWheelEvent *event) {
    event->ignore();
}

} // namespace zeph::ui
