// SPDX-License-Identifier: MIT
#include "ui/controls/Card.h"

#include "ui/controls/Look.h"

#include <QVBoxLayout>

namespace zeph::ui {

Card::Card(QWidget *parent) : QFrame(parent), m_rows(new QVBoxLayout(this)) {
    m_rows->setContentsMargins(0, 0, 0, 0);
    m_rows->setSpacing(0);
}

void Card::addRow(QWidget *row) {
    m_rows->addWidget(row);
}

void Card::addBody(QWidget *body) {
    body->setContentsMargins(scaled(56), 0, scaled(20), scaled(16));
    m_rows->addWidget(body);
}

} // namespace zeph::ui
