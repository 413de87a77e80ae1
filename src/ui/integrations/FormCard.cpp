// SPDX-License-Identifier: MIT
#include "ui/integrations/FormCard.h"

#include "ui/controls/Look.h"

#include <QVBoxLayout>

namespace zeph::ui {

namespace {

constexpr double formPadding = 20;

} // namespace

FormCard::FormCard(QWidget *parent) : Card(parent) {
    auto *form = new QWidget(this);
    m_column = new QVBoxLayout(form);
    const int padding = scaled(formPadding);
    m_column->setContentsMargins(padding, padding, padding, padding);
    m_column->setSpacing(0);
    addRow(form);
}

void FormCard::add(QWidget *widget, double gap) {
    addGap(gap);
    m_column->addWidget(widget);
}

void FormCard::addAtStart(QWidget *widget, double gap) {
    addGap(gap);
    m_column->addWidget(widget, 0, Qt::AlignLeading);
}

void FormCard::addGap(double gap) {
    if (m_column->count() > 0) {
        m_column->addSpacing(scaled(gap));
    }
}

} // namespace zeph::ui
