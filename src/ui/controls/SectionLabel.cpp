// SPDX-License-Identifier: MIT
#include "ui/controls/SectionLabel.h"

#include "ui/controls/TextLabel.h"

#include <QVBoxLayout>

namespace zeph::ui {

SectionLabel::SectionLabel(const QString &title, const QString &line, QWidget *parent)
    : QWidget(parent) {
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(scaled(2), scaled(30 - 14), 0, 0);
    column->setSpacing(scaled(2));
    column->addWidget(new TextLabel(title, TypeRole::section, TextLabel::Ink::third, this));
    if (!line.isEmpty()) {
        column->addWidget(new TextLabel(line, TypeRole::detail, TextLabel::Ink::second, this));
    }
}

} // namespace zeph::ui
