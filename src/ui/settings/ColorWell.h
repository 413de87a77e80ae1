// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/Interaction.h"

#include <QPushButton>

#include <functional>

namespace zeph::ui {

/// Shows a colour, and on a press asks for another one.
class ColorWell : public QPushButton {
public:
    /// `name` is read out, and is the title of the window that asks.
    explicit ColorWell(const QString &name, QWidget *parent = nullptr);

    void setColor(const QColor &color);
    const QColor &color() const { return m_color; }

    /// Called with what the user chose.
    std::function<void(const QColor &)> onChosen;

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void ask();

    QColor m_color;
    Interaction m_interaction{*this, [this] { return pill(rect()); }};
};

} // namespace zeph::ui
