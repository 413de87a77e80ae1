// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/Interaction.h"

#include <QPushButton>

namespace zeph::ui {

/// A symbol to press. Its name is read out and shown as its tooltip.
class IconButton : public QPushButton {
public:
    IconButton(QString symbol, const QString &name, QWidget *parent = nullptr);

    void setSymbol(const QString &identifier);
    const QString &symbol() const { return m_symbol; }
    void setName(const QString &name);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QString m_symbol;
    Interaction m_interaction{*this, [this] { return pill(rect()); }};
};

} // namespace zeph::ui
