// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/Interaction.h"

#include <QLineEdit>

namespace zeph::ui {

/// The edge of a field, as it stands: quiet, hovered, in use or wrong.
struct FieldState {
    double hover = 0;
    bool hasFocus = false;
    bool isWrong = false;
};
void paintField(QPainter &painter, const QWidget &field, const FieldState &state);
/// The shape of that field.
Rounded fieldShape(const QWidget &field);

/// A line of text.
class TextField : public QLineEdit {
public:
    explicit TextField(const QString &placeholder = {}, QWidget *parent = nullptr);

    /// Draws the edge as that of a wrong entry; a status line below tells what is wrong.
    void setWrong(bool isWrong);
    bool isWrong() const { return m_isWrong; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void paintFrame();

private:
    // The edge shows the focus by itself, unless it has to show the fault.
    Interaction m_interaction{*this, [this] { return m_isWrong ? fieldShape(*this) : Rounded{}; }};
    bool m_isWrong = false;
};

} // namespace zeph::ui
