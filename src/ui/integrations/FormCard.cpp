// SPDX-License-Identifier: MIT
#include "ui/integrations/FormCard.h"

#include "ui/controls/Look.h"
#include "ui/controls/TextLabel.h"

#include <QVBoxLayout>

namespace zeph::ui {

namespace {

constexpr double formPadding = 20;
constexpr double labelIndent = 2;
constexpr double buttonRowPadding = 10; // at the end

} // namespace

FormCard::FormCard(QWidget *parent) : Card(parent) {
    auto *form = new QWidget(this);
    m_column = new QVBoxLayout(form);
    const int padding = scaled(formPadding);
    m_column->setContentsMargins(0, padding, 0, padding);
    m_column->setSpacing(0);
    addRow(form);
}

void FormCard::add(QWidget *widget, double gap) {
    addInset(widget, gap, formPadding);
}

void FormCard::addRows(QWidget *widget, double gap) {
    addInset(widget, gap, buttonRowPadding);
}

void FormCard::addLabel(const QString &text, double gap) {
    auto *label = new TextLabel(text, TypeRole::detail, TextLabel::Ink::second, this);
    addInset(label, gap, formPadding, labelIndent);
}

void FormCard::addInset(QWidget *widget, double gap, double end, double indent) {
    addGap(gap);
    auto *line = new QHBoxLayout;
    line->setContentsMargins(directed(*this, formPadding + indent, 0, end, 0));
    line->addWidget(widget);
    m_column->addLayout(line);
}

void FormCard::addGap(double gap) {
    if (m_column->count() > 0) {
        m_column->addSpacing(scaled(gap));
    }
}

} // namespace zeph::ui
