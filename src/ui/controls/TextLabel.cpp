// SPDX-License-Identifier: MIT
#include "ui/controls/TextLabel.h"

namespace zeph::ui {

TextLabel::TextLabel(const QString &text, TypeRole role, Ink ink, QWidget *parent)
    : QLabel(text, parent), m_ink(ink) {
    setTextFormat(Qt::PlainText);
    setFont(ui::font(role));
    setWordWrap(true);
}

void TextLabel::setInk(Ink ink) {
    m_ink = ink;
    update();
}

} // namespace zeph::ui
