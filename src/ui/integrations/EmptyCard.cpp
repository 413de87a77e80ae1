// SPDX-License-Identifier: MIT
#include "ui/integrations/EmptyCard.h"

#include "ui/controls/TextLabel.h"

namespace zeph::ui {

namespace {

constexpr double emptyCardHeight = 80;
constexpr double emptyCardPadding = 20;

} // namespace

EmptyCard::EmptyCard(const QString &text, QWidget *parent) : Card(parent) {
    auto *label = new TextLabel(text, TypeRole::body, TextLabel::Ink::second, this);
    label->setAlignment(Qt::AlignCenter);
    label->setMinimumHeight(scaled(emptyCardHeight));
    label->setMargin(scaled(emptyCardPadding));
    addRow(label);
}

} // namespace zeph::ui
