// SPDX-License-Identifier: MIT
#include "ui/controls/MarkRow.h"

namespace zeph::ui {

RadioRow::RadioRow(const QString &title, const QString &detail, QWidget *parent)
    : QRadioButton(title, parent), m_detail(detail) {
    setAccessibleDescription(detail);
}

void RadioRow::setDetail(const QString &detail) {
    m_detail = detail;
    setAccessibleDescription(detail);
    update();
}

CheckRow::CheckRow(const QString &title, const QString &detail, QWidget *parent)
    : QCheckBox(title, parent), m_detail(detail) {
    setAccessibleDescription(detail);
}

void CheckRow::setDetail(const QString &detail) {
    m_detail = detail;
    setAccessibleDescription(detail);
    update();
}

} // namespace zeph::ui
