// SPDX-License-Identifier: MIT
#include "ui/controls/PillButton.h"

namespace zeph::ui {

PillButton::PillButton(const QString &text, Kind kind, QWidget *parent)
    : QPushButton(text, parent), m_kind(kind) {}

void PillButton::setKind(Kind kind) {
    m_kind = kind;
    update();
}

void PillButton::setHeight(Height height) {
    m_height = height;
    updateGeometry();
}

void PillButton::setSymbol(const QString &identifier) {
    m_symbol = identifier;
    updateGeometry();
}

QSize PillButton::sizeHint() const {
    return QPushButton::sizeHint();
}

} // namespace zeph::ui
