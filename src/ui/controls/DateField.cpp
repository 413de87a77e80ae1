// SPDX-License-Identifier: MIT
#include "ui/controls/DateField.h"

#include <QWheelEvent>

namespace zeph::ui {

DateField::DateField(QDate date, QWidget *parent) : QDateEdit(date, parent) {
    setCalendarPopup(true);
}

void DateField::wheelEvent(QWheelEvent *event) {
    event->ignore();
}

} // namespace zeph::ui
