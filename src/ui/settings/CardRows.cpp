// SPDX-License-Identifier: MIT
#include "ui/settings/CardRows.h"

#include "ui/controls/Look.h"
#include "ui/controls/Paint.h"
#include "ui/settings/TabOrder.h"

#include <QPainter>
#include <QVBoxLayout>

namespace zeph::ui {

CardRows::CardRows(QWidget *parent) : QWidget(parent), m_rows(new QVBoxLayout(this)) {
    m_rows->setContentsMargins(0, 0, 0, 0);
    m_rows->setSpacing(0);
}

void CardRows::add(QWidget *row) {
    m_rows->addWidget(row);
    row->show(); // at once, so that the focus can go there
    if (const int last = count() - 1; last > 0) {
        visitAfter(*this->row(last - 1), *row);
    } else {
        visitFirst(*this, *row);
    }
}

QWidget *CardRows::row(int index) const {
    const QLayoutItem *item = m_rows->itemAt(index);
    return item == nullptr ? nullptr : item->widget();
}

int CardRows::count() const {
    return m_rows->count();
}

void CardRows::removeFrom(int index) {
    while (m_rows->count() > index) {
        QWidget *last = m_rows->itemAt(m_rows->count() - 1)->widget();
        m_rows->removeWidget(last);
        last->hide();
        last->deleteLater();
    }
}

void CardRows::paintEvent(QPaintEvent * /*event*/) {
    QPainter painter(this);
    const QColor &color = Look::of(*this).tokens().line;
    for (int index = 1; index < count(); ++index) {
        const QRectF line(0, row(index)->y(), width(), hairline(painter));
        painter.fillRect(onPixels(painter, line), color);
    }
}

} // namespace zeph::ui
