// SPDX-License-Identifier: MIT
#include "ui/controls/SecretField.h"

namespace zeph::ui {

SecretField::SecretField(const QString &placeholder, QWidget *parent)
    : TextField(placeholder, parent) {
    setEchoMode(QLineEdit::Password);
    setInputMethodHints(Qt::ImhHiddenText | Qt::ImhSensitiveData | Qt::ImhNoPredictiveText |
                        Qt::ImhNoAutoUppercase);
}

} // namespace zeph::ui
