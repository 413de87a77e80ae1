// SPDX-License-Identifier: MIT
#pragma once

#include <QPushButton>

namespace zeph::ui {

/// A symbol to press. Its name is read out and shown as its tooltip.
class IconButton : public QPushButton {
public:
    IconButton(QString symbol, const QString &name, QWidget *parent = nullptr);

    void setSymbol(const QString &identifier);
    const QString &symbol() const { return m_symbol; }

private:
    QString m_symbol;
};

} // namespace zeph::ui
