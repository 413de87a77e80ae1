// SPDX-License-Identifier: MIT
#include "ui/integrations/LabelledField.h"

#include "ui/controls/Look.h"
#include "ui/controls/TextLabel.h"

#include <QLineEdit>
#include <QVBoxLayout>

namespace zeph::ui {

namespace {

constexpr double labelInset = 2;
constexpr double labelGap = 6;
constexpr double noteGap = 8;
constexpr double linkGap = 4;

} // namespace

LabelledField::LabelledField(const QString &label, QLineEdit *field, QWidget *parent)
    : QWidget(parent), m_field(field), m_column(new QVBoxLayout(this)) {
    m_column->setContentsMargins(0, 0, 0, 0);
    m_column->setSpacing(0);
    auto *text = new TextLabel(label, TypeRole::detail, TextLabel::Ink::second, this);
    text->setBuddy(field);
    addInset(text);
    m_column->addSpacing(scaled(labelGap));
    m_column->addWidget(field);
    field->setAccessibleName(label);
}

void LabelledField::addNote(const QString &text) {
    m_column->addSpacing(scaled(noteGap));
    auto *note = new TextLabel(text, TypeRole::note, TextLabel::Ink::second, this);
    addInset(note);
    m_field->setAccessibleDescription(text);
}

void LabelledField::addInset(QWidget *text) {
    auto *line = new QHBoxLayout;
    line->setContentsMargins(directed(*this, labelInset, 0, 0, 0));
    line->addWidget(text);
    m_column->addLayout(line);
}

void LabelledField::addBelow(QWidget *widget) {
    m_column->addSpacing(scaled(linkGap));
    m_column->addWidget(widget, 0, Qt::AlignLeading);
}

} // namespace zeph::ui
