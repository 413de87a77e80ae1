// SPDX-License-Identifier: MIT
#include "ui/settings/TabOrder.h"

#include <QWidget>

namespace zeph::ui {

namespace {

bool takesTheFocus(const QWidget &widget) {
    return widget.focusPolicy() != Qt::NoFocus;
}

/// What takes the focus in `widget`, itself included, in order.
QList<QWidget *> stopsIn(QWidget &widget) {
    QList<QWidget *> stops = widget.findChildren<QWidget *>();
    stops.prepend(&widget);
    stops.removeIf([](const QWidget *one) { return !takesTheFocus(*one); });
    return stops;
}

void visitAfterStop(QWidget *stop, QWidget &row) {
    for (QWidget *next : stopsIn(row)) {
        QWidget::setTabOrder(stop, next);
        stop = next;
    }
}

} // namespace

void visitAfter(QWidget &above, QWidget &row) {
    const QList<QWidget *> stops = stopsIn(above);
    if (!stops.isEmpty()) {
        visitAfterStop(stops.back(), row);
    }
}

void visitFirst(QWidget &list, QWidget &row) {
    QWidget *before = list.previousInFocusChain();
    while (before != list.window() && !takesTheFocus(*before)) {
        before = before->previousInFocusChain();
    }
    if (before != list.window()) { // else nothing comes before
        visitAfterStop(before, row);
    }
}

} // namespace zeph::ui
