// SPDX-License-Identifier: MIT
#include "ui/controls/IconButton.h"

#include "ui/controls/Look.h"

namespace zeph::ui {

IconButton::IconButton(QString symbol, const QString &name, QWidget *parent)
    : QPushButton(parent), m_symbol(std::move(symbol)) {
    setAccessibleName(name);
    setToolTip(name);
    setFixedSize(scaled(30), scaled(30));
}

void IconButton::setSymbol(const QString &identifier) {
    m_symbol = identifier;
    update();
}

} // namespace zeph::ui
