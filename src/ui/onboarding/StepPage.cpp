// SPDX-License-Identifier: MIT
#include "ui/onboarding/StepPage.h"

#include "ui/controls/Look.h"
#include "ui/controls/TextLabel.h"

#include <QVBoxLayout>

namespace zeph::ui {

namespace {

constexpr double sideMargin = 20;
constexpr double belowHead = 22;

} // namespace

StepPage::StepPage(QWidget *head, const QString &title, double top, QWidget *parent)
    : QWidget(parent), m_column(new QVBoxLayout(this)) {
    setAccessibleName(title);
    m_column->setContentsMargins(scaled(sideMargin), scaled(top), scaled(sideMargin), 0);
    m_column->setSpacing(0);
    m_column->addWidget(head, 0, Qt::AlignHCenter);
    m_column->addStretch(1);
    auto *heading = new TextLabel(title, TypeRole::title, TextLabel::Ink::ink);
    heading->setAlignment(Qt::AlignHCenter);
    add(heading, belowHead);
}

void StepPage::add(QWidget *widget, double gap) {
    const int place = m_column->count() - 1; // the stretch stays last
    m_column->insertSpacing(place, scaled(gap));
    m_column->insertWidget(place + 1, widget);
}

void StepPage::addLowest(QWidget *widget, double distance) {
    m_column->addWidget(widget);
    m_column->addSpacing(scaled(distance));
}

} // namespace zeph::ui
