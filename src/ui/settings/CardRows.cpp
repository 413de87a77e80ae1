// SPDX-License-Identifier: MIT
#include "ui/settings/CardRows.h"

#include "ui/controls/Look.h"

#include <QPainter>
#include <QVBoxLayout>

namespace zeph::ui {

namespace {

constexpr double textStart = 56; // of a row, from the card's edge
constexpr double cardPadding = 20;

} // namespace

CardRows::CardRows(Lines lines, QWidget *parent)
    : QWidget(parent), m_lines(lines), m_rows(new QVBoxLayout(this)) {
    m_rows->setContentsMargins(0, 0, 0, 0);
    m_rows->setSpacing(0);
}

void CardRows::add(QWidget *row) {
    m_rows->addWidget(row);
    row->show(); // at once, so that the focus can go there
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
    // One pixel of the device, which a line of width zero is.
    painter.setPen(QPen(Look::of(*this).tokens().line, 0));
    const bool isMirrored = layoutDirection() == Qt::RightToLeft;
    const int start = m_lines == Lines::whole ? 0 : scaled(textStart);
    const int end = m_lines == Lines::whole ? 0 : scaled(cardPadding);
    const int left = contentsRect().left() + (isMirrored ? end : start);
    const int right = contentsRect().right() + 1 - (isMirrored ? start : end);
    for (int index = 1; index < count(); ++index) {
        const double top = row(index)->y() + 0.5 / devicePixelRatioF();
        painter.drawLine(QPointF(left, top), QPointF(right, top));
    }
}

} // namespace zeph::ui
