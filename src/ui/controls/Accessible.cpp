// SPDX-License-Identifier: MIT
#include "ui/controls/Accessible.h"

#include <QAccessibleWidget>
#include <QVariant>
#include <QWidget>

namespace zeph::ui {

namespace {

constexpr const char *roleProperty = "zephRole";

QAccessibleInterface *withRole(const QString &, QObject *object) {
    auto *widget = dynamic_cast<QWidget *>(object);
    const QVariant role = widget == nullptr ? QVariant() : widget->property(roleProperty);
    return role.isValid()
               ? new QAccessibleWidget(widget, static_cast<QAccessible::Role>(role.toInt()))
               : nullptr;
}

} // namespace

void announceAs(QWidget &widget, QAccessible::Role role) {
    widget.setProperty(roleProperty, static_cast<int>(role));
    QAccessible::installFactory(withRole); // once, however often it is asked for
}

} // namespace zeph::ui
