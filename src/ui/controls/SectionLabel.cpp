// SPDX-License-Identifier: MIT
#include "ui/controls/SectionLabel.h"

#include "ui/controls/TextLabel.h"

#include <QVBoxLayout>

namespace zeph::ui {

namespace {

constexpr double sectionIndent = 2;
constexpr double sectionTitleToLine = 2;

} // namespace

SectionLabel::SectionLabel(const QString &title, const QString &line, QWidget *parent)
    : QWidget(parent) {
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(directed(*this, sectionIndent, 0, 0, 0));
    column->setSpacing(scaled(sectionTitleToLine));
    column->addWidget(new TextLabel(title, TypeRole::section, TextLabel::Ink::third, this));
    if (!line.isEmpty()) {
        column->addWidget(new TextLabel(line, TypeRole::detail, TextLabel::Ink::second, this));
    }
}

} // namespace zeph::ui
