// SPDX-License-Identifier: MIT
#include "ui/controls/TextField.h"

namespace zeph::ui {

TextField::TextField(const QString &placeholder, QWidget *parent) : QLineEdit(parent) {
    setPlaceholderText(placeholder);
}

void TextField::setWrong(bool isWrong) {
    m_isWrong = isWrong;
    update();
}

} // namespace zeph::ui
