// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/Interaction.h"

#include <QSpinBox>
#include <QTimer>

namespace zeph::ui {

/// One less, one more; the number itself stands in the title of the row. Held down, it goes on.
/// The wheel scrolls the pane instead.
class Stepper : public QSpinBox {
public:
    Stepper(int least, int most, QWidget *parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void wheelEvent(QWheelEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void inputMethodEvent(QInputMethodEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    enum class Half { none, less, more };

    Half halfAt(const QPointF &place) const;
    QRectF rectOf(Half half) const;
    bool canStep(Half half) const;
    void step(Half half);
    void stepOn();
    void paintHalf(QPainter &painter, Half half) const;

    Interaction m_interaction{*this, [this] { return pill(rect()); }};
    Half m_hovered = Half::none;
    Half m_pressed = Half::none;
    QTimer m_repeat;
};

} // namespace zeph::ui
