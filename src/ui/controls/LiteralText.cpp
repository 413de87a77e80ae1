// SPDX-License-Identifier: MIT
#include "ui/controls/LiteralText.h"

#include <QAbstractButton>
#include <QKeySequence>

namespace zeph::ui {

void setLiteralText(QAbstractButton &button, const QString &text) {
    const bool isNamedByText =
        button.accessibleName().isEmpty() || button.accessibleName() == button.text();
    button.setText(text);
    button.setShortcut({});
    if (isNamedByText) {
        button.setAccessibleName(text);
    }
}

} // namespace zeph::ui
