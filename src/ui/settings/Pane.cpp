// SPDX-License-Identifier: MIT
#include "ui/settings/Pane.h"

#include "ui/controls/Look.h"

#include <QVBoxLayout>

namespace zeph::ui {

namespace {

constexpr double columnTop = 26; // a header without a way back brings 8 more
constexpr double columnBottom = 44;

} // namespace

Pane::Pane(QWidget *parent) : QWidget(parent), m_column(new QVBoxLayout(this)) {
    m_column->setContentsMargins(0, scaled(columnTop), 0, scaled(columnBottom));
    m_column->setSpacing(0);
    m_column->addStretch(1);
}

void Pane::add(QWidget *widget, int gap) {
    const int place = m_column->count() - 1;
    if (place > 0) {
        m_column->insertSpacing(place, scaled(gap));
    }
    m_column->insertWidget(m_column->count() - 1, widget);
}

} // namespace zeph::ui
